#include "day.h"
#include "shell/login_dialog.h"
#include "shell/program.h"
#include "support/test_main.h"
#include "system_calls.h"

#include <QProcess>
#include <QTest>
#include <QThread>

#include <csignal>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace kelvora::test_long_day {

/// A sampler does one thing after another at all screens, open side by side: after each the file holds what the model
/// says. Then the computer loses its power again and again: after each time the file is sound, everything that the
/// screens had confirmed is there, and of what was under way there is all or nothing, or its first parts.
class TestLongDay : public QObject {
    Q_OBJECT

    static QStringList sorted(QStringList rows) {
        rows.sort();
        return rows;
    }

    /// Cuts the power at a write to the disk, of which half arrives, or, where that falls on the removal of a journal,
    /// just before it.
    static void cutAtWrite(int which) {
        static int left = 0;
        left = which;
        test::interceptWrites([](int file, const void* bytes, std::size_t size, off_t at) {
            if (--left == 0) {
                static_cast<void>(pwrite(file, bytes, size / 2, at));
                kill(getpid(), SIGKILL);
            }
            return 0;
        });
        test::interceptRemovals([] { return --left == 0 ? kill(getpid(), SIGKILL) : 0; });
    }

    /// Lets a sampler work until the power is cut: in the middle of a write to the disk, or some time behind some save.
    /// Returns how many things were done.
    static int workUntilCut(const QString& path, QRandomGenerator& random, quint32 seed, bool atWrite) {
        constexpr int writesOfSomeSaves = 250;
        const int cut = atWrite ? 1 + random.bounded(writesOfSomeSaves) : 0;
        const int saves = random.bounded(8);
        qputenv("KELVORA_SAMPLER", u"%1|%2|%3"_s.arg(path).arg(seed).arg(cut).toUtf8());
        QProcess sampler;
        sampler.start(QCoreApplication::applicationFilePath(), {u"long_day"_s});
        const auto done = [&] { return static_cast<int>(sampler.peek(sampler.bytesAvailable()).count("saved\n")); };
        while (!atWrite && done() < saves && sampler.waitForReadyRead()) {
        }
        if (!atWrite) {
            QThread::usleep(static_cast<unsigned long>(random.bounded(60'000)));
            sampler.kill();
        }
        sampler.waitForFinished(120'000);
        if (sampler.exitCode() != SIGKILL || sampler.peek(sampler.bytesAvailable()).contains("FAIL")) {
            qFatal("the sampler gave up: %s%s", sampler.readAll().constData(),
                   sampler.readAllStandardError().constData());
        }
        return done();
    }

private Q_SLOTS:
    /// The sampler whose power is cut is this executable, started once more with a data file to work on.
    void initTestCase() {
        const QStringList given = qEnvironmentVariable("KELVORA_SAMPLER").split(u'|');
        if (given.size() < 3) {
            return;
        }
        test::Day day(given[0], given[1].toUInt());
        cutAtWrite(given[2].toInt());
        while (true) {
            day.doSomething();
            if (write(STDOUT_FILENO, "saved\n", 6) < 0) {
                _exit(1);
            }
        }
    }

    void work() {
        test::TemporaryStore store;
        store.addReferenceRows();
        store.execute("update fish set common_name = ''");
        test::Day day(store.path(), test::seed());
        for (int step = 1; step <= 500; ++step) {
            const QString what = day.doSomething();
            const QStringList model = day.contents().last();
            const QStringList file = sorted(store.wholeFile());
            QVERIFY2(file == model, qPrintable(u"step %1, %2; model and file:\n"_s.arg(step).arg(what) +
                                               test::changes(model, file).join(u'\n')));
        }
    }

    void powerCuts() {
        test::TemporaryStore rows;
        rows.addReferenceRows();
        rows.execute("update fish set common_name = ''");
        // On a disk, where a save takes its time: in memory hardly a cut would hit one. The sampler makes no folder: it
        // is killed, and would leave it behind.
        const QTemporaryDir folder(QCoreApplication::applicationDirPath() + u"/power-cut-XXXXXX"_s);
        const QString path = folder.filePath(u"kelvora_db.sqlite"_s);
        QVERIFY(QFile::copy(rows.path(), path));
        // A process that is killed leaves its writes to the system, a cut does not: every save waits for the disk (3).
        QCOMPARE(Connection(path).query(Sql("pragma synchronous")).text(0, u"synchronous"), u"3"_s);

        QRandomGenerator random(test::seed());
        int all = 0;
        const int cuts = test::times(15, 300);
        for (int cut = 0; cut < cuts; ++cut) {
            const QString before = path + u".before"_s;
            QFile::remove(before);
            QVERIFY(QFile::copy(path, before));
            const quint32 seed = random.generate() / 2;
            const int done = workUntilCut(path, random, seed, cut % 2 == 0);
            all += done;
            // The program starts on the file as the cut left it, without a word.
            test::PlannedDialogs dialogs;
            QVERIFY(Program(path, dialogs).start());
            Connection db(path);
            QCOMPARE(test::rows(db, Sql("pragma integrity_check")), QStringList{u"ok"_s});
            // The same sampler, whom nothing interrupts, does the same and what was under way.
            test::Day same(before, seed);
            for (int step = 0; step <= done; ++step) {
                same.doSomething();
            }
            const QStringList file = sorted(test::wholeFile(db));
            const auto found = same.contents().indexOf(file);
            QVERIFY2(found >= 0, qPrintable(u"cut %1, %2 done:\n"_s.arg(cut).arg(done) +
                                            test::changes(same.contents().first(), file).join(u'\n')));
        }
        QVERIFY(all > cuts);
    }
};

KELVORA_TEST(TestLongDay, "long_day");

}  // namespace kelvora::test_long_day

#include "test_long_day.moc"
