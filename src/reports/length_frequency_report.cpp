#include "reports/length_frequency_report.h"

using namespace Qt::StringLiterals;

namespace kelvora {

Sql lengthYears() {
    return Sql(
        "SELECT distinct year(fishoperation.optdate) as gyear FROM length INNER JOIN fishoperation ON length.optid = "
        "fishoperation.optid");
}

Sql lengthSpecies() {
    return Sql(
        "select  fishno,genus &  ' ' & fishname as sp  from fish where fishno <>  0 order by genus &  ' ' & fishname");
}

ResultSet lengthsByMonth(Connection& connection, int year, int fishno) {
    return connection.query(
        Sql("TRANSFORM sum( length_detail.frequency1) SELECT length_detail.lower1 as 'Lower', length_detail.upper1 as "
            "'Upper', length_detail.midlength1 as 'MidLength' FROM (length_detail INNER JOIN fishoperation ON "
            "length_detail.optid = fishoperation.optid) INNER JOIN fish ON length_detail.spid = fish.fishno Where "
            "(((Year(fishoperation.optdate) = ")
        << year << ")) And ((fish.fishno) = " << fishno
        << ")) GROUP BY length_detail.lower1, length_detail.upper1, length_detail.midlength1 ORDER BY "
           "format(optdate,'mmmm') DESC PIVOT format(optdate,'mmmm')");
}

CsvText lengthFrequencyCsv(int year, const QString& species, const QAbstractItemModel& grid, const QDate& today) {
    CsvText csv;
    csv.addLine(u"Length Frequency data In %1"_s.arg(year));
    csv.addLine(u"Species "_s + species);
    csv.addLine(exportDateLine(today));
    csv.addGrid(grid);
    return csv;
}

}  // namespace kelvora
