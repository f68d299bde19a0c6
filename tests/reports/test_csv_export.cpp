#include "data/store_files.h"
#include "report_desk.h"
#include "reports/csv_export.h"
#include "support/test_main.h"

#include <QDir>
#include <QStandardItemModel>
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
        saveCsv(path, {QString(5'000, u'o')}, folder.filePath(u"none"_s));
        QStandardItemModel table(2, 3);
        table.setItem(0, 0, new QStandardItem(u"Kay, north \"K\""_s));
        table.setItem(0, 2, new QStandardItem(u"7"_s));
        saveCsv(path, QStringList{u"Ålesund ปลา"_s, QString()} + csvRows(table), folder.filePath(u"none"_s));
        QCOMPARE(test::contents(path), QByteArray("Ålesund ปลา\r\n\r\nKay, north \"K\",,7,\r\n,,,\r\n"));
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
