#include "fuzz/targets.h"
#include "support/test_main.h"

#include <QDirIterator>
#include <QFile>
#include <QTest>

using namespace Qt::StringLiterals;

namespace kelvora::test_corpora {

using Target = void (*)(const QByteArray&);

/// What the fuzz targets check, on every file of their corpora: hostile bytes that were thought of, and those that a
/// fuzzer found.
class TestCorpora : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void holds_data() {
        QTest::addColumn<Target>("target");
        QTest::addColumn<QString>("path");
        const std::vector<std::pair<const char*, Target>> targets = {
            {"csv", &fuzz::tryCsv}, {"sql", &fuzz::trySql}, {"numbers", &fuzz::tryNumbers}};
        for (const auto& [name, target] : targets) {
            QDirIterator files(u"" KELVORA_CORPORA "/"_s + QLatin1String(name), QDir::Files);
            QVERIFY(files.hasNext());
            while (files.hasNext()) {
                const QString path = files.next();
                QTest::newRow(qPrintable(QLatin1String(name) + u'/' + files.fileName())) << target << path;
            }
        }
    }
    void holds() {
        QFETCH(Target, target);
        QFETCH(QString, path);
        QFile file(path);
        QVERIFY(file.open(QIODevice::ReadOnly));
        target(file.readAll());
    }
};

KELVORA_TEST(TestCorpora, "corpora");

}  // namespace kelvora::test_corpora

#include "test_corpora.moc"
