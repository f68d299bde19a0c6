#include "data/dialect.h"
#include "support/temporary_store.h"
#include "support/test_main.h"

#include <QTest>

using namespace Qt::StringLiterals;

namespace kelvora::test_dialect {

/// The program's statements on the data file's engine.
class TestDialect : public QObject {
    Q_OBJECT

    std::unique_ptr<test::TemporaryStore> m_store;

    /// A statement, and its rows joined by ";".
    static void row(const char* name, const Sql& sql, const char* rows) {
        QTest::newRow(name) << std::optional(sql) << QString::fromLatin1(rows);
    }
    /// In the order that a statement asks for, or else in that of its groups or distinct columns.
    static void addOrders() {
        row("of the groups", Sql("select portid, count(optid) from fishoperation group by portid;"), "1|2;2|2;3|2");
        row("of two groups", Sql("select genus from fish where fishno in (1, 4, 5) group by genus, fishno"),
            "aLosa;ALOSA;Rastrelliger");
        row("asked for", Sql("select portid from fishoperation group by portid order by portid desc"), "3;2;1");
        row("not of a query within",
            Sql("select a from (select 2 as a union select 1) where a in (select portid from fishoperation group by "
                "portid) order by a"),
            "1;2");
        row("of distinct columns", Sql("SELECT DISTINCT (portid) ,lat_dec FROM fishoperation"), "1|12;2|12;3|12");
        row("of distinct months",
            Sql("select distinct format(optdate,'mmmm')as mn,format(optdate,'m') as m1 from fishoperation order by "
                "format(optdate,'m')"),
            "January|1;October|10;December|12;June|6");
    }
    static void addJoinedTexts() {
        row("nulls", Sql("select null & 'a' & null, length(null & null)"), "a|0");
        row("numbers", Sql("select gearid & '-' & guname from Fishing_gear where gearid=2"), "2-Gill net");
        row("a null column", Sql("select genus &  ' ' & fishname as sp  from fish where fishno = 6"), "Zeus ");
        row("brackets", Sql("select fish.[genus] & '[' & [fish].fishname & ']' from fish where fishno = 4"),
            "aLosa[b]");
        row("parentheses", Sql("select ('a' & 'b') & ('c' & ('d'))"), "abcd");
        row("calls", Sql("select format(1,'0.00') & upper('kg' & null) & 'x'"), "1.00KGx");
        row("inside a call", Sql("select length(genus & fishname) from fish where fishno = 4"), "6");
        row("quotes", Sql("select 'O''Hara' & '''' & ' & '"), "O'Hara' & ");
        row("compared as texts are", Sql("select fishno from fish where genus & ' ' & fishname = 'alosa B'"), "4;5");
        row("compared from the left", Sql("select fishno from fish where 'ZEUS ' = genus & ' ' & fishname"), "6");
        row("within in", Sql("select fishno from fish where (genus & fishname) in ('zeus')"), "6");
        row("grouped", Sql("select count(*) from fish group by genus & ' ' & fishname"), "2;1;1;1;1");
        row("ordered", Sql("select fishno from fish order by genus &  ' ' & fishname desc, fishno"), "6;2;1;3;4;5");
    }
    static void addYears() {
        row("the last year of all", Sql("select optid from fishoperation where year(optdate) = 9999"), "6");
        row("not a year", Sql("select count(*) from fishoperation where year(optdate) = 2004.5"), "0");
        row("another year", Sql("select count(*) from fishoperation where year(optdate) <> 2004"), "3");
        row("a column", Sql("select count(*) from fishoperation where year(optdate) = optid"), "0");
        row("as a value", Sql("SELECT distinct year(optdate)as gyear FROM fishoperation"), "2003;2004;2005;9999");
        row("years downwards", Sql("SELECT distinct year(optdate) as y from fishoperation order by year(optdate) desc"),
            "9999;2005;2004;2003");
        row("no date", Sql("select year(null), year('x'), month('2004-13-01')"), "null|null|null");
        row("dates that are none",
            Sql("select distinct year(d) as y from (select null as d union select 'x' union select '' union select "
                "'2004-02-03' union select '2004-12-31 00:00:00' union select '2005-01-01')"),
            "null;2004;2005");
        row("a time of day behind a date",
            Sql("select d, month(d) from (select '2004-12-31T23:00' as d union select '2005-01-01') where year(d) = "
                "2004"),
            "2004-12-31T23:00|12");
    }
    /// Lists of what was sampled: looked up, whatever the statement says about tables whose rows are not shown.
    static void addSampled() {
        const Sql join(
            " FROM group_composition INNER JOIN fishoperation ON group_composition.optid = fishoperation.optid");
        const Sql nested(
            " FROM (group_composition INNER JOIN fishoperation ON group_composition.optid=fishoperation.optid) INNER"
            " JOIN samplingport ON fishoperation.portid=samplingport.samplingid WHERE (((year(optdate))=2004));");
        row("operations", Sql("SELECT DISTINCT fishoperation.optid") << join, "1;4;6");
        row("years", Sql("SELECT DISTINCT year(optdate) as y") << join << " order by year( optdate);", "2004;9999");
        row("years in parentheses", Sql("SELECT distinct( year(fishoperation.optdate)) as y") << join, "2004;9999");
        row("one year", Sql("SELECT DISTINCT year(optdate)") << join << " where year(optdate) = 9999", "9999");
        row("choices", Sql("SELECT DISTINCT samplingname") << nested, "Bex");
        row("one condition or another",
            Sql("SELECT DISTINCT fishoperation.optid") << join << " where lat_dec = 12 or lat_dec = 13", "1;4;6");
        row("a column of the joined table", Sql("SELECT DISTINCT spid") << join, "1;2;3;4;5;6;99");
        row("a condition on the joined table",
            Sql("SELECT DISTINCT portid") << join << " where group_composition.spid = 3", "2");
        row("two conditions to the join", Sql("SELECT DISTINCT portid") << join << " and spid = 3", "2");
    }
    /// Weights by the name of the species, also when two species have one name, or a species is not stored any more.
    static void addSums() {
        const Sql from(
            " FROM (group_composition INNER JOIN fishoperation ON group_composition.optid = fishoperation.optid) INNER"
            " JOIN fish ON group_composition.spid = fish.fishno where year(optdate) = 9999 GROUP BY fish.genus & ' ' &"
            " fish.fishname");
        const Sql rounded(
            "SELECT format(Sum(group_composition.estotal),'#0.00') as s, format((format(Sum("
            "group_composition.estotal),'#0.00')*100)/0.2,'#0.00')");
        row("in the order of the names", Sql(rounded) << from, "2.25|1125.00;7.00|3500.00;1.01|505.00;null|null");
        row("in an order asked for", Sql(rounded) << from << " ORDER BY  fish.genus & ' ' & fish.fishname desc;",
            "null|null;1.01|505.00;7.00|3500.00;2.25|1125.00");
        row("with the name", Sql("SELECT fish.fishname & '!' as n, Sum(group_composition.estotal) ") << from,
            "b!|2.25;kanagurta!|7;vittatus!|1.005;!|null");
        row("two sums", Sql("SELECT Sum(group_composition.estotal), sum(totalweight)") << from,
            "2.25|2;7|1;1.005|2;null|1");
        row("counted too", Sql("SELECT Sum(group_composition.estotal), count(*)") << from, "2.25|2;7|1;1.005|2;null|1");
    }
    static void addFormats() {
        row("numbers", Sql("select format(1.005,'#0.00'), format(1.1 + 2.2,'0.00'), Format(' 2.5','Fixed')"),
            "1.01|3.30|2.50");
        row("no numbers", Sql("select format(null,'#0.00'), format(5 / 0.0,'#0.00'), FORMAT(1,'other')"),
            "null|null|1");
        row("texts", Sql("select format('abc','#0.00'), length(format('','#0.00'))"), "abc|0");
        row("share of two decimals", Sql("select format((format(Sum(50.0),'#0.00')*100)/200,'#0.00')"), "25.00");
        row("months", Sql("select format('2004-03-05','mmmm'), format('2004-03-05','m'), month('2004-03-05')"),
            "March|3|3");
        row("no month", Sql("select format(null,'mmmm'), format('2004-02-30','mmmm'), format(3,'m')"),
            "null|February|null");
    }

private Q_SLOTS:
    void initTestCase() {
        m_store = std::make_unique<test::TemporaryStore>();
        m_store->addReferenceRows();
        m_store->execute("insert into fish(fishno, genus, fishname) values (4, 'aLosa', 'b'), (5, 'ALOSA', 'B')");
        m_store->execute("insert into fish(fishno, genus) values (6, 'Zeus')");
        int optid = 0;
        for (const char* day : {"2004-12-31", "2003-12-31", "2005-01-01", "2004-01-01", "2004-10-09", "9999-06-01"}) {
            ++optid;
            m_store->addOperation(optid, 1 + optid % 3, QString::fromLatin1(day), 1 + optid % 3, 100.0 * optid,
                                  u"Sea Star"_s, u"A1"_s);
        }
        m_store->execute(
            "insert into group_composition values (1, 1, 1, 5, 5), (1, 2, 2, 5, 5), (4, 3, 3, 5, 5), (6, 4, 1, 1, "
            "0.25),"
            " (6, 5, 1, 1, 2), (6, 1, 2, 1, 7), (6, 99, 1, 1, 8), (6, 6, 3, 1, null), (6, 2, 1, 1, 0.005),"
            " (6, 2, 2, 1, 1)");
    }
    void cleanupTestCase() { m_store.reset(); }

