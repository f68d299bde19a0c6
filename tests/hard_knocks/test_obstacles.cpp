#include "desk.h"
#include "reports/report_chart.h"
#include "support/full_disk.h"
#include "support/read_only_folder.h"
#include "support/test_main.h"
#include "system_calls.h"

#include <QFile>
#include <QTest>

using namespace Qt::StringLiterals;

namespace kelvora::test_obstacles {

/// A small save, a deletion and an export meet a disk that fails them: what was not done is said with its reason, file
/// and screen stay as they were, and it works once the obstacle is gone.
class TestObstacles : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void fullDisk_data() {
        QTest::addColumn<QStringList>("changes");
        QTest::newRow("Add") << QStringList{u"- group_main|1|1|Single species|30"_s, u"+ group_composition|1|3|1|4|4"_s,
                                            u"+ group_main|1|1|Single species|34"_s};
        QTest::newRow("X") << QStringList{u"- group_composition|1|1|1|30|30"_s,
                                          u"- group_main|1|1|Single species|30"_s};
    }
    void fullDisk() {
        QFETCH(QStringList, changes);
        const QString button = QString::fromLatin1(QTest::currentDataTag());
        bool reached = true;
        for (int fromWrite = 1; reached; ++fromWrite) {
            test::TemporaryStore store;
            store.addSmallYear();
            test::Desk desk(store.path());
            desk.session.lastSavedOperation = 1;
            const test::ScreenDriver frame = desk.fill(test::kSingleSpecies);
            const QStringList before = store.wholeFile();
            reached = false;
            test::interceptWrites([left = fromWrite, &reached](int, const void*, std::size_t size, off_t) mutable {
                reached = reached || --left == 0;
                return reached ? 0 : size;
            });
            frame.press(button);
            test::leaveSystemCallsAlone();
            if (reached) {
                const QString said = desk.dialogs.said.join(u'\n');
                QVERIFY2(said.contains(u"the disk is full"), qPrintable(said));
                QCOMPARE(store.wholeFile(), before);
                QCOMPARE(frame.text(u"Weight"_s), u"4"_s);
                frame.press(button);
            }
            QCOMPARE(test::changes(before, store.wholeFile()), changes);
            QVERIFY(reached || fromWrite > 5);
        }
    }

    /// A save whose last step reports an error is stored or not, and the screen says which.
    void uncertainCommits_data() {
        QTest::addColumn<std::function<void()>>("fault");
        QTest::addColumn<QString>("said");
        const auto kept = [](int times) {
            return [times] { test::interceptRemovals([left = times]() mutable { return left-- > 0 ? EIO : 0; }); };
        };
        const auto full = [] { test::interceptWrites([](int, const void*, std::size_t, off_t) { return 0; }, EDQUOT); };
        using Fault = std::function<void()>;
        QTest::newRow("the folder is not brought to the disk") << Fault(&test::failFolderSyncs) << u"Insert Complete"_s;
        QTest::newRow("the journal is not removed")
            << Fault(kept(1)) << u"Nothing was stored or deleted: the disk reported an error."_s;
        QTest::newRow("the journal is never removed")
            << Fault(kept(1'000))
            << u"It is not known whether this was stored or deleted: the disk reported an error. "
               "Please look it up before you do it again."_s;
        QTest::newRow("the quota is used up")
            << Fault(full) << u"Nothing was stored or deleted: your share of the disk is used up."_s;
    }
    void uncertainCommits() {
        QFETCH(std::function<void()>, fault);
        QFETCH(QString, said);
        test::TemporaryStore store;
        store.addSmallYear();
        test::Desk desk(store.path());
        const test::ScreenDriver frame = desk.fill(test::kOperation);
        const QStringList before = store.wholeFile();
        fault();
        frame.press(u"SAVE"_s);
        test::leaveSystemCallsAlone();
        QCOMPARE(desk.dialogs.said, QStringList{u"Kelvora: "_s + said});
        const bool stored = said == u"Insert Complete";
        QCOMPARE(store.wholeFile().size(), before.size() + (stored ? 1 : 0));
        // The screen goes on working.
        if (!stored) {
            frame.press(u"SAVE"_s);
        }
        QCOMPARE(desk.dialogs.said.last(), u"Kelvora: Insert Complete"_s);
        QCOMPARE(test::changes(before, store.wholeFile()).size(), 1);
    }

    void exports_data() {
        QTest::addColumn<QString>("file");
        for (const char* file : {"catch.csv", "catch.png", "catch.svg"}) {
            QTest::newRow(file) << QString::fromLatin1(file);
        }
    }
    void exports() {
        QFETCH(QString, file);
        test::TemporaryStore store;
        store.addSmallYear();
        test::Desk desk(store.path());
        const test::ScreenDriver hand = desk.open(test::CatchReport);
        hand.enter(u"Year = 2004; Search"_s);
        const auto writeTo = [&](const QString& path) {
            desk.dialogs.path = path;
            file.endsWith(u"csv") ? hand.press(u"EXPORT"_s)
                                  : hand.root()->findChild<ReportChart*>()->actions().at(1)->trigger();
            return std::exchange(desk.dialogs.said, {}).join(u'\n');
        };
        const auto written = [&] {
            QFile result(*desk.dialogs.path);
            return result.open(QIODevice::ReadOnly) ? result.readAll() : QByteArray();
        };
        const QString path = store.file(file);
        QCOMPARE(writeTo(path), QString());
        const QByteArray whole = written();
        {
            const test::FullDisk full(static_cast<rlim_t>(whole.size() / 2));
            QVERIFY(writeTo(path).contains(path));
        }
        {
            const test::ReadOnlyFolder folder(store.file({}));
            QVERIFY(writeTo(path).contains(path));
        }
        QCOMPARE(written(), whole);
        QVERIFY(QFile::remove(path));
        QCOMPARE(writeTo(path), QString());
        QCOMPARE(written(), whole);
        // Nothing that is exported takes the place of the data themselves.
        const QStringList data = store.wholeFile();
        QVERIFY(writeTo(store.path()).contains(u"this is a data file"));
        QCOMPARE(store.wholeFile(), data);
    }
};

KELVORA_TEST(TestObstacles, "obstacles");

}  // namespace kelvora::test_obstacles

#include "test_obstacles.moc"
