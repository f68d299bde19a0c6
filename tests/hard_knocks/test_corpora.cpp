#include "fuzz/targets.h"
#include "support/test_main.h"

#include <QDirIterator>
#include <QFile>
#include <QTest>

using namespace Qt::StringLiterals;

namespace kelvora::test_corpora {

/// What the fuzz targets check, on every file of their corpora: hostile bytes that were thought of, and those that a
/// fuzzer found. A failed check ends the process.
class TestCorpora : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void tryAll() {
        for (const auto& [folder, target] :
             {std::pair(u"csv"_s, &fuzz::tryCsv), {u"sql"_s, &fuzz::trySql}, {u"numbers"_s, &fuzz::tryNumbers}}) {
            QDirIterator files(u"" KELVORA_CORPORA "/"_s + folder, QDir::Files);
            QVERIFY(files.hasNext());
            while (files.hasNext()) {
                QFile file(files.next());
                qInfo("%s", qPrintable(file.fileName()));
                QVERIFY(file.open(QIODevice::ReadOnly));
                target(file.readAll());
            }
        }
    }
};

KELVORA_TEST(TestCorpora, "corpora");

}  // namespace kelvora::test_corpora

#include "test_corpora.moc"
