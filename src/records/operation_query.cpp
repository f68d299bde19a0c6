#include "records/operation_query.h"

#include <array>

using namespace Qt::StringLiterals;

namespace kelvora {

Sql operationFields() {
    return Sql(
        "SELECT fishoperation.*, fishing_area.aname, Fishing_gear.guname, Fishing_method.methodname,"
        " samplingport.samplingname, state.statename, vessel.vesselname");
}

Sql operationJoin() {
    return Sql(
        " FROM fishing_area INNER JOIN ((Fishing_gear INNER JOIN Fishing_method ON Fishing_gear.gearid ="
        " Fishing_method.gearid) INNER JOIN ((fishoperation INNER JOIN (samplingport INNER JOIN state ON"
        " samplingport.stateid = state.stateid) ON fishoperation.portid = samplingport.samplingid) INNER JOIN vessel ON"
        " fishoperation.vesselid = vessel.vesselname) ON Fishing_method.methodid = fishoperation.fishing_method) ON"
        " fishing_area.aname = fishoperation.areaid");
}

Sql operationByNumber(int operation) {
    return operationFields() << operationJoin() << " Where optid = " << operation;
}

std::span<const SearchCriterion> searchCriteria() {
    // An operation stores the name of its vessel, so vessels are matched by their shown name and not by their key, the
    // register id. Areas are shown by their description, and matched by their name.
    static const std::array<SearchCriterion, 5> criteria = {{
        {u"State/Province"_s, "select * from state order by statename", u"statename"_s, u"stateid"_s, false,
         [](const QVariant& key) { return Sql(" where  samplingport.stateid = ") << key.toLongLong(); }},
        {u"Sampling Port"_s, "select * from samplingport order by samplingname", u"samplingname"_s, u"samplingid"_s,
         false, [](const QVariant& key) { return Sql(" where fishoperation.portid = ") << key.toLongLong(); }},
        {u"Fishing Area"_s, "select * from fishing_area order by aname", u"describ"_s, u"aname"_s, false,
         [](const QVariant& key) { return Sql(" where fishoperation.areaid = ") << key.toString(); }},
        {u"Vessel"_s, "select * from vessel order by vesselname", u"vesselname"_s, u"vesselid"_s, true,
         [](const QVariant& name) { return Sql(" where fishoperation.vesselid = ") << name.toString(); }},
        {u"Fishing Gear"_s, "select * from Fishing_gear order by guname", u"guname"_s, u"gearid"_s, false,
         [](const QVariant& key) { return Sql(" where Fishing_method.gearid = ") << key.toLongLong(); }},
    }};
    return criteria;
}

std::optional<Sql> operationSearch(const SearchCriterion& criterion, const QString& text, const QVariant& key) {
    const QVariant value = criterion.byText ? QVariant(text) : key;
    if (!value.isValid()) {
        return std::nullopt;
    }
    return operationFields() << operationJoin() << criterion.filter(value) << "  order by optid";
}

Sql numbersOnly(const Sql& search) {
    return Sql("select optid from (") << search << ")";
}

}  // namespace kelvora
