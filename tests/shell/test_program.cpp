#include "shell/login_dialog.h"
#include "shell/main_window.h"
#include "support/screen_driver.h"
#include "support/temporary_store.h"
#include "support/test_main.h"

#include <QAction>
#include <QApplication>
#include <QKeySequence>
#include <QLabel>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenuBar>
#include <QSignalSpy>
#include <QTabBar>
#include <QTabWidget>
#include <QTest>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace kelvora::test_program {

/// Signing in, and what a sampler who works without the mouse, or without seeing the screen, needs of every control: a
/// name, a mnemonic of its own, and its place in the round of the Tab key.
class TestProgram : public QObject {
    Q_OBJECT

    static bool isOne(const QWidget* widget, const std::vector<const char*>& kinds) {
        return std::ranges::any_of(kinds, [widget](const char* kind) { return widget->inherits(kind); });
    }

    /// What a sampler types into, presses or looks through, as it is shown now.
    static QWidgetList controls(const QWidget& screen) {
        QWidgetList all = screen.findChildren<QWidget*>();
        all.removeIf([](const QWidget* widget) {
            return !widget->isVisible() ||
                   isOne(widget->parentWidget(), {"QComboBox", "QAbstractSpinBox", "QAbstractItemView"}) ||
                   !isOne(widget, {"QLineEdit", "QComboBox", "QAbstractButton", "QAbstractItemView", "QAbstractSpinBox",
                                   "QPlainTextEdit"});
        });
        return all;
    }

    /// What a screen reader calls a control: the caption beside it, or a name or text of its own. The row that a list
    /// shows is not its name.
    static QString name(QWidget* widget) {
        QString name = widget->accessibleName();
        for (const QLabel* label : widget->window()->findChildren<QLabel*>()) {
            name += label->buddy() == widget ? label->text() : QString();
        }
        return (name + (isOne(widget, {"QAbstractButton"}) ? widget->property("text").toString() : QString()))
            .trimmed();
    }

    /// Alt and a letter go to one control, tab or menu.
    static void lookForKeys(const QWidget& screen) {
        QStringList texts;
        for (const QAction* menu : screen.window()->findChild<QMenuBar*>()->actions()) {
            texts += menu->text();
        }
        for (const QWidget* widget : screen.findChildren<QWidget*>()) {
            const auto* label = qobject_cast<const QLabel*>(widget);
            if (widget->isVisible() && (label == nullptr || label->buddy() != nullptr)) {
                texts << widget->property("title").toString() << widget->property("text").toString();
            }
            const auto* tabs = qobject_cast<const QTabWidget*>(widget);
            for (int i = 0; tabs != nullptr && i < tabs->count(); ++i) {
                texts += tabs->tabText(i);
            }
        }
        QList<QKeySequence> taken;
        for (const QString& text : texts) {
            const QKeySequence key = QKeySequence::mnemonic(text);
            QVERIFY2(key.isEmpty() || !taken.contains(key), qPrintable(text));
            taken += key;
        }
    }

    /// What is shown lies beside one another, not over it.
    static void lookForRoom(const QWidget& screen) {
        QWidgetList shown = screen.findChildren<QWidget*>();
        shown.removeIf([&](const QWidget* widget) {
            const bool plainLabel = isOne(widget, {"QLabel"}) && !widget->property("text").toString().isEmpty();
            return !widget->isVisible() || (!plainLabel && !controls(screen).contains(widget));
        });
        for (const QWidget* one : shown) {
            for (const QWidget* other : one->parentWidget()->findChildren<QWidget*>(Qt::FindDirectChildrenOnly)) {
                QVERIFY2(one == other || !shown.contains(other) || !one->geometry().intersects(other->geometry()),
                         qPrintable(one->accessibleName() + one->property("text").toString()));
            }
        }
    }

