#include "records/vessels.h"

#include "data/names.h"
#include "data/numbers.h"
#include "data/transaction.h"

#include <utility>

using namespace Qt::StringLiterals;

namespace kelvora {
namespace {

Sql withValue(Sql statement, const Vessel& vessel, const VesselField& field) {
    if (field.text == &Vessel::gearName) {
        return std::move(statement) << vessel.gear;
    }
    const QString& text = vessel.*field.text;
    return field.isNumber ? std::move(statement) << toNumber(text).value_or(0) : std::move(statement) << text;
}

Sql vesselInsert(const Vessel& vessel) {
    static const Sql head = [] {
        Sql columns("insert into vessel(");
        Literal separator("");
        for (const VesselField& field : vesselFields()) {
            columns = std::move(columns) << std::exchange(separator, Literal(", ")) << field.column;
        }
        return std::move(columns) << ") values(";
    }();
    Sql statement = head;
    Literal separator("");
    for (const VesselField& field : vesselFields()) {
        statement = withValue(std::move(statement) << std::exchange(separator, Literal(", ")), vessel, field);
    }
    return std::move(statement) << ")";
}

}  // namespace

const std::array<VesselField, 11>& vesselFields() {
    // clang-format off
    static const std::array<VesselField, 11> fields = {{
        {&Vessel::name, "vesselname", false, u"vessel name"_s, u"Vessel name"_s, 133, u"Vessel name"_s, 100},
        {&Vessel::registerId, "vesselid", false, u"vessel register id"_s, u"Vessel id"_s, 100, u"Register id"_s, 66},
        {&Vessel::engineType, "enginetype", false, u"engine type"_s, u"Engine type"_s, 73, u"Engine type"_s, 73},
        {&Vessel::enginePower, "enginepower", true, u"engine power"_s, u"Engine power"_s, 86, u"Engine power"_s, 86},
        {&Vessel::length, "vessellength", true, u"length(m)"_s, u"Vessel length"_s, 86, u"Vessel length"_s, 86},
        {&Vessel::state, "flagstate", false, u"state/province"_s, u"State/Province"_s, 86, u"State/Province"_s, 86},
        {&Vessel::size, "vesselsize", true, u"size(GRT)"_s, u"Size(GRT)"_s, 66, u"Size(GRT)"_s, 86},
        {&Vessel::gearName, "gear", false, u"type of gear"_s, u"Type of gear"_s, 86, u"Type of gear"_s, 80},
        {&Vessel::netLength, "netlength", false, u"net length(m)"_s, u"Net length"_s, 66, u"Net length(m.)"_s, 86},
        {&Vessel::netWidth, "netwidth", false, u"net width(m)"_s, u"Net width"_s, 66, u"Net width(m.)"_s, 86},
        {&Vessel::meshSize, "meshsize", false, u"mesh size(cm)"_s, u"Mesh size"_s, 66, u"Mesh size(cm.)"_s, 86},
    }};
    // clang-format on
    return fields;
}

Vessel vesselOf(const QStringList& fields) {
    Vessel vessel;
    for (qsizetype i = 0; const VesselField& field : vesselFields()) {
        vessel.*field.text = fields.at(i++);
    }
    return vessel;
}

Sql vesselRegister() {
    return Sql(
        "SELECT vesselname,vesselid,enginetype,enginepower,vessellength,flagstate,two_decimals(vesselsize),guname,"
        "netlength,netwidth,meshsize FROM vessel inner join Fishing_gear on vessel.gear = Fishing_gear.gearid"
        " order by vesselid");
}

Sql vesselsByName() {
    return Sql("select * from vessel order by vesselname");
}

bool isRegisterIdStored(Connection& connection, const QString& registerId) {
    return findsNamed(connection, Sql("select * from vessel where "), {{"vesselid", registerId}});
}

bool isVesselKnown(Connection& connection, const Vessel& vessel) {
    Sql named = Sql("select * from vessel where vesselname = ") << vessel.name;
    return finds(connection,
                 vessel.name.isEmpty() ? std::move(named) << " and vesselid = " << vessel.registerId : named);
}

bool isVesselRepeated(Connection& connection, const Vessel& vessel) {
    Sql like("select * from vessel where ");
    for (const VesselField& field : vesselFields()) {
        like = withValue(std::move(like) << field.column << " = ", vessel, field) << " and ";
    }
    return finds(connection, std::move(like) << "1");
}

bool isVesselUsed(Connection& connection, const QString& name) {
    return finds(connection, Sql("select * from fishoperation where vesselid = ") << name);
}

bool addvessel(Connection& connection, const Vessel& vessel, const std::function<bool()>& ask) {
    return executeThenAsk(connection, vesselInsert(vessel), ask);
}

bool addvessel(Connection& connection, const QString& registerId, const std::function<bool()>& ask) {
    return executeThenAsk(connection, Sql("insert into vessel(vesselid) values(") << registerId << ")", ask);
}

void addvessel2(Connection& connection, const Vessel& vessel) {
    connection.execute(vesselInsert(vessel));
}

bool deleteVessels(Connection& connection, const QString& name, const QString& registerId,
                   const std::function<bool()>& ask) {
    return executeThenAsk(connection,
                          name.isEmpty()
                              ? Sql("delete from vessel where ifnull(vesselname,'') = '' and vesselid = ") << registerId
                              : Sql("delete from vessel where vesselname = ") << name,
                          ask);
}

}  // namespace kelvora
