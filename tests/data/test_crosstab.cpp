#include "data/crosstab.h"
#include "support/temporary_store.h"
#include "support/test_main.h"

#include <QTest>

namespace kelvora::test_crosstab {

/// Crosstabs: the two of the yearly reports on stored samples, and odd values by hand.
class TestCrosstab : public QObject {
    Q_OBJECT

    std::unique_ptr<test::TemporaryStore> m_store;

    /// Header and rows, cells joined by "|".
    static QStringList lines(const ResultSet& table) {
        QStringList all{QStringList(table.columns.begin(), table.columns.end()).join(u'|')};
        for (const auto& row : table.rows) {
            QStringList cells;
            for (const QVariant& cell : row) {
                cells.append(displayText(cell));
            }
            all.append(cells.join(u'|'));
        }
        return all;
    }

    static Sql lengthFrequency(int year, int species) {
        return Sql("TRANSFORM sum( length_detail.frequency1) SELECT length_detail.lower1 as 'Lower',"
                   " length_detail.upper1 as 'Upper', length_detail.midlength1 as 'MidLength' FROM (length_detail INNER"
                   " JOIN fishoperation ON length_detail.optid = fishoperation.optid) INNER JOIN fish ON"
                   " length_detail.spid = fish.fishno Where (((Year(fishoperation.optdate) = ")
               << year << ")) And ((fish.fishno) = " << species
               << ")) GROUP BY length_detail.lower1, length_detail.upper1, length_detail.midlength1 ORDER BY"
                  " format(optdate,'mmmm') DESC PIVOT format(optdate,'mmmm')";
    }
    static Sql sexes(int year) {
        return Sql("TRANSFORM count(gonad_detail.sex) SELECT format(optdate,'mmmm') FROM (gonad_detail INNER JOIN"
                   " fishoperation ON gonad_detail.optid=fishoperation.optid) INNER JOIN fish ON"
                   " gonad_detail.spid=fish.fishno Where Year(optdate) = ")
               << year << " And spid = 1 GROUP BY format(optdate,'mmmm') order by  format(optdate,'mmmm') PIVOT sex;";
    }
    /// Stages of the females, in the order given behind the grouping.
    static Sql stages(Literal order) {
        return Sql("TRANSFORM Count(gonad_detail.stage) AS CountOfstage SELECT Format(optdate,'mmmm') AS Expr1 FROM"
                   " gonad_stage INNER JOIN ((gonad_detail INNER JOIN fishoperation ON gonad_detail.optid ="
                   " fishoperation.optid) INNER JOIN fish ON gonad_detail.spid = fish.fishno) ON gonad_stage.stageid ="
                   " gonad_detail.stage Where (((Year([optdate])) = 2004) And ((gonad_detail.spid) = 1)) and sex ="
                   " 'Female' GROUP BY Format(optdate,'mmmm')")
               << order << " PIVOT gonad_detail.stage & '-' &  stagename";
    }

private Q_SLOTS:
    void initTestCase() {
        m_store = std::make_unique<test::TemporaryStore>();
        m_store->addReferenceRows();
        int optid = 0;
        for (const char* day : {"2004-05-01", "2004-05-20", "2004-06-01", "2004-01-09", "2005-01-01"}) {
            ++optid;
            m_store->addOperation(optid, 1, QString::fromLatin1(day), 1, 10, u"Sea Star"_qs, u"A1"_qs);
        }
        m_store->execute(
            "insert into length_detail values (1, 1, 10, 11, 10.5, 3), (2, 1, 10, 11, 10.5, 4), (3, 1, 10, 11, 10.5, "
            "2),"
            " (4, 1, 9, 10, 9.5, 1), (4, 1, 9, 10, 9.5, 0.5), (4, 1, 9, 11, 10, null), (5, 1, 9, 10, 9.5, 100),"
            " (4, 2, 1, 2, 1.5, 100)");
        m_store->execute("insert into gonad_stage values (10, 'Resting')");
        m_store->execute(
            "insert into gonad_detail(optid, spid, samplingno, sex, stage) values (1, 1, 1, 'Female', 2),"
            " (1, 1, 2, 'female', 2), (1, 1, 3, 'Male', 1), (4, 1, 1, 'Female', 10), (4, 1, 2, 'Juvenile', 0),"
            " (4, 1, 3, 'Female', 0), (3, 1, 1, 'None', 1), (5, 1, 1, 'Male', 1)");
    }
    void cleanupTestCase() { m_store.reset(); }

