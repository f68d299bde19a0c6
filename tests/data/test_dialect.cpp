#include "data/dialect.h"
#include "support/temporary_store.h"
#include "support/test_main.h"

#include <QLocale>
#include <QTest>

namespace kelvora::test_dialect {

using Statement = std::optional<Sql>;

/// The program's statements on the data file's engine.
class TestDialect : public QObject {
    Q_OBJECT

    std::unique_ptr<test::TemporaryStore> m_store;

    static void newRow(const char* name, const Sql& sql, const QStringList& rows) {
        QTest::newRow(name) << Statement(sql) << rows;
    }
    static void addColumns() {
        QTest::addColumn<Statement>("sql");
        QTest::addColumn<QStringList>("rows");
    }
    void compareRows() {
        QFETCH(Statement, sql);
        QTEST(m_store->rows(*sql), "rows");
    }
    QString plan(const Sql& sql) { return m_store->rows(Sql("explain query plan ") << sql).join(u'\n'); }

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
                                  QStringLiteral("Sea Star"), QStringLiteral("A1"));
        }
    }
    void cleanupTestCase() { m_store.reset(); }

    void columnsOfNestedJoinsKeepTheirNames() {
        const ResultSet ports = m_store->db().query(Sql(
            "SELECT DISTINCT (state.stateid) ,state.statename FROM fishoperation INNER JOIN (samplingport INNER JOIN"
            " state ON samplingport.stateid=state.stateid) ON fishoperation.portid=samplingport.samplingid"));
        QCOMPARE(ports.columns, (std::vector<QString>{QStringLiteral("stateid"), QStringLiteral("statename")}));
    }

    void joinedTexts_data() {
        addColumns();
        newRow("nulls", Sql("select null & 'a' & null"), {QStringLiteral("a")});
        newRow("only nulls", Sql("select null & null"), {QString()});
        newRow("numbers", Sql("select gearid & '-' & guname from Fishing_gear where gearid=2"), {u"2-Gill net"_qs});
        newRow("a null column", Sql("select genus &  ' ' & fishname as sp  from fish where fishno = 6"), {u"Zeus "_qs});
        newRow("brackets", Sql("select fish.[genus] & '[' & [fish].fishname & ']' from fish where fishno = 4"),
               {u"aLosa[b]"_qs});
        newRow("parentheses", Sql("select ('a' & 'b') & ('c' & ('d'))"), {u"abcd"_qs});
        newRow("calls", Sql("select format(1,'0.00') & upper('kg' & null) & 'x'"), {u"1.00KGx"_qs});
        newRow("inside a call", Sql("select length(genus & fishname) from fish where fishno = 4"), {u"6"_qs});
        newRow("quotes", Sql("select 'O''Hara' & '''' & ' & '"), {u"O'Hara' & "_qs});
        newRow("compared as texts are", Sql("select fishno from fish where genus & ' ' & fishname = 'alosa B'"),
               {u"4"_qs, u"5"_qs});
        newRow("compared from the left", Sql("select fishno from fish where 'ZEUS ' = genus & ' ' & fishname"),
               {u"6"_qs});
        newRow("within in", Sql("select fishno from fish where (genus & fishname) in ('zeus')"), {u"6"_qs});
        newRow("grouped", Sql("select count(*) from fish group by genus & ' ' & fishname"),
               {u"2"_qs, u"1"_qs, u"1"_qs, u"1"_qs, u"1"_qs});
        newRow("ordered", Sql("select fishno from fish order by genus &  ' ' & fishname desc, fishno"),
               {u"6"_qs, u"2"_qs, u"1"_qs, u"3"_qs, u"4"_qs, u"5"_qs});
    }
    void joinedTexts() { compareRows(); }

    void year_data() {
        QTest::addColumn<Statement>("where");
        const auto row = [](const char* name, const Sql& where) { QTest::newRow(name) << Statement(where); };
        row("no blank", Sql("where year(optdate) =") << 2004);
        row("blanks", Sql(" Where Year( optdate ) = ") << 2004 << ";");
        row("with table", Sql(" Where Year(fishoperation.optdate) = ") << 2004);
        row("three parentheses", Sql(" WHERE (((year(fishoperation.optdate))=") << 2004 << "))");
        row("brackets", Sql(" WHERE (((Year([fishoperation].[optdate]))=") << 2004 << "));");
        row("and a key", Sql(" Where (((Year([fishoperation].[optdate])) = ")
                             << 2004 << ") And ((fishoperation.lat_dec) = 12))");
        row("without a blank behind where", Sql(" Where(((Year([fishoperation].[optdate])) = ")
                                                << 2004 << ") And ((fishoperation.lat_dec) = 12))");
        row("a blank behind", Sql(" WHERE (((Year([fishoperation].[optdate]))=")
                                  << 2004 << " ) AND ((fishoperation.interviewer)='Port Sampler'))");
        row("equality in parentheses", Sql(" Where (((Year(fishoperation.optdate) = ")
                                           << 2004 << ")) And ((fishoperation.lat_dec) = 12))");
        row("and without parentheses", Sql(" Where Year(optdate) = ") << 2004 << " And lat_dec = 12");
        row("and a text", Sql(" Where (((Year([optdate])) = ")
                              << 2004 << ") And ((fishoperation.lat_dec) = 12)) and fishingtime = 'Day'");
    }
    void year() {
        QFETCH(Statement, where);
        const Sql sql = Sql("select optid from fishoperation ") << *where;
        QStringList found = m_store->rows(sql);
        found.sort();
        QCOMPARE(found, QStringList({u"1"_qs, u"4"_qs, u"5"_qs}));
        QVERIFY2(plan(sql).contains(u"operation_by_date (optdate>? AND optdate<?)"), qPrintable(plan(sql)));
    }

    void yearlyReportsUseTheDateIndex() {
        const Sql where = Sql("where year(optdate) =") << 2004;
        for (const Sql& sql : {Sql("SELECT count(fishoperation.optid) as totalc,sum( fishoperation.estotal) as totals"
                                   " FROM fishoperation ")
                                   << where,
                               Sql("SELECT month(fishoperation.optdate), count( fishoperation.portid) From"
                                   " fishoperation ")
                                   << where << " GROUP BY month(fishoperation.optdate);",
                               Sql("SELECT vessel.vesselname, count(fishoperation.optid) FROM fishoperation INNER JOIN"
                                   " vessel ON fishoperation.vesselid = vessel.vesselname ")
                                   << where << " group by vesselname"}) {
            QVERIFY2(plan(sql).contains(u"operation_by_date"), qPrintable(plan(sql)));
        }
    }

    void otherYears_data() {
        addColumns();
        newRow("the last year of all", Sql("select optid from fishoperation where year(optdate) = 9999"), {u"6"_qs});
        newRow("not a year", Sql("select count(*) from fishoperation where year(optdate) = 2004.5"), {u"0"_qs});
        newRow("another year", Sql("select count(*) from fishoperation where year(optdate) <> 2004"), {u"3"_qs});
        newRow("a column", Sql("select count(*) from fishoperation where year(optdate) = optid"), {u"0"_qs});
        newRow("as a value", Sql("SELECT distinct year(optdate)as gyear FROM fishoperation"),
               {u"2003"_qs, u"2004"_qs, u"2005"_qs, u"9999"_qs});
        newRow("no date", Sql("select year(null), year('x'), month('2004-13-01')"), {u"null|null|null"_qs});
    }
    void otherYears() { compareRows(); }

    void order_data() {
        addColumns();
        newRow("of the groups", Sql("select portid, count(optid) from fishoperation group by portid;"),
               {u"1|2"_qs, u"2|2"_qs, u"3|2"_qs});
        newRow("of two groups", Sql("select genus, family from fish where fishno in (1, 4, 5) group by genus, fishno"),
               {u"aLosa|null"_qs, u"ALOSA|null"_qs, u"Rastrelliger|Scombridae"_qs});
        newRow("asked for", Sql("select portid from fishoperation group by portid order by portid desc"),
               {u"3"_qs, u"2"_qs, u"1"_qs});
        newRow("not of a query within",
               Sql("select a from (select 2 as a union select 1) where a in (select portid from fishoperation group by "
                   "portid) order by a"),
               {u"1"_qs, u"2"_qs});
        newRow("of distinct columns", Sql("SELECT DISTINCT (portid) ,lat_dec FROM fishoperation"),
               {u"1|12"_qs, u"2|12"_qs, u"3|12"_qs});
        newRow("of distinct months",
               Sql("select distinct format(optdate,'mmmm')as mn,format(optdate,'m') as m1 from fishoperation order by "
                   "format(optdate,'m')"),
               {u"January|1"_qs, u"October|10"_qs, u"December|12"_qs, u"June|6"_qs});
    }
    void order() { compareRows(); }

    /// Lists of what was sampled: looked up, whatever the statement says about tables whose rows are not shown.
    void distinct_data() {
        addColumns();
        m_store->execute("insert into group_composition values (1, 1, 1, 5, 5), (1, 2, 2, 5, 5), (4, 3, 3, 5, 5)");
        const Sql join(
            " FROM group_composition INNER JOIN fishoperation ON group_composition.optid = fishoperation.optid");
        const Sql nested =
            Sql(" FROM (group_composition INNER JOIN fishoperation ON group_composition.optid="
                "fishoperation.optid) INNER JOIN samplingport ON "
                "fishoperation.portid=samplingport.samplingid");
        newRow("operations", Sql("SELECT DISTINCT fishoperation.optid") << join, {u"1"_qs, u"4"_qs});
        newRow("years", Sql("SELECT DISTINCT year(optdate) as y") << join << " order by year( optdate);", {u"2004"_qs});
        newRow("years in parentheses", Sql("SELECT distinct( year(fishoperation.optdate)) as y") << join, {u"2004"_qs});
        newRow("years downwards",
               Sql("SELECT distinct year(optdate) as y from fishoperation order by year(optdate) desc"),
               {u"9999"_qs, u"2005"_qs, u"2004"_qs, u"2003"_qs});
        newRow("one year", Sql("SELECT DISTINCT year(optdate)") << join << " where year(optdate) = " << 2003, {});
        newRow("choices", Sql("SELECT DISTINCT samplingname") << nested << " WHERE (((year(optdate))=" << 2004 << "));",
               {u"Bex"_qs});
        newRow("one condition or another",
               Sql("SELECT DISTINCT fishoperation.optid") << join << " where lat_dec = 12 or lat_dec = 13",
               {u"1"_qs, u"4"_qs});
        newRow("a column of the joined table", Sql("SELECT DISTINCT spid") << join, {u"1"_qs, u"2"_qs, u"3"_qs});
        newRow("a condition on the joined table",
               Sql("SELECT DISTINCT portid") << join << " where group_composition.spid = 3", {u"2"_qs});
        newRow("two conditions to the join", Sql("SELECT DISTINCT portid") << join << " and spid = 3", {u"2"_qs});
        newRow("dates that are none",
               Sql("select distinct year(d) as y from (select null as d union select 'x' union select '' union select "
                   "'2004-02-03' union select '2004-12-31' union select '2005-01-01')"),
               {u"null"_qs, u"2004"_qs, u"2005"_qs});
    }
    void distinct() { compareRows(); }

    /// Weights by the name of the species, also when two species have one name, or a species is not stored any more.
    void sumsByName_data() {
        addColumns();
        m_store->execute(
            "insert into group_composition values (6, 4, 1, 1, 0.25), (6, 5, 1, 1, 2), (6, 1, 2, 1, 7), (6, 99, 1, 1, "
            "8),"
            " (6, 6, 3, 1, null), (6, 2, 1, 1, 0.005), (6, 2, 2, 1, 1)");
        const Sql from(
            " FROM (group_composition INNER JOIN fishoperation ON group_composition.optid = fishoperation.optid) INNER"
            " JOIN fish ON group_composition.spid = fish.fishno where year(optdate) = 9999 GROUP BY fish.genus & ' ' &"
            " fish.fishname");
        const QStringList sums{u"2.25|1125.00"_qs, u"7.00|3500.00"_qs, u"1.01|505.00"_qs, u"null|null"_qs};
        const Sql select(
            "SELECT format(Sum(group_composition.estotal),'#0.00') as s, format((format(Sum("
            "group_composition.estotal),'#0.00')*100)/0.2,'#0.00')");
        newRow("in the order of the names", Sql(select) << from, sums);
        newRow("in an order asked for", Sql(select) << from << " ORDER BY  fish.genus & ' ' & fish.fishname desc;",
               {sums[3], sums[2], sums[1], sums[0]});
        newRow("with the name", Sql("SELECT fish.fishname & '!' as n, Sum(group_composition.estotal) ") << from,
               {u"b!|2.25"_qs, u"kanagurta!|7"_qs, u"vittatus!|1.005"_qs, u"!|null"_qs});
        newRow("two sums", Sql("SELECT Sum(group_composition.estotal), sum(totalweight)") << from,
               {u"2.25|2"_qs, u"7|1"_qs, u"1.005|2"_qs, u"null|1"_qs});
        newRow("counted too", Sql("SELECT Sum(group_composition.estotal), count(*)") << from,
               {u"2.25|2"_qs, u"7|1"_qs, u"1.005|2"_qs, u"null|1"_qs});
    }
    void sumsByName() { compareRows(); }

    void quotedTextsStay_data() {
        QTest::addColumn<QString>("text");
        for (const char* text :
             {"a & b", "year(optdate) = 2004", "x group by y", "TRANSFORM sum(x)", "pivot ' [ (", ";"}) {
            QTest::newRow(text) << QString::fromLatin1(text);
        }
    }
    void quotedTextsStay() {
        QFETCH(QString, text);
        QCOMPARE(m_store->rows(Sql("select ") << text << " as t where ((" << text << ") = " << text << ")"),
                 QStringList{text});
    }

    void format_data() {
        addColumns();
        const auto row = [](const char* name, const Sql& value, const QString& shown) {
            newRow(name, Sql("select format(") << value << ",'#0.00')", {shown});
        };
        row("half up", Sql("1.005"), u"1.01"_qs);
        row("half away from zero", Sql("-1.005"), u"-1.01"_qs);
        row("half up again", Sql("2.675"), u"2.68"_qs);
        row("below one", Sql("0.5"), u"0.50"_qs);
        row("whole", Sql("100"), u"100.00"_qs);
        row("next ten", Sql("99.995"), u"100.00"_qs);
        row("no negative zero", Sql("-0.004"), u"0.00"_qs);
        row("zero", Sql("0"), u"0.00"_qs);
        row("tiny", Sql("0.005"), u"0.01"_qs);
        row("large", Sql("123456789012.345"), u"123456789012.35"_qs);
        row("huge", Sql("1e20"), u"100000000000000000000.00"_qs);
        row("a computed value", Sql("1.1 + 2.2"), u"3.30"_qs);
        row("null", Sql("null"), u"null"_qs);
        row("a division by zero", Sql("5 / 0.0"), u"null"_qs);
        row("a number as text", Sql("' 2.5'"), u"2.50"_qs);
        row("a text", Sql("'abc'"), u"abc"_qs);
        row("an empty text", Sql("''"), QString());
        newRow("share of two decimals", Sql("select format((format(Sum(50.0),'#0.00')*100)/200,'#0.00')"),
               {u"25.00"_qs});
        newRow("patterns", Sql("select Format(1,'Fixed'), format(1,'0.00'), FORMAT(1,'other')"), {u"1.00|1.00|1"_qs});
        newRow("months", Sql("select format('2004-03-05','mmmm'), format('2004-03-05','m'), month('2004-03-05')"),
               {u"March|3|3"_qs});
        newRow("no month", Sql("select format(null,'mmmm'), format('2004-02-30','mmmm'), format(3,'m')"),
               {u"null|null|null"_qs});
    }
    void format() { compareRows(); }

    void monthNamesFollowTheLanguage() {
        const QLocale british;
        QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
        const QStringList german = m_store->rows("select format('2004-03-05','mmmm')");
        QLocale::setDefault(british);
        QCOMPARE(german, QStringList{QStringLiteral("März")});
    }
};

KELVORA_TEST(TestDialect, "dialect");

}  // namespace kelvora::test_dialect

#include "test_dialect.moc"
