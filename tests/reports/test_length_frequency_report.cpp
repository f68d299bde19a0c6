#include "controls/bound_list.h"
#include "controls/captioned_grid.h"
#include "reports/length_frequency_report.h"
#include "reports/length_frequency_report_screen.h"
#include "species_report.h"
#include "support/test_main.h"

#include <QLocale>
#include <QTest>

#include <map>

namespace kelvora::test_length_frequency_report {

using test::texts;
using Report = test::SpeciesReport<LengthFrequencyReportScreen>;

const QString kGrid = QStringLiteral("Result");
const QString kMackerel = QStringLiteral("Rastrelliger kanagurta");

/// Two operations in May and one in June, the same class in all; a wider class in June only.
void addClasses(test::TemporaryStore& store) {
    test::addWorkedYear(store);
    store.execute("update fishoperation set optdate = '2004-05-02' where optid = 1");
    store.execute("update fishoperation set optdate = '2004-05-30' where optid = 2");
    store.execute("update fishoperation set optdate = '2004-06-01' where optid = 3");
    store.execute("insert into length values (1,1,5), (2,1,5), (3,1,5), (5,2,5)");
    store.execute(
        "insert into length_detail values (3,1,10,12,11,1), (1,1,10,11,10.5,3), (2,1,10,11,10.5,4),"
        " (3,1,10,11,10.5,2), (1,1,9.5,10,9.75,0), (3,2,5,6,5.5,8)");
}

/// A set of lengths in classes, each of its periods as an operation, of species 7.
void addTally(test::TemporaryStore& store, const char* name) {
    Transaction transaction(store.db());
    std::map<QString, int> periods;
    store.execute("insert into fish(fishno, genus, fishname) values (7, 'Measured', 'fish')");
    for (const QStringList& line : test::linesOf(name)) {
        const auto [period, isNew] = periods.try_emplace(line[0], static_cast<int>(periods.size()) + 1);
        if (isNew) {
            const QString day = line[0].size() == 7 ? line[0] + QStringLiteral("-15") : line[0];
            store.addOperation(period->second, 1, day, 1, 1, QString(), QString());
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
        test::TemporaryStore store;
        addClasses(store);
        Report report(store);
        QCOMPARE(report.screen().windowTitle(), QStringLiteral("Length Frequency Report"));
        QVERIFY(!report.canExport());
        report.ui().press(QStringLiteral("Search"));
        report.search(QStringLiteral("2004"), kMackerel);
        QCOMPARE(report.ui().grid(kGrid)->headers(), texts("Lower;Upper;Mid Length;May;June"));
        QCOMPARE(report.ui().rows(kGrid), texts("9.5|10|9.75|0|;10|11|10.5|7|2;10|12|11||1"));
        QCOMPARE(report.exported(), "Length Frequency data In 2004\r\nSpecies Rastrelliger kanagurta\r\n" +
                                        test::exportDay() +
                                        "Lower,Upper,Mid Length,May,June,\r\n9.5,10,9.75,0,,\r\n10,11,10.5,7,2,\r\n"
                                        "10,12,11,,1,\r\n");
    }

    void monthsGoFromZToAInTheSystemsLanguage() {
        test::TemporaryStore store;
        addClasses(store);
        store.execute("update fishoperation set optdate = '2004-10-01' where optid = 1");
        store.execute("update fishoperation set optdate = '2004-01-01' where optid = 2");
        store.execute("update fishoperation set optdate = '2004-03-31' where optid = 3");
        const auto months = [&] {
            const std::vector<QString> columns = lengthsByMonth(store.db(), 2004, 1).columns;
            return QStringList(columns.begin() + 3, columns.end());
        };
        QCOMPARE(months(), texts("October;March;January"));
        const QLocale before;
        QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
        const QStringList german = months();
        QLocale::setDefault(before);
        QCOMPARE(german, (QStringList{QStringLiteral("Oktober"), QStringLiteral("März"), QStringLiteral("Januar")}));
    }

    void aSearchThatFindsNothing() {
        test::TemporaryStore store;
        addClasses(store);
        Report report(store);
        report.search(QStringLiteral("2004"), kMackerel);
        store.dialogs.expectMessage(QStringLiteral("RESULT"), QStringLiteral("No data in this year"));
        report.search(QStringLiteral("2004"), QStringLiteral("Nemipterus virgatus"));
        QCOMPARE(report.ui().grid(kGrid)->headers(), texts("Lower;Upper;Mid Length"));
        QCOMPARE(report.ui().rows(kGrid), texts("||"));
        QVERIFY(!report.canExport());
        QCOMPARE(report.ui().text(QStringLiteral("Species")), QStringLiteral("Nemipterus virgatus"));
    }

    void typedSpecies() {
        test::TemporaryStore store;
        addClasses(store);
        Report report(store);
        report.ui().choose(QStringLiteral("Year"), QStringLiteral("2004"));
        report.ui().type(QStringLiteral("Species"), QStringLiteral("no such fish"));
        report.ui().press(QStringLiteral("Search"));
        QVERIFY(!report.canExport());
        report.ui().type(QStringLiteral("Species"), QStringLiteral("rastrelliger KANAGURTA"));
        report.ui().key(QStringLiteral("Species"), Qt::Key_Return);
        QVERIFY(report.canExport());
        QVERIFY(report.exported().contains("Species Rastrelliger kanagurta\r\n"));
    }

    void missingNumbers() {
        test::TemporaryStore store;
        addClasses(store);
        store.execute("update length_detail set frequency1 = null where optid = 1");
        store.execute("update length_detail set lower1 = null, upper1 = null where optid = 3");
        store.execute("update fishoperation set optdate = null where optid = 2");
        Report report(store);
        report.search(QStringLiteral("2004"), kMackerel);
        QCOMPARE(report.ui().rows(kGrid), texts("||10.5||2;||11||1;9.5|10|9.75||;10|11|10.5||"));
    }

    void realSets_data() {
        QTest::addColumn<QByteArray>("tally");
        QTest::addColumn<QByteArray>("table");
        QTest::newRow("hake") << QByteArray("european_hake_tally.csv")
                              << QByteArray("length_frequency_european_hake.csv");
        QTest::newRow("simulated") << QByteArray("simulated_monthly_tally.csv")
                                   << QByteArray("length_frequency_simulated_monthly.csv");
    }
    /// Every year's table: each of its cells, and not one more.
    void realSets() {
        QFETCH(QByteArray, tally);
        QFETCH(QByteArray, table);
        test::TemporaryStore store;
        addTally(store, tally);
        QFile file(QStringLiteral(KELVORA_TEST_FILES "/") + QString::fromLatin1(table));
        QVERIFY(file.open(QIODevice::ReadOnly));
        const QStringList header = QString::fromUtf8(file.readLine()).trimmed().split(u',');
        std::vector<QStringList> lines = test::linesOf(table);
        lines.pop_back();  // the sums of the periods
        const ResultSet years = store.db().query(lengthYears());
        int cells = 0;
        for (int i = 0; i < years.rowCount(); ++i) {
            const QString year = years.text(i, u"gyear");
            QStringList expected;
            for (const QStringList& line : lines) {
                for (qsizetype column = 3; column + 1 < header.size(); ++column) {
                    if (header[column].startsWith(year) && !line[column].isEmpty()) {
                        expected << QStringList{line[0], line[1], line[2], monthName(header[column].mid(5, 2).toInt()),
                                                line[column]}
                                        .join(u'|');
                    }
                }
            }
            const ResultSet found = lengthsByMonth(store.db(), year.toInt(), 7);
            QStringList shown;
            double before = 0;
            for (const auto& row : found.rows) {
                QVERIFY(row[0].toDouble() > before);
                before = row[0].toDouble();
                for (std::size_t column = 3; column < row.size(); ++column) {
                    if (row[column].isValid()) {
                        shown << QStringList{displayText(row[0]), displayText(row[1]), displayText(row[2]),
                                             found.columns[column], displayText(row[column])}
                                     .join(u'|');
                    }
                }
            }
            cells += static_cast<int>(shown.size());
            shown.sort();
            expected.sort();
            QCOMPARE(shown, expected);
        }
        QCOMPARE(cells, static_cast<int>(test::linesOf(tally).size()));
    }
};

KELVORA_TEST(TestLengthFrequencyReport, "length_frequency_report");

}  // namespace kelvora::test_length_frequency_report

#include "test_length_frequency_report.moc"
