#include "desk.h"
#include "reports/report_chart.h"
#include "support/obstacles.h"
#include "support/test_main.h"
#include "system_calls.h"

#include <QFile>
#include <QTest>

using namespace Qt::StringLiterals;

namespace kelvora::test_obstacles {

/// A disk fails a small save at each of its writes, or at its end; an export meets it. What was not done is said with
/// its reason, file and screen stay as they were, and it works once the obstacle is gone.
class TestObstacles : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void fullDisk() {
        bool reached = true;
        for (int fromWrite = 1; reached; ++fromWrite) {
            test::TemporaryStore store;
            store.addSmallYear();
            test::Desk desk(store.path());
            desk.session.lastSavedOperation = 1;
            const auto frame = desk.open(test::Composition, u"Species Composition"_s, u"Single species"_s);
            frame.enter(QLatin1String(test::kSingleSpecies));
            const QStringList before = store.wholeFile();
            reached = false;
            test::interceptWrites([left = fromWrite, &reached](int, const void*, std::size_t size, off_t) mutable {
                reached = reached || --left == 0;
                return reached ? 0 : size;
            });
            frame.press(u"Add"_s);
            test::leaveSystemCallsAlone();
            if (reached) {
                const QString said = desk.dialogs.said.join(u'\n');
                QVERIFY2(said.contains(u"the disk is full"), qPrintable(said));
                QCOMPARE(store.wholeFile(), before);
                QCOMPARE(frame.text(u"Weight"_s), u"4"_s);
                frame.press(u"Add"_s);
            }
            QCOMPARE(test::changes(before, store.wholeFile()),
                     (QStringList{u"- group_main|1|1|Single species|30"_s, u"+ group_composition|1|3|1|4|4"_s,
                                  u"+ group_main|1|1|Single species|34"_s}));
            QVERIFY(reached || fromWrite > 5);
        }
    }

    /// A save whose last step reports an error is stored or not, and the screen says which.
    void uncertainCommits() {
        const auto kept = [](int times) {
            test::interceptRemovals([left = times]() mutable { return left-- > 0 ? EIO : 0; });
        };
        const std::vector<std::pair<std::function<void()>, QString>> all = {
            {&test::failFolderSyncs, u"Insert Complete"_s},
            {[&] { kept(1); }, u"Nothing was stored or deleted: the disk reported an error."_s},
            {[&] { kept(1'000); },
             u"It is not known whether this was stored or deleted: the disk reported an error. Please look it up "
             "before you do it again."_s},
            {[] { test::interceptWrites([](int, const void*, std::size_t, off_t) { return 0; }, EDQUOT); },
             u"Nothing was stored or deleted: your share of the disk is used up."_s}};
        for (const auto& [fault, said] : all) {
            test::TemporaryStore store;
            store.addSmallYear();
            test::Desk desk(store.path());
            const test::ScreenDriver hand = desk.open(test::Operations);
            hand.enter(QLatin1String(test::kOperation));
            const QStringList before = store.wholeFile();
            fault();
            hand.press(u"SAVE"_s);
            test::leaveSystemCallsAlone();
            QCOMPARE(desk.dialogs.said, QStringList{u"Kelvora: "_s + said});
            if (said != u"Insert Complete") {
                QCOMPARE(store.wholeFile(), before);
                hand.press(u"SAVE"_s);
            }
            QCOMPARE(desk.dialogs.said.last(), u"Kelvora: Insert Complete"_s);
            QCOMPARE(test::changes(before, store.wholeFile()).size(), 1);
        }
    }

    void exports() {
        test::TemporaryStore store;
        store.addSmallYear();
        test::Desk desk(store.path());
        const test::ScreenDriver hand = desk.open(test::CatchReport);
        hand.enter(u"Year = 2004; Search"_s);
        for (const QString& name : {u"catch.csv"_s, u"catch.png"_s, u"catch.svg"_s}) {
            const auto writeTo = [&](const QString& path) {
                desk.dialogs.path = path;
                name.endsWith(u"csv") ? hand.press(u"EXPORT"_s)
                                      : hand.root()->findChild<ReportChart*>()->actions().at(1)->trigger();
                return std::exchange(desk.dialogs.said, {}).join(u'\n');
            };
            const QString path = store.file(name);
            const auto written = [&] {
                QFile file(path);
                return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
            };
            QCOMPARE(writeTo(path), QString());
            const QByteArray whole = written();
            {
                const test::Obstacle full = test::fullDisk(static_cast<rlim_t>(whole.size() / 2));
                QVERIFY(writeTo(path).contains(path));
            }
            {
                const test::Obstacle folder = test::readOnlyFolder(store.file({}));
                QVERIFY(writeTo(path).contains(path));
            }
            QCOMPARE(written(), whole);
            // Nothing that is exported takes the place of the data themselves.
            const QStringList data = store.wholeFile();
            QVERIFY(writeTo(store.path()).contains(u"this is a data file"));
            QCOMPARE(store.wholeFile(), data);
        }
    }
};

KELVORA_TEST(TestObstacles, "obstacles");

}  // namespace kelvora::test_obstacles

#include "test_obstacles.moc"
