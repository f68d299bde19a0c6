#include "reports/species_composition_report.h"

#include "records/species.h"
#include "reports/report_statements.h"

using namespace Qt::StringLiterals;

namespace kelvora {
namespace {

constexpr Literal kWeighed =
    "EXISTS (SELECT 1 FROM group_composition WHERE group_composition.optid = fishoperation.optid)";

}  // namespace

const std::vector<CompositionSubset>& compositionSubsets() {
    // Months come by their numbers as texts: October to December behind January.
    constexpr Literal month = "CAST(month_number(optdate) AS TEXT)";
    static const std::vector<CompositionSubset> all = {
        {u"By state"_s, "statename", "state.stateid", "1", kWithPort},
        {u"By sampling Port"_s, "samplingname", "fishoperation.portid", "1", kWithPort},
        {u"By Fishing Vessel"_s, "vesselname", "vessel.vesselname", "1", kWithVessel, ", vessel.vesselid"},
        {u"By Fishing Method"_s, kMethodName, "fishoperation.fishing_method", "1, 2", kWithMethod},
        {u"By Fishing Gear"_s, "guname", "Fishing_gear.gearid", "1, 2", kWithMethod},
        {u"By Month"_s, "month_name(optdate)", month, "2", ""},
        {u"By Fishing Area"_s, "areaid", "fishoperation.areaid", "1", kWithArea, "", false},
    };
    return all;
}

Sql compositionYears() {
    return yearsOf(kWeighed);
}

bool hasComposition(Connection& connection, int year) {
    return !connection
                .query(Sql("SELECT 1 FROM fishoperation WHERE ") << kWeighed << " AND " << ofYear(year) << " LIMIT 1")
                .isEmpty();
}

QString compositionTotal(Connection& connection, int year) {
    const Sql sql = Sql("SELECT two_decimals(sum(group_composition.estotal)) AS kg FROM fishoperation INNER JOIN "
                        "group_composition ON group_composition.optid = fishoperation.optid INNER JOIN fish ON "
                        "fish.fishno = group_composition.spid WHERE ")
                    << ofYear(year);
    return connection.query(sql).text(0, u"kg");
}

Sql compositionChoices(const CompositionSubset& subset, int year) {
    const Literal joins = subset.registered ? subset.joins : "";
    return Sql("SELECT DISTINCT ") << subset.name << " AS name, " << subset.key << " AS key" << subset.also
                                   << " FROM fishoperation" << joins << " WHERE " << kWeighed << " AND " << ofYear(year)
                                   << " ORDER BY " << subset.order;
}

ResultSet compositionOf(Connection& connection, const CompositionSubset& subset, int year, const QVariant& choice,
                        double total) {
    const Sql key =
        choice.typeId() == QMetaType::QString ? Sql("") << choice.toString() : Sql("") << choice.toLongLong();
    // A species is summed by its number, then by its name, which two may share.
    return connection.query(Sql("SELECT ")
                            << kSpeciesName << " AS species, two_decimals(sum(part)) AS kg, two_decimals("
                            << "two_decimals(sum(part)) * 100 / " << total
                            << ") AS share FROM (SELECT spid, sum(group_composition.estotal) AS part FROM fishoperation"
                            << subset.joins << " INNER JOIN group_composition ON group_composition.optid = "
                            << "fishoperation.optid WHERE " << ofYear(year) << " AND " << subset.key << " = " << key
                            << " GROUP BY spid) INNER JOIN fish ON fish.fishno = spid GROUP BY 1 ORDER BY 1");
}

}  // namespace kelvora