    void reports_data() {
        QTest::addColumn<std::optional<Sql>>("sql");
        QTest::addColumn<QStringList>("lines");
        const auto row = [](const char* name, const Sql& sql, const QStringList& lines) {
            QTest::newRow(name) << std::optional(sql) << lines;
        };
        row("months descending by name, classes by size", lengthFrequency(2004, 1),
            {u"Lower|Upper|MidLength|May|June|January"_qs, u"9|10|9.5|||1.5"_qs, u"9|11|10|||"_qs,
             u"10|11|10.5|7|2|"_qs});
        row("no length classes", lengthFrequency(2003, 1), {u"Lower|Upper|MidLength"_qs});
        row("sexes that differ in letter case are one", sexes(2004),
            {u"format(optdate,'mmmm')|Female|Juvenile|Male|None"_qs, u"January|2|1||"_qs, u"June||||1"_qs,
             u"May|2||1|"_qs});
        row("one sex", sexes(2005), {u"format(optdate,'mmmm')|Male"_qs, u"January|1"_qs});
        row("no fish", sexes(2003), {u"format(optdate,'mmmm')"_qs});
        row("rows descending, stages ordered as texts", stages(" ORDER BY Format(optdate,'mmmm') DESC"),
            {u"Expr1|10-Resting|2-Maturing"_qs, u"May||2"_qs, u"January|1|"_qs});
        row("rows ascending", stages(" ORDER BY Format(optdate,'mmmm')"),
            {u"Expr1|10-Resting|2-Maturing"_qs, u"January|1|"_qs, u"May||2"_qs});
    }
    void reports() {
        QFETCH(std::optional<Sql>, sql);
        QTEST(lines(m_store->db().query(*sql)), "lines");
    }

    void oddValues_data() {
        QTest::addColumn<Crosstab::Aggregate>("aggregate");
        QTest::addColumn<int>("columnOrder");
        QTest::addColumn<QStringList>("lines");
        QTest::newRow("sum") << Crosstab::Aggregate::Sum << 1
                             << QStringList({u"Row|<>|2|10|B"_qs, u"|1|||"_qs, u"x||0.3||"_qs, u"Y|||-2|4"_qs});
        QTest::newRow("count, columns descending")
            << Crosstab::Aggregate::Count << -1
            << QStringList({u"Row|B|10|2|<>"_qs, u"||||1"_qs, u"x|||2|"_qs, u"Y|1|1||"_qs});
    }
    void oddValues() {
        QFETCH(Crosstab::Aggregate, aggregate);
        QFETCH(int, columnOrder);
        const Crosstab crosstab{aggregate, {"Row"}, {1}, columnOrder, {}};
        const QVariant null;
        const ResultSet rows{{{}, {}, {}},
                             {{u"Y"_qs, 10.0, -2.0},
                              {u"x"_qs, qlonglong{2}, 0.1},
                              {u"X"_qs, 2.0, 0.2},
                              {u"y"_qs, u"B"_qs, null},
                              {u"y"_qs, u"b"_qs, qlonglong{4}},
                              {null, null, 1.0}}};
        // Of texts that differ in letter case only, the first one found is shown.
        QTEST(lines(pivoted(crosstab, rows)), "lines");
    }

    void malformed_data() {
        QTest::addColumn<std::string>("statement");
        QTest::newRow("no pivot") << std::string("TRANSFORM sum(a) SELECT b FROM c GROUP BY b");
        QTest::newRow("no group") << std::string("TRANSFORM sum(a) SELECT b FROM c PIVOT d");
        QTest::newRow("an average") << std::string("TRANSFORM avg(a) SELECT b FROM c GROUP BY b PIVOT d");
        QTest::newRow("cut off") << std::string("TRANSFORM");
    }
    void malformed() {
        QFETCH(std::string, statement);
        QVERIFY_EXCEPTION_THROWN(parseCrosstab(statement), std::invalid_argument);
    }
};

KELVORA_TEST(TestCrosstab, "crosstab");

}  // namespace kelvora::test_crosstab

#include "test_crosstab.moc"
