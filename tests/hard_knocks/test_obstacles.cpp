#include "desk.h"
#include "read_only_folder.h"
#include "reports/report_chart.h"
#include "support/full_disk.h"
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
        QTest::addColumn<test::Filled>("filled");
        QTest::addColumn<QStringList>("changes");
        const test::Filled deletion = {"",
                                       test::Search,
                                       "Species Composition",
                                       "",
                                       "Criterion = State/Province; Value = Alpha; SEARCH",
                                       "Delete group"};
        QTest::newRow("a single species")
            << test::kSingleSpecies
            << QStringList{u"- group_main|1|1|Single species|30"_s, u"+ group_composition|1|3|1|4|4"_s,
                           u"+ group_main|1|1|Single species|34"_s};
        QTest::newRow("delete a group") << deletion
                                        << QStringList{u"- group_composition|1|1|1|30|30"_s,
                                                       u"- group_main|1|1|Single species|30"_s};
    }
    void fullDisk() {
        QFETCH(test::Filled, filled);
        QFETCH(QStringList, changes);
        bool reached = true;
        int fromWrite = 0;
        while (reached) {
            test::TemporaryStore store;
            store.addSmallYear();
            test::Desk desk(store.path());
            desk.session.lastSavedOperation = 1;
            const test::ScreenDriver frame = desk.fill(filled);
            const QStringList before = store.wholeFile();
            reached = false;
            test::interceptWrites([left = ++fromWrite, &reached](int, const void*, std::size_t size, off_t) mutable {
                reached = reached || --left == 0;
                return reached ? 0 : size;
            });
            frame.press(QString::fromLatin1(filled.button));
            test::leaveSystemCallsAlone();
            if (reached) {
                QVERIFY2(desk.dialogs.said.join(u'\n').contains(u"the disk is full"),
                         qPrintable(desk.dialogs.said.join(u'\n')));
                QCOMPARE(store.wholeFile(), before);
                frame.press(QString::fromLatin1(filled.button));
            }
            QCOMPARE(test::changes(before, store.wholeFile()), changes);
        }
        qInfo("the disk was full at %d different writes", fromWrite - 1);
        QVERIFY(fromWrite > 5);
    }

    /// A save whose last step reports an error is stored or not, and the screen says which.
    void uncertainCommits_data() {
        QTest::addColumn<std::function<void()>>("fault");
        QTest::addColumn<QString>("said");
        const auto kept = [](int times) {
            return [times] { test::interceptRemovals([left = times]() mutable { return left-- > 0 ? EIO : 0; }); };
        };
        const auto row = [](const char* name, const std::function<void()>& fault, const QString& said) {
            QTest::newRow(name) << fault << said;
        };
        row("the folder is not brought to the disk", &test::failFolderSyncs, u"Insert Complete"_s);
        row("the journal is not removed", kept(1), u"Nothing was stored or deleted: the disk reported an error."_s);
        row("the journal is never removed", kept(1'000),
            u"It is not known whether this was stored or deleted: the disk reported an error. Please look it up "
            "before you do it again."_s);
        row(
            "the quota is used up",
            [] { test::interceptWrites([](int, const void*, std::size_t, off_t) { return 0; }, EDQUOT); },
            u"Nothing was stored or deleted: your share of the disk is used up."_s);
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
