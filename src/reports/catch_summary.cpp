#include "reports/catch_summary.h"

#include "data/numbers.h"
#include "reports/csv_export.h"
#include "reports/report_statements.h"

using namespace Qt::StringLiterals;

namespace kelvora {

const std::vector<CatchGrouping>& catchGroupings() {
    const QString state = u"State"_s, port = u"Sampling Port"_s, vessel = u"Vessel name"_s,
                  method = u"Fishing Method"_s, gear = u"Fishing Gear"_s, month = u"Month"_s, area = u"Fishing Area"_s,
                  kg = u"Total Catch(kg.)"_s;
    constexpr Literal all = "*";
    constexpr Literal withPort = "fishoperation.portid";
    static const std::vector<CatchGrouping> groupings = {
        {u"By State"_s, state, state, state, "statename", "statename", kWithPort, all, u"Total catch(kg.)"_s},
        {u"By Sampling Port"_s, port, port, port, "samplingname", "samplingname", kWithPort, all, kg},
        {u"By Vessel"_s, vessel, u"Vessel Name"_s, vessel, "vesselname", "vesselname", kWithVessel, all, kg},
        {u"By Fishing Method"_s, u"Fishing gear and method"_s, method, method, kMethodName, "guname, methodname",
         kWithMethod, withPort, kg},
        {u"By Fishing Gear"_s, gear, gear, gear, "guname", "guname", kWithMethod, withPort, kg},
        {u"By Month"_s, month, month, month, "month_name(optdate)", "month_number(optdate)", "", withPort, kg},
        {u"By Fishing Area"_s, u"Area"_s, area, area, "aname", "aname", kWithArea, all, kg},
    };
    return groupings;
}

Sql catchYears() {
    return yearsOf("1");
}

ResultSet catchTotals(Connection& connection, int year) {
    return connection.query(Sql("SELECT count(optid) AS totalc, sum(estotal) AS totals FROM fishoperation WHERE ")
                            << ofYear(year));
}

ResultSet catchByGroup(Connection& connection, const CatchGrouping& grouping, int year, double total) {
    return connection.query(Sql("SELECT ")
                            << grouping.name << " AS name, count(" << grouping.counted
                            << ") AS operations, sum(fishoperation.estotal) AS kg, two_decimals(sum("
                            << "fishoperation.estotal) * 100 / " << total << ") AS share FROM fishoperation"
                            << grouping.joins << " WHERE " << ofYear(year) << " GROUP BY " << grouping.groups
                            << " ORDER BY " << grouping.groups);
}

QStringList catchSummaryCsv(Connection& connection, const CatchGrouping& grouping, int year, const QString& total,
                            const QDate& today) {
    const ResultModel groups(catchByGroup(connection, grouping, year, leadingNumber(total)));
    if (groups.rowCount() == 0) {
        return {};
    }
    return QStringList{u"Fishing Operation data In %1 By "_s.arg(year) + grouping.exportWord,
                       u"Total catch of this year is "_s + total + u"kg."_s, exportDateLine(today), QString(),
                       grouping.exportWord + u",Number(Record),Total Catch(kg.),%total catch"_s} +
           csvRows(groups);
}

}  // namespace kelvora
