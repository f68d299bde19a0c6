#include "actions.h"
#include "controls/progress.h"
#include "shell/login_dialog.h"
#include "shell/main_window.h"
#include "support/test_main.h"

#include <QAction>
#include <QApplication>
#include <QLabel>
#include <QMdiArea>
#include <QPointer>
#include <QProgressDialog>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>
#include <QToolBar>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace kelvora::test_waiting {

/// A sampler who waits.
struct Sampler : test::RecordingDialogs {
    std::function<bool()> waiting() override { return waitingBox(); }
};

/// Another program holds the data file while the program starts, and while an operation is saved at the main window.
class TestWaiting : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void starts() {
        test::TemporaryStore store;
        store.execute("begin exclusive");
        Sampler sampler;
        QTimer::singleShot(900, this, [] {
            auto* box = qobject_cast<QProgressDialog*>(QApplication::activeModalWidget());
            QVERIFY(box != nullptr);
            box->findChild<QPushButton*>()->click();
        });
        LoginDialog login({store.path(), store.session, sampler});
        QCOMPARE(sampler.said, QStringList());
        const QList<QLabel*> labels = login.findChildren<QLabel*>();
        QVERIFY(std::ranges::any_of(
            labels, [](const QLabel* label) { return label->text().contains(u"another program is using"); }));
        store.execute("rollback");
        const QSignalSpy signedIn(&login, &LoginDialog::signedIn);
        const test::ScreenDriver hand(&login);
        hand.type(u"PASSWORD"_s, u"kelvora"_s);
        hand.press(u"Log in"_s);
        QCOMPARE(signedIn.count(), 1);
    }

    void saves_data() {
        QTest::addColumn<bool>("givenUp");
        QTest::newRow("until the file is free") << false;
        QTest::newRow("given up") << true;
    }
    void saves() {
        QFETCH(bool, givenUp);
        test::TemporaryStore store;
        store.addSmallYear();
        const QStringList before = store.wholeFile();
        Sampler sampler;
        MainWindow window({store.path(), store.session, sampler});
        window.show();
        for (QAction* button : window.findChild<QToolBar*>()->actions()) {
            if (button->text() == u"Fishing Operation") {
                button->trigger();
            }
        }
        const QPointer<Screen> screen = window.findChild<Screen*>();
        const test::ScreenDriver hand(screen);
        hand.enter(test::action("an operation").steps);

        Connection other(store.path());
        other.execute(Sql("begin immediate"));
        QTimer::singleShot(900, &window, [&] {
            auto* box = qobject_cast<QProgressDialog*>(QApplication::activeModalWidget());
            QVERIFY(box != nullptr);
            // A screen reader gets at buttons behind a box, the desktop at windows.
            hand.press(u"SAVE"_s);
            window.close();
            window.findChild<QMdiArea*>()->closeAllSubWindows();
            givenUp ? box->findChild<QPushButton*>()->click() : static_cast<void>(other.execute(Sql("rollback")));
        });
        hand.press(u"SAVE"_s);
        QVERIFY(screen != nullptr && window.isVisible());
        if (givenUp) {
            QCOMPARE(std::exchange(sampler.said, {}),
                     QStringList{u"Kelvora: Nothing was stored or deleted: another program is using the data file. "
                                 "Please try again."_s});
            QCOMPARE(store.wholeFile(), before);
            other.execute(Sql("rollback"));
            hand.press(u"SAVE"_s);
        }
        QCOMPARE(sampler.said, QStringList{u"Kelvora: Insert Complete"_s});
        QCOMPARE(store.wholeFile().size(), before.size() + 1);
    }
};

KELVORA_TEST(TestWaiting, "waiting");

}  // namespace kelvora::test_waiting

#include "test_waiting.moc"
