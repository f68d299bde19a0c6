#include "controls/screen.h"
#include "shell/login_dialog.h"
#include "shell/main_window.h"
#include "support/screen_driver.h"
#include "support/temporary_store.h"
#include "support/test_main.h"

#include <QLabel>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QSignalSpy>
#include <QTest>
#include <QToolBar>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace kelvora::test_program {

/// From the start to the end of the program: signing in, opening screens once, leaving.
class TestProgram : public QObject {
    Q_OBJECT

private:
    /// A button or menu item that opens a screen; the entries of the "Windows" menu are not among them.
    static QAction* action(const MainWindow& window, const QString& caption) {
        for (QAction* found : window.findChildren<QAction*>()) {
            if (found->text() == caption && qobject_cast<QMenu*>(found->parent()) == nullptr) {
                return found;
            }
        }
        qFatal("no action %s", qPrintable(caption));
    }

    /// The screens listed in the "Windows" menu.
    static QStringList windows(const MainWindow& window) {
        QStringList captions;
        for (const QMenu* menu : window.findChildren<QMenu*>()) {
            if (menu->title() == u"&Windows") {
                for (const QAction* item : menu->actions()) {
                    captions.append(item->text());
                }
            }
        }
        return captions;
    }

private Q_SLOTS:
    void signIn_data() {
        QTest::addColumn<QString>("login");
        QTest::addColumn<QString>("password");
        QTest::addColumn<QString>("message");
        const QString empty = u"Please input Login and password"_s;
        const QString wrong = u"Your Password not correct please Try again "_s;
        QTest::newRow("no password") << u"Administrator"_s << QString() << empty;
        QTest::newRow("no login") << QString() << u"kelvora"_s << empty;
        QTest::newRow("wrong password") << u"Administrator"_s << u"kelvor"_s << wrong;
        QTest::newRow("typed statement") << u"' or '1' = '1"_s << u"' or '1' = '1"_s << wrong;
        QTest::newRow("letter case") << u"ADMINISTRATOR"_s << u"Kelvora"_s << QString();
        QTest::newRow("case beyond A to Z") << u"éLISE"_s << u"MÖWE"_s << QString();
    }
    void signIn() {
        QFETCH(QString, login);
        QFETCH(QString, password);
        QFETCH(QString, message);
        test::TemporaryStore store;
        store.session = {};
        store.execute("insert into kelvora_user values ('Élise', 'Möwe', 'Administrator')");
        LoginDialog dialog(store.context());
        dialog.show();
        // Drawn icons need a package of their own on some systems.
        QVERIFY(std::ranges::any_of(dialog.findChildren<QLabel*>(),
                                    [](const QLabel* label) { return !label->pixmap().isNull(); }));
        const QSignalSpy signedIn(&dialog, &LoginDialog::signedIn);
        const test::ScreenDriver hand(&dialog);
        QCOMPARE(hand.text(u"LOGIN"_s), u"Administrator"_s);
        hand.type(u"LOGIN"_s, login);
        hand.type(u"PASSWORD"_s, password);
        if (!message.isEmpty()) {
            store.dialogs.expectMessage(message);
        }
        hand.key(u"PASSWORD"_s, Qt::Key_Return);
        QVERIFY(store.dialogs.done());
        QCOMPARE(signedIn.count(), message.isEmpty() ? 1 : 0);
        QCOMPARE(store.session.userName, message.isEmpty() ? u"Administrator"_s : QString());
        QCOMPARE(hand.text(u"LOGIN"_s), login);
        QCOMPARE(hand.text(u"PASSWORD"_s).isEmpty(), password.isEmpty() || message.endsWith(u' '));

        for (const bool escape : {false, true}) {
            hand.type(u"PASSWORD"_s, u"kelvora"_s);
            escape ? hand.key(u"PASSWORD"_s, Qt::Key_Escape) : hand.press(u"Cancel"_s);
            QVERIFY(dialog.isVisible());
            QCOMPARE(hand.text(u"PASSWORD"_s), QString());
        }
    }

    void screensOpenOnceUntilTheEnd() {
        test::TemporaryStore store;
        MainWindow window(store.context());
        window.show();
        QAction* button = action(window, u"Fishing Operation"_s);
        QVERIFY(button->isEnabled());
        button->trigger();
        QVERIFY(!button->isEnabled());
        QAction* report = action(window, u"Fishing Information"_s);
        report->trigger();
        report->trigger();
        QVERIFY(report->isEnabled());
        QCOMPARE(windows(window),
                 QStringList({u"Fishing Information"_s, u"Number of record and estimate total catch"_s}));

        // A screen that was minimized leaves the others as they are, and the keyboard to them; it comes back where it
        // was opened.
        QMdiSubWindow* minimized = window.findChildren<QMdiSubWindow*>().last();
        minimized->showMinimized();
        QMdiSubWindow* behind = window.findChildren<QMdiSubWindow*>().first();
        QVERIFY(behind->isMaximized());
        QVERIFY(QTest::qWaitFor([&] { return window.findChild<QMdiArea*>()->activeSubWindow() == behind; }));
        report->trigger();
        QVERIFY(minimized->isMaximized());

        window.findChildren<QMdiSubWindow*>().first()->close();
        QVERIFY(QTest::qWaitFor([&] { return button->isEnabled(); }));
        QCOMPARE(windows(window).size(), 1);

        const QSignalSpy ended(&window, &MainWindow::ended);
        for (const bool yes : {false, true}) {
            store.dialogs.expectConfirm(u"Question"_s, u"Do you want to exit program?"_s, yes);
            QCOMPARE(windows(window).size(), 1);
            action(window, u"Exit"_s)->trigger();
            QVERIFY(store.dialogs.done());
            QCOMPARE(ended.count(), yes ? 1 : 0);
        }
    }
};

KELVORA_TEST(TestProgram, "program");

}  // namespace kelvora::test_program

#include "test_program.moc"
