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
#include <QTabBar>
#include <QTabWidget>
#include <QTest>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace kelvora::test_every_control {

/// What a sampler who works without the mouse, or without seeing the screen, needs of every control: a name, a mnemonic
/// of its own, and its place in the round of the Tab key.
class TestEveryControl : public QObject {
    Q_OBJECT

    static bool isOne(const QWidget* widget, const std::vector<const char*>& kinds) {
        return std::ranges::any_of(kinds, [widget](const char* kind) { return widget->inherits(kind); });
    }

    /// What a sampler types into, presses or looks through, as it is shown now.
    static QList<QWidget*> controls(const QWidget& screen) {
        QList<QWidget*> all = screen.findChildren<QWidget*>();
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

    /// The keys that go to a control with Alt.
    QList<QChar> mnemonics(const QWidget& screen) const {
        QStringList texts;
        for (const QAction* action : m_window->menuBar()->actions()) {
            texts += action->text();
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
        QList<QChar> keys;
        for (const QString& text : texts) {
            if (const QKeySequence key = QKeySequence::mnemonic(text); !key.isEmpty()) {
                keys += QChar(key[0].key()).toUpper();
            }
        }
        return keys;
    }

    void look(const QWidget& screen) const {
        const QList<QChar> keys = mnemonics(screen);
        for (const QChar key : keys) {
            QVERIFY2(keys.count(key) == 1, qPrintable(u"Alt+%1 is taken twice"_s.arg(key)));
        }
        QList<QWidget*> stops;
        for (QWidget* at = QApplication::focusWidget(); !stops.contains(at); at = QApplication::focusWidget()) {
            stops += at;
            QTest::keyClick(at, Qt::Key_Tab);
        }
        // The round goes to the right or down, but for its last step.
        QStringList back;
        for (QWidget* stop : stops) {
            QWidget* next = stops[(stops.indexOf(stop) + 1) % stops.size()];
            const QPoint way =
                next->mapTo(m_window.get(), next->rect().center()) - stop->mapTo(m_window.get(), stop->rect().center());
            back += way.x() > 0 || way.y() > 0 ? QStringList() : QStringList{name(next)};
        }
        QVERIFY2(back.size() == 1, qPrintable(back.join(u", "_s) + u" are behind what comes later"_s));
        const QList<QWidget*> shown = controls(screen);
        QVERIFY(!shown.isEmpty());
        for (QWidget* control : shown) {
            QVERIFY2(!name(control).isEmpty(), control->metaObject()->className());
            // Of options, Tab reaches the one that is chosen.
            const bool other = isOne(control, {"QRadioButton"}) && !control->property("checked").toBool();
            const bool left = other || !control->isEnabled() || (control->focusPolicy() & Qt::TabFocus) == 0;
            QVERIFY2(left || stops.contains(control), qPrintable(name(control) + u" is not reached with Tab"_s));
        }
    }

    test::TemporaryStore m_store;
    std::unique_ptr<MainWindow> m_window;

private Q_SLOTS:
    void everyScreen() {
        m_store.addSmallYear();
        m_window = std::make_unique<MainWindow>(m_store.context());
        m_window->resize(1366, 768);
        m_window->show();
        m_window->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
        constexpr int screens = 11;
        // First without, then with an operation to go on with.
        for (int i = 0; i < 2 * screens && !QTest::currentTestFailed(); ++i) {
            m_store.session.lastSavedOperation = i / screens;
            m_window->findChildren<QAction*>(QString(), Qt::FindDirectChildrenOnly).at(i % screens)->trigger();
            QMdiSubWindow* frame = m_window->findChild<QMdiArea*>()->activeSubWindow();
            QWidget* screen = frame->widget();
            QWidget* focus = QApplication::focusWidget();
            // With an operation to sample from, there is nothing to find on the first tab.
            const bool onTabs = i >= screens && qobject_cast<QTabBar*>(focus) != nullptr;
            QVERIFY2(onTabs || controls(*screen).contains(focus), "the keyboard is not in a field");
            if (frame->windowTitle() == u"Search" && i >= screens) {
                test::ScreenDriver(screen).enter(u"Criterion = Vessel; Value = Sea Star; SEARCH"_s);
            }
            look(*screen);
            auto* folder = screen->findChild<QTabWidget*>();
            for (int tab = 1; folder != nullptr && tab < folder->count() && !QTest::currentTestFailed(); ++tab) {
                folder->setCurrentIndex(tab);
                look(*screen);
            }
            frame->close();
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        }
    }
};

KELVORA_TEST(TestEveryControl, "every_control");

}  // namespace kelvora::test_every_control

#include "test_every_control.moc"
