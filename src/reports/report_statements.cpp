#include "reports/report_statements.h"

using namespace Qt::StringLiterals;

namespace kelvora {

Sql ofYear(int year) {
    const QString number = u"%1"_s.arg(year, 4, 10, QChar(u'0'));
    return Sql("fishoperation.optdate BETWEEN ") << number + u"-01-01"_s << " AND " << number + u"-12-31~"_s;
}

Sql yearsOf(Literal kind) {
    const Sql dated = Sql(" FROM fishoperation WHERE ") << kind << " AND optdate";
    // Behind a year follows the first date after its last day; behind a text that is no date, the next text.
    return Sql("WITH RECURSIVE sought(day) AS (SELECT (SELECT optdate")
           << dated << " >= '' ORDER BY optdate LIMIT 1) UNION ALL SELECT (SELECT optdate" << dated
           << " > CASE WHEN year_number(day) IS NULL THEN day ELSE substr(day, 1, 4) || '-12-31~' END"
              " ORDER BY optdate LIMIT 1) FROM sought WHERE day IS NOT NULL)"
              " SELECT DISTINCT year_number(day) AS gyear FROM (SELECT day FROM sought WHERE day IS NOT NULL"
              " UNION ALL SELECT NULL WHERE EXISTS (SELECT 1"
           << dated << " IS NULL)) "
           << "ORDER BY 1";
}

}  // namespace kelvora
