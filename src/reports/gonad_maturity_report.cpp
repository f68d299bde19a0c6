#include "reports/gonad_maturity_report.h"

#include "data/crosstab.h"
#include "reports/report_statements.h"

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace kelvora {

Sql gonadYears() {
    return yearsOf("EXISTS (SELECT 1 FROM gonad_detail WHERE gonad_detail.optid = fishoperation.optid)");
}

std::vector<ResultSet> gonadTables(Connection& connection, int year, int fishno) {
    // The fish are read once. Groups come as they were found, so that of the spellings of a sex the first one is shown.
    const ResultSet groups = connection.query(
        Sql("SELECT month_name(optdate), sex, stageid || '-' || ifnull(stagename,''), fish FROM (SELECT optdate, "
            "fishoperation.optid, samplingno, sex, stage, count(*) AS fish FROM fishoperation "
            "INNER JOIN gonad_detail ON gonad_detail.optid = fishoperation.optid "
            "INNER JOIN fish ON fish.fishno = gonad_detail.spid WHERE ")
        << ofYear(year) << " AND fish.fishno = " << fishno
        << " GROUP BY month_number(optdate), sex, stage) LEFT JOIN gonad_stage ON stageid = stage"
           " ORDER BY optdate, optid, samplingno");
    const std::array sexes{u"Female"_s, u"Male"_s, u"None"_s};
    std::vector<ResultSet> tables(1 + sexes.size(), {{u"Month"_s}, {}});
    for (const auto& row : groups.rows) {
        const QVariant &month = row[0], &sex = row[1], &stage = row[2], &fish = row[3];
        tables[0].rows.push_back({month, sex, sex.isValid() ? fish : QVariant()});
        for (std::size_t i = 1; stage.isValid() && i < tables.size(); ++i) {
            if (sameText(sex.toString(), sexes.at(i - 1))) {
                tables[i].rows.push_back({month, stage, fish});
            }
        }
    }
    std::ranges::transform(tables, tables.begin(), [](const ResultSet& found) { return crosstab(found, 1); });
    std::ranges::reverse(tables[1].rows);
    return tables;
}

}  // namespace kelvora
