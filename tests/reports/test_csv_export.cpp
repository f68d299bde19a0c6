#include "data/store_files.h"
#include "report_desk.h"
#include "reports/csv_export.h"
#include "support/test_main.h"

#include <QDir>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;

namespace kelvora::test_csv_export {

/// The file that an export becomes: its bytes and its name.
class TestCsvExport : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void bytes() {
        const QTemporaryDir folder;
        const QString path = folder.filePath(u"a.csv"_s);
        CsvText longer;
        longer.addLine(QString(5'000, u'o'));
        saveCsv(path, longer, folder.filePath(u"none"_s));
        CsvText csv;
        csv.addLine(u"Ålesund ปลา"_s);
        csv.addLine();
        csv.addValues({u"Kay, north \"K\""_s, QString(), u"7"_s});
        csv.addValues({QString(), QString()});
        saveCsv(path, csv, folder.filePath(u"none"_s));
        QCOMPARE(test::contents(path), QByteArray("Ålesund ปลา\r\n\r\nKay, north \"K\",,7,\r\n,,\r\n"));
        QCOMPARE(QDir(folder.path()).entryList(QDir::Files), QStringList{u"a.csv"_s});
    }

    void endings() {
        QCOMPARE(withCsvEnding(u"/r/catch"_s), u"/r/catch.csv"_s);
        QCOMPARE(withCsvEnding(u"/r.d/catch"_s), u"/r.d/catch.csv"_s);
        QCOMPARE(withCsvEnding(u"/r/catch."_s), u"/r/catch.csv"_s);
        QCOMPARE(withCsvEnding(u"/r/catch.CSV"_s), u"/r/catch.CSV"_s);
        QCOMPARE(withCsvEnding(u"/r/catch.txt"_s), u"/r/catch.txt"_s);
    }
};

KELVORA_TEST(TestCsvExport, "csv_export");

}  // namespace kelvora::test_csv_export

#include "test_csv_export.moc"
