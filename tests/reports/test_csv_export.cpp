#include "reports/csv_export.h"
#include "support/full_disk.h"
#include "support/test_main.h"
#include "worked_year.h"

#include <QDir>
#include <QTemporaryDir>
#include <QTest>

namespace kelvora::test_csv_export {

/// The file that an export becomes: its bytes, its name, and what happens when it cannot be written.
class TestCsvExport : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void bytes() {
        CsvText csv;
        csv.addLine(QStringLiteral("Ålesund ปลา"));
        csv.addLine();
        csv.addValues({QStringLiteral("Kay, north \"K\""), QString(), QStringLiteral("7")});
        csv.addValues({QString(), QString()});
        const QTemporaryDir folder;
        saveCsv(folder.filePath(QStringLiteral("a.csv")), csv);
        QCOMPARE(test::contents(folder.filePath(QStringLiteral("a.csv"))),
                 QByteArray("Ålesund ปลา\r\n\r\nKay, north \"K\",,7,\r\n,,\r\n"));
    }

    void endings_data() {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("written");
        QTest::newRow("none") << "/r/catch"
                              << "/r/catch.csv";
        QTest::newRow("folder with a dot") << "/r.d/catch"
                                           << "/r.d/catch.csv";
        QTest::newRow("dot alone") << "/r/catch."
                                   << "/r/catch.csv";
        QTest::newRow("csv") << "/r/catch.CSV"
                             << "/r/catch.CSV";
        QTest::newRow("another") << "/r/catch.txt"
                                 << "/r/catch.txt";
    }
    void endings() {
        QFETCH(QString, typed);
        QTEST(withCsvEnding(typed), "written");
    }

    void anOldFileIsReplacedWholeOrNotAtAll() {
        const QTemporaryDir folder;
        const QString path = folder.filePath(QStringLiteral("catch.csv"));
        CsvText old;
        old.addLine(QString(5'000, u'o'));
        saveCsv(path, old);
        CsvText longer;
        longer.addLine(QString(50'000, u'n'));
        {
            const test::FullDisk full(6'000);
            QVERIFY_EXCEPTION_THROWN(saveCsv(path, longer), std::runtime_error);
        }
        QCOMPARE(test::contents(path), QByteArray(5'000, 'o') + "\r\n");
        CsvText shorter;
        shorter.addLine(QStringLiteral("s"));
        saveCsv(path, shorter);
        QCOMPARE(test::contents(path), QByteArray("s\r\n"));
        QCOMPARE(QDir(folder.path()).entryList(QDir::Files), QStringList{QStringLiteral("catch.csv")});
    }
};

KELVORA_TEST(TestCsvExport, "csv_export");

}  // namespace kelvora::test_csv_export

#include "test_csv_export.moc"
