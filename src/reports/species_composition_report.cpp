#include "reports/species_composition_report.h"

using namespace Qt::StringLiterals;

namespace kelvora {
namespace {

constexpr Literal kEndOfChoices = "));";
constexpr Literal kStateChoices =
    "SELECT DISTINCT (state.stateid) ,state.statename FROM (group_composition INNER JOIN fishoperation ON "
    "group_composition.optid=fishoperation.optid) INNER JOIN (samplingport INNER JOIN state ON "
    "samplingport.stateid=state.stateid) ON fishoperation.portid=samplingport.samplingid WHERE "
    "(((year(fishoperation.optdate))=";
constexpr Literal kPortChoices =
    "SELECT DISTINCT (samplingport.samplingid),samplingport.samplingname FROM (group_composition INNER JOIN "
    "fishoperation ON group_composition.optid=fishoperation.optid) INNER JOIN (samplingport INNER JOIN state ON "
    "samplingport.stateid=state.stateid) ON fishoperation.portid=samplingport.samplingid WHERE "
    "(((year(fishoperation.optdate))=";
constexpr Literal kVesselChoices =
    "SELECT DISTINCT (vessel.vesselid),vessel.vesselname FROM (group_composition INNER JOIN fishoperation ON "
    "group_composition.optid = fishoperation.optid) INNER JOIN vessel ON fishoperation.vesselid = vessel.vesselname "
    "WHERE (((Year([fishoperation].[optdate]))=";
constexpr Literal kMethodChoices =
    "SELECT DISTINCT Fishing_gear.guname & '[' & Fishing_method.methodname & ']' as gname,Fishing_method.methodid  "
    "FROM (group_composition INNER JOIN fishoperation ON group_composition.optid = fishoperation.optid) INNER JOIN "
    "(Fishing_method INNER JOIN Fishing_gear ON Fishing_method.gearid = Fishing_gear.gearid) ON "
    "fishoperation.fishing_method = Fishing_method.methodid WHERE (((Year([fishoperation].[optdate]))=";
constexpr Literal kGearChoices =
    "SELECT DISTINCT Fishing_gear.guname,Fishing_gear.gearid FROM (group_composition INNER JOIN fishoperation ON "
    "group_composition.optid = fishoperation.optid) INNER JOIN (Fishing_method INNER JOIN Fishing_gear ON "
    "Fishing_method.gearid = Fishing_gear.gearid) ON fishoperation.fishing_method = Fishing_method.methodid WHERE "
    "(((Year([fishoperation].[optdate]))=";
constexpr Literal kMonthChoices =
    "SELECT DISTINCT format(optdate,'mmmm')as mn,format(optdate,'m') as m1 FROM group_composition INNER JOIN "
    "fishoperation ON group_composition.optid = fishoperation.optid WHERE (((Year([fishoperation].[optdate]))=";
constexpr Literal kAreaChoices =
    "SELECT DISTINCT areaid FROM group_composition INNER JOIN fishoperation ON group_composition.optid = "
    "fishoperation.optid WHERE (((Year([fishoperation].[optdate]))=";

constexpr Literal kStateSelect =
    "SELECT fish.genus & ' ' & fish.fishname , format(Sum(group_composition.estotal),'#0.00') AS "
    "SumOfestotal,format((format(Sum(group_composition.estotal),'#0.00')*100)/";
constexpr Literal kPortSelect =
    "SELECT fish.genus & ' ' & fish.fishname ,  format(Sum(group_composition.estotal),'#0.00') AS "
    "SumOfestotal,format((format(Sum(group_composition.estotal),'#0.00')*100)/";
constexpr Literal kVesselSelect =
    "SELECT  fish.genus & ' ' & fish.fishname AS Expr1, Format(Sum(group_composition.estotal),'Fixed') AS "
    "SumOfestotal,format((format(Sum(group_composition.estotal),'#0.00')*100)/";
constexpr Literal kGearSelect =
    "SELECT fish.genus & ' ' & fish.fishname  AS Expr1, Format(Sum(group_composition.estotal),'Fixed') AS "
    "SumOfestotal,format((format(Sum(group_composition.estotal),'#0.00')*100)/";
constexpr Literal kSelect =
    "SELECT fish.genus & ' ' & fish.fishname AS Expr1, Format(Sum(group_composition.estotal),'Fixed') AS "
    "SumOfestotal,format((format(Sum(group_composition.estotal),'#0.00')*100)/";

constexpr Literal kFromPorts =
    " FROM ((group_composition INNER JOIN fishoperation ON group_composition.optid = fishoperation.optid) INNER JOIN "
    "(samplingport INNER JOIN state ON samplingport.stateid = state.stateid) ON fishoperation.portid = "
    "samplingport.samplingid) INNER JOIN fish ON group_composition.spid = fish.fishno";
constexpr Literal kFromVessels =
    " FROM ((group_composition INNER JOIN fishoperation ON group_composition.optid = fishoperation.optid) INNER JOIN "
    "fish ON group_composition.spid = fish.fishno) INNER JOIN vessel ON fishoperation.vesselid = vessel.vesselname";
constexpr Literal kFromMethods =
    " FROM ((group_composition INNER JOIN fishoperation ON group_composition.optid = fishoperation.optid) INNER JOIN "
    "fish ON group_composition.spid = fish.fishno) INNER JOIN (Fishing_method INNER JOIN Fishing_gear ON "
    "Fishing_method.gearid = Fishing_gear.gearid) ON fishoperation.fishing_method = Fishing_method.methodid";
constexpr Literal kFromOperations =
    " FROM (group_composition INNER JOIN fishoperation ON group_composition.optid = fishoperation.optid) INNER JOIN "
    "fish ON group_composition.spid = fish.fishno";
constexpr Literal kFromAreas =
    " FROM ((group_composition INNER JOIN fishoperation ON group_composition.optid = fishoperation.optid) INNER JOIN "
    "fish ON group_composition.spid = fish.fishno) INNER JOIN fishing_area ON fishoperation.areaid = "
    "fishing_area.aname";

constexpr Literal kWhere = " Where (((Year([fishoperation].[optdate])) = ";
constexpr Literal kOrderBy = " ORDER BY fish.genus & ' ' & fish.fishname";

CompositionSubset byState() {
    return {.option = u"By state"_s,
            .choices = kStateChoices,
            .afterYear = ")) ORDER BY state.statename",
            .shown = u"statename"_s,
            .key = u"stateid"_s,
            .textKey = false,
            .select = kStateSelect,
            .from = kFromPorts,
            .where = kWhere,
            .beforeChoice = ") And ((state.stateid) = ",
            .afterChoice = "))",
            .orderBy = kOrderBy};
}

CompositionSubset bySamplingPort() {
    return {.option = u"By sampling Port"_s,
            .choices = kPortChoices,
            .afterYear = ")) ORDER BY samplingport.samplingname",
            .shown = u"samplingname"_s,
            .key = u"samplingid"_s,
            .textKey = false,
            .select = kPortSelect,
            .from = kFromPorts,
            .where = kWhere,
            .beforeChoice = ") And ((fishoperation.portid) = ",
            .afterChoice = "))",
            .orderBy = kOrderBy};
}

CompositionSubset byVessel() {
    return {.option = u"By Fishing Vessel"_s,
            .choices = kVesselChoices,
            .afterYear = ")) ORDER BY vessel.vesselname",
            .shown = u"vesselname"_s,
            .key = u"vesselname"_s,
            .textKey = true,
            .select = kVesselSelect,
            .from = kFromVessels,
            .where = kWhere,
            .beforeChoice = ") And ((fishoperation.vesselid) = ",
            .afterChoice = "))",
            .orderBy = kOrderBy};
}

CompositionSubset byFishingMethod() {
    return {.option = u"By Fishing Method"_s,
            .choices = kMethodChoices,
            .afterYear = kEndOfChoices,
            .shown = u"gname"_s,
            .key = u"methodid"_s,
            .textKey = false,
            .select = kSelect,
            .from = kFromMethods,
            .where = " Where(((Year([fishoperation].[optdate])) = ",
            .beforeChoice = ") And ((fishoperation.fishing_method) = ",
            .afterChoice = "))",
            .orderBy = kOrderBy};
}

CompositionSubset byFishingGear() {
    return {.option = u"By Fishing Gear"_s,
            .choices = kGearChoices,
            .afterYear = kEndOfChoices,
            .shown = u"guname"_s,
            .key = u"gearid"_s,
            .textKey = false,
            .select = kGearSelect,
            .from = kFromMethods,
            .where = kWhere,
            .beforeChoice = ") And ((Fishing_gear.gearid) = ",
            .afterChoice = "))",
            .orderBy = " ORDER BY  fish.genus & ' ' & fish.fishname"};
}

/// Its choices come by the number of the month as text: October to December behind January.
CompositionSubset byMonth() {
    return {.option = u"By Month"_s,
            .choices = kMonthChoices,
            .afterYear = ")) order by format(optdate,'m');",
            .shown = u"mn"_s,
            .key = u"m1"_s,
            .textKey = false,
            .select = kSelect,
            .from = kFromOperations,
            .where = kWhere,
            .beforeChoice = ") And ((Month(fishoperation.optdate) = ",
            .afterChoice = ")))",
            .orderBy = " ORDER BY fish.genus & ' ' & fish.fishname;"};
}

CompositionSubset byFishingArea() {
    return {.option = u"By Fishing Area"_s,
            .choices = kAreaChoices,
            .afterYear = kEndOfChoices,
            .shown = u"areaid"_s,
            .key = u"areaid"_s,
            .textKey = true,
            .select = kSelect,
            .from = kFromAreas,
            .where = " WHERE (((Year([fishoperation].[optdate]))=",
            .beforeChoice = " ) AND ((fishing_area.aname)=",
            .afterChoice = "))",
            .orderBy = kOrderBy};
}

}  // namespace

const std::vector<CompositionSubset>& compositionSubsets() {
    static const std::vector<CompositionSubset> all = {
        byState(), bySamplingPort(), byVessel(), byFishingMethod(), byFishingGear(), byMonth(), byFishingArea()};
    return all;
}

Sql compositionYears() {
    return Sql(
        "SELECT distinct( year(fishoperation.optdate)) as gyear FROM group_composition INNER JOIN fishoperation ON "
        "group_composition.optid = fishoperation.optid");
}

bool hasComposition(Connection& connection, int year) {
    const Sql sql = Sql("SELECT DISTINCT Year(fishoperation.optdate) FROM group_composition INNER JOIN fishoperation "
                        "ON group_composition.optid = fishoperation.optid Where Year(fishoperation.optdate) = ")
                    << year;
    return !connection.query(sql).isEmpty();
}

QString compositionTotal(Connection& connection, int year) {
    const Sql sql = Sql("SELECT Format(Sum(group_composition.estotal),'Fixed') AS SumOfestotal FROM (group_composition "
                        "INNER JOIN fishoperation ON group_composition.optid = fishoperation.optid) INNER JOIN fish ON "
                        "group_composition.spid = fish.fishno Where Year(fishoperation.optdate) = ")
                    << year;
    return connection.query(sql).text(0, u"SumOfestotal");
}

Sql compositionChoices(const CompositionSubset& subset, int year) {
    return Sql(subset.choices) << year << subset.afterYear;
}

ResultSet compositionOf(Connection& connection, const CompositionSubset& subset, int year, const QVariant& choice,
                        double total) {
    Sql sql = Sql(subset.select) << total << ",'#0.00')" << subset.from << subset.where << year << subset.beforeChoice;
    sql = subset.textKey ? sql << choice.toString() : sql << choice.toLongLong();
    return connection.query(sql << subset.afterChoice << " GROUP BY fish.genus & ' ' & fish.fishname"
                                << subset.orderBy);
}

CsvText compositionCsv(int year, const QString& selection, const QAbstractItemModel& grid, const QDate& today) {
    CsvText csv;
    csv.addLine(u"Species composition data In %1"_s.arg(year));
    csv.addLine(exportDateLine(today));
    if (!selection.isEmpty()) {
        csv.addLine(selection);
    }
    csv.addGrid(grid);
    return csv;
}

}  // namespace kelvora
