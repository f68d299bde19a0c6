#include "desk.h"
#include "reports/report_chart.h"
#include "shell/login_dialog.h"
#include "support/obstacles.h"
#include "support/test_main.h"
#include "system_calls.h"

#include <QApplication>
#include <QLabel>
#include <QProgressDialog>
#include <QPushButton>
#include <QTest>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace kelvora::test_obstacles {

/// A disk fails a small save at each of its writes, or at its end; an export meets it; another program holds the data
/// file. What was not done is said with its reason, file and screen stay as they were, and it works once the obstacle
/// is gone.
class TestObstacles : public QObject {
    Q_OBJECT

    static QPushButton* cancelOfBox() {
        const QWidget* box = QApplication::activeModalWidget();
        return qobject_cast<const QProgressDialog*>(box) == nullptr ? nullptr : box->findChild<QPushButton*>();
    }

    /// Weighs a species while the disk is at fault, and once more if that failed. Says what was said at first.
    static void weighOn(const std::function<void()>& fault, QString& said) {
        test::DeskOfSmallYear year;
        const auto frame = year.desk.open(test::Composition, u"Species Composition"_s, u"Single species"_s);
        frame.enter(QLatin1String(test::kSingleSpecies));
        const QStringList before = year.store.wholeFile();
        fault();
        frame.press(u"Add"_s);
        test::leaveSystemCallsAlone();
        said = std::exchange(year.desk.dialogs.said, {}).join(u'\n');
        if (!said.isEmpty()) {
            QCOMPARE(year.store.wholeFile(), before);
            QCOMPARE(frame.text(u"Weight"_s), u"4"_s);
            frame.press(u"Add"_s);
        }
        QCOMPARE(year.desk.dialogs.said, QStringList());
        QCOMPARE(test::changes(before, year.store.wholeFile()),
                 (QStringList{u"- group_main|1|1|Single species|30"_s, u"+ group_composition|1|3|1|4|4"_s,
                              u"+ group_main|1|1|Single species|34"_s}));
    }

private Q_SLOTS:
    /// A save whose last step reports an error is stored or not, and the screen says which.
    void failingDisk() {
        const QString nothing = u"Kelvora: Nothing was stored or deleted: "_s;
        QString said = nothing;
        int writes = 0;
        for (; !said.isEmpty(); ++writes) {
            const auto full = [left = writes](int, const void*, std::size_t, off_t) mutable {
                return left-- > 0 ? 0 : ENOSPC;
            };
            weighOn([&] { test::interceptWrites(full); }, said);
            QVERIFY2(said.isEmpty() || said.contains(u"the disk is full"_s), qPrintable(said));
        }
        QVERIFY(writes > 5);
        const auto keep = [](int times) {
            test::interceptRemovals([left = times]() mutable { return left-- > 0 ? EIO : 0; });
        };
        weighOn(&test::failFolderSyncs, said);
        QCOMPARE(said, QString());
        weighOn([&] { keep(1); }, said);
        QCOMPARE(said, nothing + u"the disk reported an error."_s);
        weighOn([&] { keep(1'000); }, said);
        QCOMPARE(said,
                 u"Kelvora: It is not known whether this was stored or deleted: the disk reported an error. "
                 "Please look it up before you do it again."_s);
        weighOn([] { test::interceptWrites([](int, const void*, std::size_t, off_t) { return EDQUOT; }); }, said);
        QCOMPARE(said, nothing + u"your share of the disk is used up."_s);
    }

    void exports() {
        test::DeskOfSmallYear year;
        const test::ScreenDriver hand = year.desk.open(test::CatchReport);
        hand.enter(u"Year = 2004; Search"_s);
        for (const QString& name : {u"catch.csv"_s, u"catch.png"_s, u"catch.svg"_s}) {
            QFile file(year.store.file(name));
            const auto writeTo = [&](const QString& path) {
                year.desk.dialogs.path = path;
                name.endsWith(u"csv") ? hand.press(u"EXPORT"_s)
                                      : hand.root()->findChild<ReportChart*>()->actions().at(1)->trigger();
                return std::exchange(year.desk.dialogs.said, {}).join(u'\n');
            };
            QCOMPARE(writeTo(file.fileName()), QString());
            QVERIFY(file.open(QIODevice::ReadOnly));
            const QByteArray whole = file.readAll();
            {
                const test::Obstacle full = test::fullDisk(static_cast<rlim_t>(whole.size() / 2));
                QVERIFY(writeTo(file.fileName()).contains(file.fileName()));
            }
            {
                const test::Obstacle folder = test::readOnlyFolder(year.store.file({}));
                QVERIFY(writeTo(file.fileName()).contains(file.fileName()));
            }
            file.close();
            QVERIFY(file.open(QIODevice::ReadOnly) && file.readAll() == whole);
            // Nothing that is exported takes the place of the data themselves.
            const QStringList data = year.store.wholeFile();
            QVERIFY(writeTo(year.store.path()).contains(u"this is a data file"));
            QCOMPARE(year.store.wholeFile(), data);
        }
    }

    void startWhileHeld() {
        test::TemporaryStore store;
        store.execute("begin exclusive");
        test::Boxes sampler;
        sampler.patient = true;
        QTimer::singleShot(900, this, [] { cancelOfBox()->click(); });
        LoginDialog login({store.path(), store.session, sampler});
        QCOMPARE(sampler.said, QStringList());
        QVERIFY(login.findChild<QLabel*>()->text().contains(u"another program is using"));
        store.execute("rollback");
        store.session = {};
        test::ScreenDriver(&login).enter(u"PASSWORD = kelvora; Log in"_s);
        QCOMPARE(store.session.login, u"Administrator"_s);
    }

    void saveWhileHeld() {
        for (const bool givenUp : {false, true}) {
            test::DeskOfSmallYear year;
            year.desk.dialogs.patient = true;
            const test::ScreenDriver hand = year.desk.open(test::Operations);
            hand.enter(QLatin1String(test::kOperation));
            year.store.execute("begin immediate");
            QTimer::singleShot(900, &year.desk.window, [&] {
                // A screen reader gets at buttons behind a box, the desktop at windows.
                hand.press(u"SAVE"_s);
                year.desk.window.close();
                year.desk.front()->close();
                QTest::keyClick(QApplication::activeModalWidget(), Qt::Key_Return);  // gives nothing up
                givenUp ? cancelOfBox()->click() : year.store.execute("rollback");
            });
            hand.press(u"SAVE"_s);
            QVERIFY(year.desk.front() != nullptr && year.desk.window.isVisible());
            if (givenUp) {
                QVERIFY(std::exchange(year.desk.dialogs.said, {}).join(u'\n').contains(u"another program is using"));
                year.store.execute("rollback");
                hand.press(u"SAVE"_s);
            }
            QCOMPARE(year.desk.dialogs.said, QStringList{u"Kelvora: Insert Complete"_s});
            QCOMPARE(year.store.rows("select count(*) from fishoperation"), QStringList{u"4"_s});
        }
    }
};

KELVORA_TEST(TestObstacles, "obstacles");

}  // namespace kelvora::test_obstacles

#include "test_obstacles.moc"
