#include "day.h"
#include "length_of_run.h"
#include "support/test_main.h"

#include <QTest>

using namespace Qt::StringLiterals;

namespace kelvora::test_long_day {

/// A day of a sampler who does one thing after another at all screens, open side by side: after each the file holds
/// what the model says.
class TestLongDay : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void work() {
        test::TemporaryStore store;
        store.addReferenceRows();
        store.execute("update fish set common_name = ''");
        test::Day day(store.path(), test::seed());
        for (int step = 1; step <= 500; ++step) {
            const QString what = day.doSomething();
            QStringList file = store.wholeFile();
            file.sort();
            QVERIFY2(file == day.file(), qPrintable(u"step %1, %2; model and file:\n"_s.arg(step).arg(what) +
                                                    test::changes(day.file(), file).join(u'\n')));
        }
    }
};

KELVORA_TEST(TestLongDay, "long_day");

}  // namespace kelvora::test_long_day

#include "test_long_day.moc"
