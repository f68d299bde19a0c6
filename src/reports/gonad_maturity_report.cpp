#include "reports/gonad_maturity_report.h"

#include <array>

using namespace Qt::StringLiterals;

namespace kelvora {
namespace {

constexpr std::array<Literal, 3> kOfSex{")) and sex = 'Female'", ")) and sex = 'Male'", ")) and sex = 'None'"};

}  // namespace

Sql gonadYears() {
    return Sql(
        "SELECT distinct year(fishoperation.optdate) as gyear FROM gonad_detail INNER JOIN fishoperation ON "
        "gonad_detail.optid = fishoperation.optid");
}

Sql gonadSpecies() {
    return Sql("select  fishno,genus &  ' ' & fishname as sp  from fish where fishno <> 0 order by sp");
}

ResultSet sexesByMonth(Connection& connection, int year, int fishno) {
    return connection.query(
        Sql("TRANSFORM count(gonad_detail.sex) SELECT format(optdate,'mmmm') FROM (gonad_detail INNER JOIN "
            "fishoperation ON gonad_detail.optid=fishoperation.optid) INNER JOIN fish ON "
            "gonad_detail.spid=fish.fishno Where Year(optdate) = ")
        << year << " And spid = " << fishno
        << " GROUP BY format(optdate,'mmmm') order by  format(optdate,'mmmm') PIVOT sex;");
}

ResultSet stagesByMonth(Connection& connection, int year, int fishno, Sex sex) {
    Sql sql = Sql("TRANSFORM Count(gonad_detail.stage) AS CountOfstage SELECT Format(optdate,'mmmm') AS Expr1 FROM "
                  "gonad_stage INNER JOIN ((gonad_detail INNER JOIN fishoperation ON gonad_detail.optid = "
                  "fishoperation.optid) INNER JOIN fish ON gonad_detail.spid = fish.fishno) ON gonad_stage.stageid = "
                  "gonad_detail.stage Where (((Year([optdate])) = ")
              << year << ") And ((gonad_detail.spid) = " << fishno;
    sql = sql << kOfSex.at(static_cast<std::size_t>(sex))
              << " GROUP BY Format(optdate,'mmmm') ORDER BY Format(optdate,'mmmm')";
    if (sex == Sex::Female) {
        sql = sql << " DESC";
    }
    return connection.query(sql << " PIVOT gonad_detail.stage & '-' &  stagename");
}

CsvText gonadMaturityCsv(int year, const QString& species, const QAbstractItemModel& sexes, const QDate& today) {
    CsvText csv;
    csv.addLine(u"Gonad Maturity data In %1"_s.arg(year));
    csv.addLine(u"Species "_s + species);
    csv.addLine(exportDateLine(today));
    csv.addGrid(sexes);
    return csv;
}

}  // namespace kelvora
