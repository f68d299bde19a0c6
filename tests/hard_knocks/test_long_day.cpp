#include "day_sampler.h"
#include "length_of_run.h"
#include "support/test_main.h"

#include <QFile>
#include <QTest>

#include <unistd.h>

using namespace Qt::StringLiterals;

namespace kelvora::test_long_day {

/// A day of a sampler who does one thing after another at all screens, open side by side: after each the file holds
/// what a model of its own says, in the evening the reports do too, and the program is no larger than in the morning.
class TestLongDay : public QObject {
    Q_OBJECT

    /// Megabytes in memory.
    static double resident() {
        QFile file(u"/proc/self/statm"_s);
        if (!file.open(QIODevice::ReadOnly)) {
            return 0;
        }
        constexpr double megabyte = 1024.0 * 1024.0;
        return file.readAll().split(' ').value(1).toDouble() * static_cast<double>(sysconf(_SC_PAGESIZE)) / megabyte;
    }

private Q_SLOTS:
    void work() {
        test::TemporaryStore store;
        test::day::Sampler sampler(store, test::seed());
        constexpr int steps = 500;
        constexpr int morning = 250;
        double before = 0;
        std::map<QString, int> done;
        for (int step = 1; step <= steps; ++step) {
            const QString what = sampler.doSomething();
            ++done[what];
            QStringList file = store.wholeFile();
            file.sort();
            const QStringList model = sampler.model().file();
            QVERIFY2(file == model, qPrintable(u"step %1, %2; model and file:\n"_s.arg(step).arg(what) +
                                               test::changes(model, file).join(u'\n')));
            before = step == morning ? resident() : before;
        }
        for (const auto& [what, count] : done) {
            qInfo("%4d x %s", count, qPrintable(what));
        }
        checkReports(sampler);
        const double after = resident();
        qInfo("%d rows; %.1f MB after %d steps, %.1f MB after %d", static_cast<int>(store.wholeFile().size()), before,
              morning, after, steps);
#ifndef __SANITIZE_ADDRESS__
        constexpr double rowsOfTheDay = 4;  // MB
        QVERIFY(after < before + rowsOfTheDay);
#endif
    }

private:
    static void checkReports(test::day::Sampler& sampler) {
        for (const int year : {2004, 2005}) {
            const QStringList expected = sampler.model().catchByState(year);
            if (!expected.isEmpty()) {
                const auto hand =
                    sampler.open(u"Fishing Information"_s, u"Number of record and estimate total catch"_s);
                hand.enter(u"Year = %1; Search"_s.arg(year));
                QCOMPARE(hand.rows(u"Result"_s), expected);
            }
        }
        for (const auto& operation : sampler.model().rows({u"operation"_s})) {
            const QStringList expected = sampler.model().composition(operation[1]);
            if (expected.isEmpty()) {
                continue;
            }
            const auto hand = sampler.openSearch(operation[1], u"Species Composition"_s);
            QCOMPARE(hand.text(u"No."_s), operation[1]);
            QCOMPARE(hand.rows(u"Composition"_s), expected);
        }
    }
};

KELVORA_TEST(TestLongDay, "long_day");

}  // namespace kelvora::test_long_day

#include "test_long_day.moc"