    static void look(const QWidget& screen) {
        lookForKeys(screen);
        lookForRoom(screen);
        QWidgetList stops;
        for (QWidget* at = QApplication::focusWidget(); !stops.contains(at); at = QApplication::focusWidget()) {
            stops += at;
            QTest::keyClick(at, Qt::Key_Tab);
        }
        // The round goes to the right or down, but for its last step.
        QStringList back;
        for (int i = 0; i < stops.size(); ++i) {
            QWidget* next = stops[(i + 1) % stops.size()];
            const QPoint way = next->mapTo(screen.window(), next->rect().center()) -
                               stops[i]->mapTo(screen.window(), stops[i]->rect().center());
            back += way.x() > 0 || way.y() > 0 ? QStringList() : QStringList{name(next)};
        }
        QVERIFY2(back.size() == 1, qPrintable(back.join(u", "_s) + u" are behind what comes later"_s));
        for (QWidget* control : controls(screen)) {
            QVERIFY2(!name(control).isEmpty(), control->metaObject()->className());
            // Of options, Tab reaches the one that is chosen.
            const bool other = isOne(control, {"QRadioButton"}) && !control->property("checked").toBool();
            const bool left = other || !control->isEnabled() || (control->focusPolicy() & Qt::TabFocus) == 0;
            QVERIFY2(left || stops.contains(control), qPrintable(name(control) + u" is not reached with Tab"_s));
        }
    }

private Q_SLOTS:
    void everyControl() {
        test::TemporaryStore store;
        store.addSmallYear();
        MainWindow window(store.context());
        window.resize(1366, 768);
        window.show();
        window.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        constexpr int screens = 11;
        // First without, then with an operation to go on with.
        for (int i = 0; i < 2 * screens && !QTest::currentTestFailed(); ++i) {
            store.session.lastSavedOperation = i / screens;
            window.findChildren<QAction*>(QString(), Qt::FindDirectChildrenOnly).at(i % screens)->trigger();
            QMdiSubWindow* frame = window.findChild<QMdiArea*>()->activeSubWindow();
            QWidget* screen = frame->widget();
            QWidget* focus = QApplication::focusWidget();
            // With an operation to sample from, there is nothing to find on the first tab.
            const bool onTabs = i >= screens && qobject_cast<QTabBar*>(focus) != nullptr;
            QVERIFY2(onTabs || controls(*screen).contains(focus), "the keyboard is not in a field");
            if (frame->windowTitle() == u"Search" && i >= screens) {
                test::ScreenDriver(screen).enter(u"Criterion = Vessel; Value = Sea Star; SEARCH"_s);
            }
            auto* folder = screen->findChild<QTabWidget*>();
            const int tabs = folder == nullptr ? 1 : folder->count();
            for (int tab = 0; tab < tabs && !QTest::currentTestFailed(); ++tab) {
                if (folder != nullptr) {
                    folder->setCurrentIndex(tab);
                }
                look(*screen);
            }
            frame->close();
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        }
    }

    /// Both buttons of the dialog, and Enter and Esc. Letter case does not count.
    void signIn() {
        const QString empty = u"! Kelvora: Please input Login and password"_s;
        const QString wrong = u"! Kelvora: Your Password not correct please Try again "_s;
        test::TemporaryStore store;
        store.execute("insert into kelvora_user values ('Élise', 'Möwe', 'E. Dupont'), ('Jo', 'Cod', 'Jo Hansen')");
        LoginDialog dialog(store.context());
        dialog.show();
        // Drawn icons need a package of their own on some systems.
        const auto pictures = dialog.findChildren<QLabel*>();
        QVERIFY(std::ranges::any_of(pictures, [](const QLabel* label) { return !label->pixmap().isNull(); }));
        const QSignalSpy signedIn(&dialog, &LoginDialog::signedIn);
        const test::ScreenDriver hand(&dialog);
        QCOMPARE(hand.text(u"LOGIN"_s), u"Administrator"_s);
        QWidget* field = hand.field(u"PASSWORD"_s);
        QVERIFY(QTest::qWaitForWindowActive(&dialog) && field->hasFocus());
        qsizetype times = 0;
        for (const bool key : {false, true}) {
            hand.enter(u"PASSWORD = anything"_s);
            key ? QTest::keyClick(field, Qt::Key_Escape) : hand.press(u"Cancel"_s);
            QVERIFY(dialog.isVisible() && field->hasFocus() && hand.text(u"PASSWORD"_s).isEmpty());
            for (const auto& [login, password, said, recorder] : {std::array{u"Jo"_s, u""_s, empty, u""_s},
                                                                  {u""_s, u"kelvora"_s, empty, u""_s},
                                                                  {u"Jo"_s, u"Möwe"_s, wrong, u""_s},
                                                                  {u"'or'1'='1"_s, u"'or'1'='1"_s, wrong, u""_s},
                                                                  {u"JO"_s, u"cod"_s, u""_s, u"Jo Hansen"_s},
                                                                  {u"éLISE"_s, u"MÖWE"_s, u""_s, u"E. Dupont"_s}}) {
                store.session = {};
                hand.enter(u"LOGIN = %1; PASSWORD = %2"_s.arg(login, password));
                if (!said.isEmpty()) {
                    store.dialogs.expect(said);
                }
                key ? QTest::keyClick(field, Qt::Key_Return) : hand.press(u"Log in"_s);
                times += said.isEmpty() ? 1 : 0;
                QVERIFY(store.dialogs.missing().isEmpty() && signedIn.count() == times);
                QCOMPARE(store.session.userName, recorder);
                QCOMPARE(hand.text(u"PASSWORD"_s), said == wrong ? QString() : password);
            }
        }
        // As they are stored, not as they were typed: a changed password is stored under this login.
        QCOMPARE(store.session.login + u'|' + store.session.password, u"Élise|Möwe"_s);
    }
};

KELVORA_TEST(TestProgram, "program");

}  // namespace kelvora::test_program

#include "test_program.moc"
