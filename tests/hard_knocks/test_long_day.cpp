#include "day.h"
#include "length_of_run.h"
#include "support/test_main.h"

#include <QFile>
#include <QTest>

#include <unistd.h>

using namespace Qt::StringLiterals;

namespace kelvora::test_long_day {

/// A day of a sampler who does one thing after another at all screens, open side by side: after each the file holds
/// what the model says, and in the evening the program is no larger than in the morning.
class TestLongDay : public QObject {
    Q_OBJECT

    /// Megabytes in memory.
    static double resident() {
        QFile file(u"/proc/self/statm"_s);
        const double pages = file.open(QIODevice::ReadOnly) ? file.readAll().split(' ').value(1).toDouble() : 0;
        return pages * static_cast<double>(sysconf(_SC_PAGESIZE)) / (1024 * 1024);
    }

private Q_SLOTS:
    void work() {
        test::TemporaryStore store;
        store.addReferenceRows();
        store.execute("update fish set common_name = ''");
        test::Day day(store.path(), test::seed());
        constexpr int steps = 500;
        double morning = 0;
        std::map<QString, int> done;
        for (int step = 1; step <= steps; ++step) {
            const QString what = day.doSomething();
            ++done[what];
            QStringList file = store.wholeFile();
            file.sort();
            QVERIFY2(file == day.file(), qPrintable(u"step %1, %2; model and file:\n"_s.arg(step).arg(what) +
                                                    test::changes(day.file(), file).join(u'\n')));
            morning = step == steps / 2 ? resident() : morning;
        }
        for (const auto& [what, count] : done) {
            qInfo("%4d x %s", count, qPrintable(what));
        }
        const double evening = resident();
        qInfo("%d rows; %.1f MB at noon, %.1f MB in the evening", static_cast<int>(day.file().size()), morning,
              evening);
#ifndef __SANITIZE_ADDRESS__
        constexpr double rowsOfTheDay = 4;  // MB
        QVERIFY(evening < morning + rowsOfTheDay);
#endif
    }
};

KELVORA_TEST(TestLongDay, "long_day");

}  // namespace kelvora::test_long_day

#include "test_long_day.moc"
