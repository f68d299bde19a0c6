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

namespace kelvora::test_power_cut_sampler {

/// The sampler whose power is cut: the same executable, started once more with a data file to work on.
class Sampler : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void work() {
        const QString path = qEnvironmentVariable(test::cut::kWorkplace);
        if (path.isEmpty()) {
            QSKIP("works for the test of the power cut only");
        }
        test::cut::sampleUntilKilled(path);
    }
};

KELVORA_TEST(Sampler, "sampler_of_the_power_cut");

}  // namespace kelvora::test_power_cut_sampler

namespace kelvora::test_power_cut {

/// The samplers' computer loses its power again and again: after each time the file is sound, every save that the
/// screen had confirmed is there, and of the one in flight there is all or nothing, or the first of its fish.
class TestPowerCut : public QObject {
    Q_OBJECT

    /// What is stored of the operations, each row beginning with its kind.
    static QStringList rowsOf(const QString& path) {
        QStringList rows;
        Connection db(path);
        const auto add = [&](const QString& kind, const Sql& sql) {
            for (const auto& row : db.query(sql).rows) {
                QStringList values{kind};
                for (const QVariant& value : row) {
                    values.append(displayText(value));
                }
                rows.append(values.join(u'|'));
            }
        };
        add(u"operation"_qs, Sql("select optid, estotal, vesselid from fishoperation"));
        add(u"group"_qs, Sql("select optid, groupid, groupname, totalsampling from group_main"));
        add(u"composition"_qs, Sql("select optid, groupid, spid, totalweight, estotal from group_composition"));
        add(u"length"_qs, Sql("select optid, spid, weight from length"));
        add(u"class"_qs, Sql("select optid, spid, lower1, frequency1 from length_detail"));
        add(u"gonad"_qs, Sql("select optid, spid, samplingw from gonad"));
        add(u"fish"_qs, Sql("select optid, spid, samplingno, tl, bw, gw from gonad_detail"));
        rows.sort();
        return rows;
    }

    /// The contents that a file may have after some confirmed saves: those, or those and the save in flight.
    static QList<QStringList> allowed(const QStringList& before, int firstOperation, int confirmed) {
        QStringList sure = before;
        std::vector<test::cut::Save> saves;
        for (int operation = firstOperation; static_cast<int>(saves.size()) <= confirmed; ++operation) {
            const auto further = test::cut::savesOf(operation);
            saves.insert(saves.end(), further.begin(), further.end());
        }
        for (int i = 0; i < confirmed; ++i) {
            sure += saves[static_cast<std::size_t>(i)].rows;
        }
        QList<QStringList> contents{sure};
        const test::cut::Save& underWay = saves[static_cast<std::size_t>(confirmed)];
        for (qsizetype stored = underWay.whole ? underWay.rows.size() : 1; stored <= underWay.rows.size(); ++stored) {
            contents.append(sure + underWay.rows.first(stored));
        }
        for (QStringList& content : contents) {
            content.sort();
        }
        return contents;
    }

    /// A moment at which the power is cut: in the middle of some write to the disk, or some time behind some save.
    struct Moment {
        int write = 0;  ///< 0 if it is a matter of time
        int saves = 0;
        int microseconds = 0;
    };

    static Moment chosen(QRandomGenerator& random, bool byWrite) {
        constexpr int writesOfTwoOperations = 250;
        return byWrite ? Moment{.write = 1 + random.bounded(writesOfTwoOperations)}
                       : Moment{.saves = random.bounded(6), .microseconds = random.bounded(60'000)};
    }

    /// Lets the sampler work until the power is cut. Returns the number of saves that were confirmed.
    int workUntil(const Moment& moment) const {
        QProcess sampler;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QString::fromLatin1(test::cut::kWorkplace), m_path);
        if (moment.write > 0) {
            environment.insert(QString::fromLatin1(test::cut::kCutAtWrite), QString::number(moment.write));
        }
        sampler.setProcessEnvironment(environment);
        sampler.start(QCoreApplication::applicationFilePath(), {u"sampler_of_the_power_cut"_qs});
        QByteArray out;
        while ((moment.write > 0 || out.count("saved\n") < moment.saves) && sampler.waitForReadyRead(30'000)) {
            out += sampler.readAllStandardOutput();
        }
        if (moment.write == 0) {
            QThread::usleep(static_cast<unsigned long>(moment.microseconds));
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
    QTemporaryDir m_folder{QCoreApplication::applicationDirPath() + u"/power-cut-XXXXXX"_qs};
    QString m_path = m_folder.filePath(u"kelvora_db.sqlite"_qs);

private Q_SLOTS:
    void cutAgainAndAgain() {
        test::TemporaryStore rows;
        rows.addReferenceRows();
        rows.execute("update fish set classinterval = 2");
        QVERIFY(QFile::copy(rows.path(), m_path));

        QRandomGenerator random(test::seed());
        int confirmed = 0;
        int journals = 0;
        int underWay = 0;
        int parts = 0;
        const int cuts = test::times(15, 300);
        for (int cut = 0; cut < cuts; ++cut) {
            const QStringList before = rowsOf(m_path);
            const int next = Connection(m_path)
                                 .query(Sql("select coalesce(max(optid), 0) + 1 as n from fishoperation"))
                                 .integer(0, u"n")
                                 .value();
            const int saved = workUntil(chosen(random, cut % 2 == 0));
            confirmed += saved;
            journals += QFile::exists(m_path + u"-journal"_qs) ? 1 : 0;

            // The program starts on the file as the cut left it, without a word.
            test::ScriptedDialogs dialogs;
            QVERIFY(Program(m_path, dialogs).start());
            QCOMPARE(Connection(m_path).query(Sql("pragma integrity_check")).text(0, u"integrity_check"), u"ok"_qs);
            const QList<QStringList> contents = allowed(before, next, saved);
            const auto found = contents.indexOf(rowsOf(m_path));
            if (found < 0) {
                qWarning().noquote() << "cut" << cut << "saved" << saved << "\nfile:\n"
                                     << rowsOf(m_path).join(u'\n') << "\nconfirmed:\n"
                                     << contents.first().join(u'\n');
            }
            QVERIFY(found >= 0);
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
