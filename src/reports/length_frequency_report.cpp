#include "reports/length_frequency_report.h"

#include "data/crosstab.h"
#include "reports/report_statements.h"

#include <algorithm>

namespace kelvora {

Sql lengthYears() {
    return yearsOf("EXISTS (SELECT 1 FROM length WHERE length.optid = fishoperation.optid)");
}

ResultSet lengthsByMonth(Connection& connection, int year, int fishno) {
    ResultSet table = crosstab(
        connection.query(Sql("SELECT lower1, upper1, midlength1, month_name(optdate), sum(frequency1) FROM "
                             "fishoperation INNER JOIN length_detail ON length_detail.optid = fishoperation.optid "
                             "INNER JOIN fish ON fish.fishno = length_detail.spid WHERE ")
                         << ofYear(year) << " AND fish.fishno = " << fishno
                         << " GROUP BY lower1, upper1, midlength1, month_number(optdate)"),
        kClassColumns);
    const auto monthsFromZToA = [](auto& cells) { std::reverse(cells.begin() + kClassColumns, cells.end()); };
    monthsFromZToA(table.columns);
    std::ranges::for_each(table.rows, monthsFromZToA);
    return table;
}

}  // namespace kelvora
