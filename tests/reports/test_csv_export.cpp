#include "reports/csv_export.h"
#include "support/test_main.h"
#include "worked_year.h"

#include <QDir>
#include <QTemporaryDir>
#include <QTest>

#include <csignal>
#include <sys/resource.h>

namespace kelvora::test_csv_export {

/// As long as it lives, no file grows beyond a number of bytes: a disk that is full.
class FullDisk {
public:
    explicit FullDisk(rlim_t bytes) {
        std::signal(SIGXFSZ, SIG_IGN);
        getrlimit(RLIMIT_FSIZE, &m_before);
        const rlimit full{bytes, m_before.rlim_max};
        setrlimit(RLIMIT_FSIZE, &full);
    }
    ~FullDisk() { setrlimit(RLIMIT_FSIZE, &m_before); }
    FullDisk(const FullDisk&) = delete;
    FullDisk& operator=(const FullDisk&) = delete;

private:
    rlimit m_before{};
};

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
            const FullDisk full(6'000);
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
