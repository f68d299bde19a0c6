#include "data/store.h"
#include "length_of_run.h"
#include "power_cut_sampler.h"
#include "shell/login_dialog.h"
#include "shell/main_window.h"
#include "shell/program.h"
#include "support/temporary_store.h"
#include "support/test_main.h"

#include <QCoreApplication>
#include <QFile>
#include <QProcess>
#include <QRandomGenerator>
#include <QTest>
#include <QThread>

using namespace Qt::StringLiterals;

namespace kelvora::test_power_cut {

/// The samplers' computer loses its power again and again: after each time the file is sound, every save that the
/// screen had confirmed is there, and of the one in flight there is all or nothing, or the first of its fish.
class TestPowerCut : public QObject {
    Q_OBJECT

    QStringList file() const {
        Connection db(m_path);
        QStringList rows = test::wholeFile(db);
        rows.sort();
        return rows;
    }

    /// The contents that a file may have after some confirmed saves: those, or those and the save in flight.
    static QList<QStringList> allowed(const QStringList& before, int firstOperation, int confirmed) {
        const auto& saves = test::cut::saves();
        const int count = static_cast<int>(saves.size());
        const auto rows = [&](int save) {
            return QStringList(saves.at(static_cast<std::size_t>(save % count)))
                .replaceInStrings(u"%1"_s, QString::number(firstOperation + save / count));
        };
        QStringList sure = before;
        for (int save = 0; save < confirmed; ++save) {
            sure += rows(save);
        }
        QList<QStringList> contents{sure};
        const QStringList underWay = rows(confirmed);
        // Each fish comes with its part of the weight, a third of 0.3 kg.
        const bool inSteps = confirmed % count == count - 1;
        for (int fish = 1; inSteps && fish < underWay.size() - 1; ++fish) {
            contents.append(sure + QStringList(QString(underWay.first()).replace(u"|0.3"_s, u"|0.%1"_s.arg(fish))) +
                            underWay.sliced(1, fish));
        }
        contents.append(sure + underWay);
        for (QStringList& content : contents) {
            content.sort();
        }
        return contents;
    }

    /// Lets the sampler work until the power is cut: in the middle of some write to the disk, or some time behind some
    /// save. Returns the number of saves that were confirmed.
    int workUntilCut(QRandomGenerator& random, bool atWrite) const {
        constexpr int writesOfTwoOperations = 250;
        QProcess sampler;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QString::fromLatin1(test::cut::kWorkplace), m_path);
        if (atWrite) {
            environment.insert(QString::fromLatin1(test::cut::kCutAtWrite),
                               QString::number(1 + random.bounded(writesOfTwoOperations)));
        }
        sampler.setProcessEnvironment(environment);
        sampler.start(QCoreApplication::applicationFilePath(), {u"power_cut"_s});
        const int saves = random.bounded(6);
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

    // On a disk, where a save takes its time: in memory hardly a cut would hit one.
    QTemporaryDir m_folder{QCoreApplication::applicationDirPath() + u"/power-cut-XXXXXX"_s};
    QString m_path = m_folder.filePath(u"kelvora_db.sqlite"_s);

private Q_SLOTS:
    /// The sampler whose power is cut is this executable, started once more with a data file to work on.
    void initTestCase() {
        if (const QString path = qEnvironmentVariable(test::cut::kWorkplace); !path.isEmpty()) {
            test::cut::sampleUntilKilled(path);
        }
    }

    void cutAgainAndAgain() {
        test::TemporaryStore rows;
        rows.addReferenceRows();
        rows.execute("update fish set classinterval = 2");
        QVERIFY(QFile::copy(rows.path(), m_path));
        // A process that is killed leaves its writes to the system, a cut does not: every save waits for the disk (3).
        QCOMPARE(Connection(m_path).query(Sql("pragma synchronous")).text(0, u"synchronous"), u"3"_s);

        QRandomGenerator random(test::seed());
        int confirmed = 0;
        int journals = 0;
        int underWay = 0;
        int parts = 0;
        const int cuts = test::times(15, 300);
        for (int cut = 0; cut < cuts; ++cut) {
            const QStringList before = file();
            const int next = Connection(m_path)
                                 .query(Sql("select coalesce(max(optid), 0) + 1 as n from fishoperation"))
                                 .integer(0, u"n")
                                 .value();
            const int saved = workUntilCut(random, cut % 2 == 0);
            confirmed += saved;
            journals += QFile::exists(m_path + u"-journal"_s) ? 1 : 0;

            // The program starts on the file as the cut left it, without a word.
            test::ScriptedDialogs dialogs;
            QVERIFY(Program(m_path, dialogs).start());
            QCOMPARE(Connection(m_path).query(Sql("pragma integrity_check")).text(0, u"integrity_check"), u"ok"_s);
            const QList<QStringList> contents = allowed(before, next, saved);
            const auto found = contents.indexOf(file());
            QVERIFY2(found >= 0, qPrintable(u"cut %1, %2 saved; file:\n"_s.arg(cut).arg(saved) + file().join(u'\n')));
            underWay += found > 0 ? 1 : 0;
            parts += found > 0 && found < contents.size() - 1 ? 1 : 0;
        }
        qInfo(
            "%d cuts, %d confirmed saves; a journal was left %d times, the save in flight was stored %d times, %d of "
            "them in part (fish)",
            cuts, confirmed, journals, underWay, parts);
        QVERIFY(confirmed > cuts);
    }
};

KELVORA_TEST(TestPowerCut, "power_cut");

}  // namespace kelvora::test_power_cut

#include "test_power_cut.moc"