    void statements_data() {
        QTest::addColumn<std::optional<Sql>>("sql");
        QTest::addColumn<QString>("rows");
        addOrders();
        addJoinedTexts();
        addYears();
        addSampled();
        addSums();
        addFormats();
    }
    void statements() {
        QFETCH(std::optional<Sql>, sql);
        QTEST(m_store->rows(*sql).join(u';'), "rows");
    }

    /// However a statement asks for the operations of a year: they are looked up by their dates.
    void operationsOfAYear() {
        struct Condition {
            Literal before, behind;
        };
        const std::vector<Condition> conditions = {
            {"where year(optdate) =", ""},
            {" Where Year( optdate ) = ", ";"},
            {" WHERE (((year(fishoperation.optdate))=", "))"},
            {" Where (((Year([fishoperation].[optdate])) = ", ") And ((fishoperation.lat_dec) = 12));"},
            {" Where(((Year([fishoperation].[optdate])) = ", ") And ((fishoperation.lat_dec) = 12))"},
            {" WHERE (((Year([fishoperation].[optdate]))=", " ) AND ((fishoperation.interviewer)='Port Sampler'))"},
            {" Where (((Year(fishoperation.optdate) = ", ")) And ((fishoperation.lat_dec) = 12))"},
            {" Where Year(optdate) = ", " And lat_dec = 12 and fishingtime = 'Day'"},
            {" INNER JOIN vessel ON fishoperation.vesselid = vessel.vesselname where year(optdate) =",
             " group by vesselname, optid"},
        };
        for (const auto& [before, behind] : conditions) {
            const Sql sql = Sql("select optid from fishoperation ") << before << 2004 << behind;
            QStringList found = m_store->rows(sql);
            found.sort();
            QVERIFY2(found == QStringList({u"1"_s, u"4"_s, u"5"_s}), sql.prepared().c_str());
            const QString plan = m_store->rows(Sql("explain query plan ") << sql).join(u'\n');
            QVERIFY2(plan.contains(u"operation_by_date (optdate>? AND optdate<?)"), qPrintable(plan));
        }
    }
};

KELVORA_TEST(TestDialect, "dialect");

}  // namespace kelvora::test_dialect

#include "test_dialect.moc"
