#include "reports/catch_summary.h"

#include "data/dates.h"
#include "data/numbers.h"

using namespace Qt::StringLiterals;

namespace kelvora {
namespace {

constexpr Literal kFromPorts =
    " FROM fishoperation INNER JOIN (state INNER JOIN samplingport ON state.stateid = samplingport.stateid) ON "
    "fishoperation.portid = samplingport.samplingid where year(optdate) = ";
constexpr Literal kFromMethods =
    " FROM fishoperation INNER JOIN (Fishing_method INNER JOIN Fishing_gear ON Fishing_method.gearid = "
    "Fishing_gear.gearid) ON fishoperation.fishing_method = Fishing_method.methodid Where Year(optdate) = ";

CatchGrouping byState() {
    return {.option = u"By State"_s,
            .header = u"State"_s,
            .catchHeader = u"Total catch(kg.)"_s,
            .word = u"State"_s,
            .exportWord = u"State"_s,
            .select =
                "SELECT state.statename, count(fishoperation.optid),sum(estotal),"
                "format((sum( fishoperation.estotal)*100)/",
            .selectExported =
                "SELECT state.statename as c1, count(fishoperation.optid) as c2,sum(estotal) as c3,"
                "format((sum( fishoperation.estotal)*100)/",
            .from = kFromPorts,
            .groupBy = " group by state.statename",
            .groupByExported = " group by state.statename"};
}

CatchGrouping bySamplingPort() {
    return {.option = u"By Sampling Port"_s,
            .header = u"Sampling Port"_s,
            .catchHeader = u"Total Catch(kg.)"_s,
            .word = u"Sampling Port"_s,
            .exportWord = u"Sampling Port"_s,
            .select =
                "SELECT samplingname, count(fishoperation.optid),sum(estotal),"
                "format((sum( fishoperation.estotal)*100)/",
            .selectExported =
                "SELECT samplingname as c1, count(fishoperation.optid)as c2,sum(estotal) as c3,"
                "format((sum( fishoperation.estotal)*100)/",
            .from = kFromPorts,
            .groupBy = " group by samplingname",
            .groupByExported = " group by samplingname"};
}

CatchGrouping byVessel() {
    return {.option = u"By Vessel"_s,
            .header = u"Vessel name"_s,
            .catchHeader = u"Total Catch(kg.)"_s,
            .word = u"Vessel Name"_s,
            .exportWord = u"Vessel name"_s,
            .select =
                "SELECT vessel.vesselname, count(fishoperation.optid),sum( fishoperation.estotal),"
                "format((sum( fishoperation.estotal)*100)/",
            .selectExported =
                "SELECT vessel.vesselname as c1, count(fishoperation.optid) as c2,"
                "sum( fishoperation.estotal) as c3,format((sum( fishoperation.estotal)*100)/",
            .from =
                " FROM fishoperation INNER JOIN vessel ON fishoperation.vesselid = vessel.vesselname "
                "where year(optdate) = ",
            .groupBy = " group by vesselname",
            .groupByExported = " group by vesselname"};
}

CatchGrouping byFishingMethod() {
    return {.option = u"By Fishing Method"_s,
            .header = u"Fishing gear and method"_s,
            .catchHeader = u"Total Catch(kg.)"_s,
            .word = u"Fishing Method"_s,
            .exportWord = u"Fishing Method"_s,
            .select =
                "SELECT Fishing_gear.guname & '[' & Fishing_method.methodname & ']',"
                "count( fishoperation.portid),sum( fishoperation.estotal),"
                "format((sum( fishoperation.estotal)*100)/",
            .selectExported =
                "SELECT Fishing_gear.guname & '[' & Fishing_method.methodname & ']' as c1,"
                "count( fishoperation.portid) as c2,sum( fishoperation.estotal) as c3,"
                "format((sum( fishoperation.estotal)*100)/",
            .from = kFromMethods,
            .groupBy = " group by Fishing_gear.guname, Fishing_method.methodname",
            .groupByExported = " group by Fishing_gear.guname, Fishing_method.methodname"};
}

CatchGrouping byFishingGear() {
    return {.option = u"By Fishing Gear"_s,
            .header = u"Fishing Gear"_s,
            .catchHeader = u"Total Catch(kg.)"_s,
            .word = u"Fishing Gear"_s,
            .exportWord = u"Fishing Gear"_s,
            .select =
                "SELECT Fishing_gear.guname,count( fishoperation.portid),sum( fishoperation.estotal),"
                "format((sum( fishoperation.estotal)*100)/",
            .selectExported =
                "SELECT Fishing_gear.guname as c1,count( fishoperation.portid) as c2,"
                "sum( fishoperation.estotal) as c3,format((sum( fishoperation.estotal)*100)/",
            .from = kFromMethods,
            .groupBy = " group by Fishing_gear.guname",
            .groupByExported = " group by Fishing_gear.guname"};
}

CatchGrouping byMonth() {
    return {.option = u"By Month"_s,
            .header = u"Month"_s,
            .catchHeader = u"Total Catch(kg.)"_s,
            .word = u"Month"_s,
            .exportWord = u"Month"_s,
            .select =
                "SELECT month(fishoperation.optdate), count( fishoperation.portid),"
                "sum(fishoperation.estotal),format((sum( fishoperation.estotal)*100)/",
            .selectExported =
                "SELECT month(fishoperation.optdate) as c1, count( fishoperation.portid) as c2,"
                "sum(fishoperation.estotal) as c3,format((sum( fishoperation.estotal)*100)/",
            .from = " From fishoperation Where Year(optdate) = ",
            .groupBy = " GROUP BY month(fishoperation.optdate);",
            .groupByExported = " GROUP BY month(fishoperation.optdate)",
            .byMonth = true};
}

CatchGrouping byFishingArea() {
    return {.option = u"By Fishing Area"_s,
            .header = u"Area"_s,
            .catchHeader = u"Total Catch(kg.)"_s,
            .word = u"Fishing Area"_s,
            .exportWord = u"Fishing Area"_s,
            .select =
                "SELECT fishing_area.aname, count(fishoperation.optid),sum( fishoperation.estotal),"
                "format((sum( fishoperation.estotal)*100)/",
            .selectExported =
                "SELECT fishing_area.aname as c1, count(fishoperation.optid) as c2,"
                "sum( fishoperation.estotal) as c3,format((sum( fishoperation.estotal)*100)/",
            .from =
                " FROM fishoperation INNER JOIN fishing_area ON fishoperation.areaid = fishing_area.aname "
                "where year(optdate) = ",
            .groupBy = " group by aname",
            .groupByExported = " group by aname"};
}

/// The rows of a grouping's query, its months named.
ResultSet named(ResultSet groups, const CatchGrouping& grouping) {
    if (grouping.byMonth) {
        for (auto& row : groups.rows) {
            row.front() = monthName(row.front().toInt());
        }
    }
    return groups;
}

}  // namespace

const std::vector<CatchGrouping>& catchGroupings() {
    static const std::vector<CatchGrouping> all = {byState(),       bySamplingPort(), byVessel(),     byFishingMethod(),
                                                   byFishingGear(), byMonth(),        byFishingArea()};
    return all;
}

Sql catchYears() {
    return Sql(
        "SELECT distinct year( fishoperation.optdate)as gyear FROM fishoperation order by "
        "year(fishoperation.optdate)");
}

ResultSet catchTotals(Connection& connection, int year) {
    return connection.query(Sql("SELECT count(fishoperation.optid) as totalc,sum( fishoperation.estotal) as totals"
                                " FROM fishoperation where year(optdate) =")
                            << year);
}

ResultSet catchByGroup(Connection& connection, const CatchGrouping& grouping, int year, double total) {
    const Sql sql = Sql(grouping.select) << total << ",'#0.00')" << grouping.from << year << grouping.groupBy;
    return named(connection.query(sql), grouping);
}

CsvText catchSummaryCsv(Connection& connection, const CatchGrouping& grouping, int year, const QString& total,
                        const QDate& today) {
    const Sql sql = Sql(grouping.selectExported)
                    << leadingNumber(total) << ",'#0.00') as c4" << grouping.from << year << grouping.groupByExported;
    const ResultSet groups = named(connection.query(sql), grouping);
    CsvText csv;
    if (groups.isEmpty()) {
        return csv;
    }
    csv.addLine(u"Fishing Operation data In %1 By "_s.arg(year) + grouping.exportWord);
    csv.addLine(u"Total catch of this year is "_s + total + u"kg."_s);
    csv.addLine(exportDateLine(today));
    csv.addLine();
    csv.addLine(grouping.exportWord + u",Number(Record),Total Catch(kg.),%total catch"_s);
    for (int row = 0; row < groups.rowCount(); ++row) {
        csv.addValues(
            {groups.text(row, u"c1"), groups.text(row, u"c2"), groups.text(row, u"c3"), groups.text(row, u"c4")});
    }
    return csv;
}

}  // namespace kelvora
