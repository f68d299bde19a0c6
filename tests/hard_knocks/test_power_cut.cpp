#include "day.h"
#include "length_of_run.h"
#include "shell/login_dialog.h"
#include "shell/program.h"
#include "support/test_main.h"
#include "system_calls.h"

#include <QFile>
#include <QProcess>
#include <QTest>
#include <QThread>

#include <csignal>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace kelvora::test_power_cut {

/// The samplers' computer loses its power again and again: after each time the file is sound, everything that the
/// screens had confirmed is there, and of what was under way there is all or nothing, or its first parts.
class TestPowerCut : public QObject {
    Q_OBJECT

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
            return size;
        });
        test::interceptRemovals([] { return --left == 0 ? kill(getpid(), SIGKILL) : 0; });
    }

    /// Lets a sampler work until the power is cut: in the middle of a write to the disk, or some time behind some save.
    /// Returns how many things were done.
    int workUntilCut(QRandomGenerator& random, quint32 seed, bool atWrite) const {
        constexpr int writesOfSomeSaves = 250;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(u"KELVORA_WORKPLACE"_s, m_path);
        environment.insert(u"KELVORA_SEED"_s, QString::number(seed));
        environment.insert(u"KELVORA_CUT_AT_WRITE"_s,
                           QString::number(atWrite ? 1 + random.bounded(writesOfSomeSaves) : 0));
        QProcess sampler;
        sampler.setProcessEnvironment(environment);
        sampler.start(QCoreApplication::applicationFilePath(), {u"power_cut"_s});
        const int saves = random.bounded(8);
        QByteArray out;
        while ((atWrite || out.count("saved\n") < saves) && sampler.waitForReadyRead(30'000)) {
            out += sampler.readAllStandardOutput();
        }
        if (!atWrite) {
            QThread::usleep(static_cast<unsigned long>(random.bounded(60'000)));
            sampler.kill();
        }
        sampler.waitForFinished();
        out += sampler.readAllStandardOutput();
        if (sampler.exitStatus() != QProcess::CrashExit || out.contains("FAIL")) {
            qFatal("the sampler gave up: %s%s", out.constData(), sampler.readAllStandardError().constData());
        }
        return static_cast<int>(out.count("saved\n"));
    }

    QString m_path;

private Q_SLOTS:
    /// The sampler whose power is cut is this executable, started once more with a data file to work on.
    void initTestCase() {
        const QString path = qEnvironmentVariable("KELVORA_WORKPLACE");
        if (path.isEmpty()) {
            return;
        }
        test::Day day(path, test::seed());
        cutAtWrite(qEnvironmentVariableIntValue("KELVORA_CUT_AT_WRITE"));
        while (true) {
            day.doSomething();
            if (write(STDOUT_FILENO, "saved\n", 6) < 0) {
                _exit(1);
            }
        }
    }

    void cutAgainAndAgain() {
        test::TemporaryStore rows;
        rows.addReferenceRows();
        rows.execute("update fish set common_name = ''");
        // On a disk, where a save takes its time: in memory hardly a cut would hit one. The sampler makes no folder: it
        // is killed, and would leave it behind.
        const QTemporaryDir folder(QCoreApplication::applicationDirPath() + u"/power-cut-XXXXXX"_s);
        m_path = folder.filePath(u"kelvora_db.sqlite"_s);
        QVERIFY(QFile::copy(rows.path(), m_path));
        // A process that is killed leaves its writes to the system, a cut does not: every save waits for the disk (3).
        QCOMPARE(Connection(m_path).query(Sql("pragma synchronous")).text(0, u"synchronous"), u"3"_s);

        QRandomGenerator random(test::seed());
        int all = 0;
        int underWay = 0;
        const int cuts = test::times(15, 300);
        for (int cut = 0; cut < cuts; ++cut) {
            const QString before = m_path + u".before"_s;
            QFile::remove(before);
            QVERIFY(QFile::copy(m_path, before));
            const quint32 seed = random.generate() / 2;
            const int done = workUntilCut(random, seed, cut % 2 == 0);
            all += done;
            // The program starts on the file as the cut left it, without a word.
            test::PlannedDialogs dialogs;
            QVERIFY(Program(m_path, dialogs).start());
            Connection db(m_path);
            QCOMPARE(test::rows(db, Sql("pragma integrity_check")), QStringList{u"ok"_s});
            // The same sampler, whom nothing interrupts, does the same and what was under way.
            test::Day same(before, seed);
            for (int step = 0; step <= done; ++step) {
                same.doSomething();
            }
            QStringList file = test::wholeFile(db);
            file.sort();
            const auto found = same.contents().indexOf(file);
            QVERIFY2(found >= 0, qPrintable(u"cut %1, %2 done:\n"_s.arg(cut).arg(done) +
                                            test::changes(same.contents().first(), file).join(u'\n')));
            underWay += found > 0 ? 1 : 0;
        }
        qInfo("%d cuts in %d things done; what was under way was stored %d times", cuts, all, underWay);
        QVERIFY(all > cuts);
    }
};

KELVORA_TEST(TestPowerCut, "power_cut");

}  // namespace kelvora::test_power_cut

#include "test_power_cut.moc"
