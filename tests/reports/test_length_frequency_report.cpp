#include "controls/bound_list.h"
#include "data/transaction.h"
#include "report_desk.h"
#include "reports/length_frequency_report.h"
#include "reports/species_report_screen.h"
#include "support/test_main.h"

#include <QLocale>
#include <QTest>

#include <map>

using namespace Qt::StringLiterals;

namespace kelvora::test_length_frequency_report {

using namespace test;

/// The report over two operations in May and one in June, the same class in all; a wider class in June only.
struct Lengths : Report<LengthFrequencyReportScreen> {
    Lengths()
        : Report({"update fishoperation set optdate = '2004-05-02' where optid = 1",
                  "update fishoperation set optdate = '2004-05-30' where optid = 2",
                  "update fishoperation set optdate = '2004-06-01' where optid = 3",
                  "insert into length values (1,1,5), (2,1,5), (3,1,5), (5,2,5)",
                  "insert into length_detail values (3,1,10,12,11,1), (1,1,10,11,10.5,3), (2,1,10,11,10.5,4)",
                  "insert into length_detail values (3,1,10,11,10.5,2), (1,1,9.5,10,9.75,0), (3,2,5,6,5.5,8)"}) {}
};

/// A set of lengths in classes, each of its periods as an operation, of species 7.
void addTally(TemporaryStore& store, const std::vector<QStringList>& tally) {
    Transaction transaction(store.db());
    std::map<QString, int> periods;
    store.execute("insert into fish(fishno, genus, fishname) values (7, 'Measured', 'fish')");
    for (const QStringList& line : tally) {
        const auto [period, isNew] = periods.try_emplace(line[0], static_cast<int>(periods.size()) + 1);
        if (isNew) {
            store.addOperation(period->second, 1, (line[0] + u"-15"_s).first(10), 1, 1, QString(), QString());
            store.db().execute(Sql("insert into length values (") << period->second << ",7,1)");
        }
        store.db().execute(Sql("insert into length_detail values (")
                           << period->second << ",7," << line[1].toDouble() << "," << line[2].toDouble() << ","
                           << line[3].toDouble() << "," << line[4].toDouble() << ")");
    }
    transaction.commit();
}

/// Lengths by class and month.
class TestLengthFrequencyReport : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void classesByMonth() {
        Lengths report;
        QCOMPARE(report.screen->windowTitle(), u"Length Frequency Report"_s);
        QVERIFY(!report.canExport());
        report.ui().press(kSearch);
        report.search(u"2004"_s, kMackerel);
        QCOMPARE(report.headers(), u"Lower;Upper;Mid Length;May;June"_s);
        QCOMPARE(report.rows(), u"9.5|10|9.75|0|;10|11|10.5|7|2;10|12|11||1"_s);
        QCOMPARE(report.exported(), "Length Frequency data In 2004\r\nSpecies Rastrelliger kanagurta\r\n" +
                                        exportDay() +
                                        "Lower,Upper,Mid Length,May,June,\r\n9.5,10,9.75,0,,\r\n10,11,10.5,7,2,\r\n"
                                        "10,12,11,,1,\r\n");
        report.store.dialogs.expectMessage(u"RESULT"_s, u"No data in this year"_s);
        report.search(u"2004"_s, u"Nemipterus virgatus"_s);
        QCOMPARE(report.headers(), u"Lower;Upper;Mid Length"_s);
        QCOMPARE(report.rows(), u"||"_s);
        QVERIFY(!report.canExport());
        QCOMPARE(report.ui().text(u"Species"_s), u"Nemipterus virgatus"_s);
    }

    void monthsGoFromZToAInTheSystemsLanguage() {
        Lengths report;
        report.store.execute("update fishoperation set optdate = '2004-10-01' where optid = 1");
        report.store.execute("update fishoperation set optdate = '2004-01-01' where optid = 2");
        report.store.execute("update fishoperation set optdate = '2004-03-31' where optid = 3");
        report.store.execute("insert into length_detail values (1, 1, 14, 16, 15, 6)");
        report.search(u"2004"_s, kMackerel);
        QCOMPARE(report.headers(), u"Lower;Upper;Mid Length;October;March;January"_s);
        // Of two classes from 10 on, each is called by both limits; the one from 12 to 14 has no fish.
        QCOMPARE(report.drawnGroups(), u"9.5;10–11;10–12;12;14"_s);
        QCOMPARE(report.drawn(), u"January: 0 4 0 0 0;March: 0 2 1 0 0;October: 0 3 0 0 6"_s);
        const QLocale before;
        QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
        report.search(u"2004"_s, kMackerel);
        QLocale::setDefault(before);
        QCOMPARE(report.headers(), u"Lower;Upper;Mid Length;Oktober;März;Januar"_s);
    }

    void typedSpecies() {
        Lengths report;
        report.ui().choose(kYear, u"2004"_s);
        report.ui().type(u"Species"_s, u"no such fish"_s);
        report.ui().press(kSearch);
        QVERIFY(!report.canExport());
        report.ui().type(u"Species"_s, u"rastrelliger KANAGURTA"_s);
        report.ui().key(u"Species"_s, Qt::Key_Return);
        QVERIFY(report.canExport());
        QVERIFY(report.exported().contains("Species Rastrelliger kanagurta\r\n"));
    }

    void missingNumbers() {
        Lengths report;
        report.store.execute("update length_detail set frequency1 = null where optid = 1");
        report.store.execute("update length_detail set lower1 = null, upper1 = null where optid = 3");
        report.store.execute("update fishoperation set optdate = null where optid = 2");
        report.search(u"2004"_s, kMackerel);
        QCOMPARE(report.rows(), u"||10.5||2;||11||1;9.5|10|9.75||;10|11|10.5||"_s);
    }

    void realSets_data() {
        QTest::addColumn<QString>("table");
        QTest::newRow("european_hake_tally.csv") << u"length_frequency_european_hake.csv"_s;
        QTest::newRow("simulated_monthly_tally.csv") << u"length_frequency_simulated_monthly.csv"_s;
    }
    /// The tables of all years: each of their cells, and not one more.
    void realSets() {
        QFETCH(QString, table);
        const std::vector<QStringList> tally = linesOf(QString::fromLatin1(QTest::currentDataTag()));
        TemporaryStore store;
        addTally(store, tally);
        const auto cell = [](const QString& lower, const QString& upper, const QString& mid, const QString& year,
                             const QString& month, const QString& fish) {
            return QStringList{lower, upper, mid, year, month, fish}.join(u'|');
        };
        QStringList expected;
        const std::vector<QStringList> lines = linesOf(table, 0);
        for (std::size_t i = 1; i + 1 < lines.size(); ++i) {  // the last line holds the sums of the periods
            const QStringList& line = lines[i];
            for (qsizetype column = 3; column + 1 < line.size(); ++column) {
                if (const QString& period = lines[0][column]; !line[column].isEmpty()) {
                    expected << cell(line[0], line[1], line[2], period.first(4), monthName(period.mid(5, 2).toInt()),
                                     line[column]);
                }
            }
        }
        QStringList shown;
        const ResultSet years = store.db().query(lengthYears());
        for (int i = 0; i < years.rowCount(); ++i) {
            const QString year = years.text(i, u"gyear");
            const ResultSet found = lengthsByMonth(store.db(), year.toInt(), 7);
            QVERIFY(std::ranges::is_sorted(found.rows, {}, [](const auto& row) { return row[0].toDouble(); }));
            for (const auto& row : found.rows) {
                for (std::size_t column = 3; column < row.size(); ++column) {
                    if (row[column].isValid()) {
                        shown << cell(displayText(row[0]), displayText(row[1]), displayText(row[2]), year,
                                      found.columns[column], displayText(row[column]));
                    }
                }
            }
        }
        shown.sort();
        expected.sort();
        QCOMPARE(shown, expected);
        QCOMPARE(shown.size(), static_cast<qsizetype>(tally.size()));
    }
};

KELVORA_TEST(TestLengthFrequencyReport, "length_frequency_report");

}  // namespace kelvora::test_length_frequency_report

#include "test_length_frequency_report.moc"
