#include "controls/screen.h"

#include "controls/bound_list.h"

#include <QApplication>
#include <QComboBox>
#include <QKeyEvent>
#include <QPointer>
#include <QPushButton>
#include <QScopeGuard>
#include <QThread>

#include <new>
#include <stdexcept>
#include <utility>

using namespace Qt::StringLiterals;

namespace kelvora {
namespace {

constexpr int kNone = -1;

/// The nesting of event loops in which the handler that runs began. There is one keyboard, and so one such handler:
/// what it calls belongs to it, what comes out of a loop nested in it does not.
int& runningIn() {
    static int level = kNone;
    return level;
}

int eventLoops() {
    return QThread::currentThread()->loopLevel();
}

/// The screen that a widget is a part of; none for a box or a window of rows over it.
const Screen* screenOf(const QWidget* widget) {
    while (widget != nullptr && qobject_cast<const Screen*>(widget) == nullptr) {
        widget = widget->isWindow() ? nullptr : widget->parentWidget();
    }
    return static_cast<const Screen*>(widget);
}

/// What keys and clicks do on every open screen, unlike in the toolkit.
class ScreenKeys : public QObject {
public:
    using QObject::QObject;

    bool eventFilter(QObject* watched, QEvent* event) override {
        const QEvent::Type type = event->type();
        if (type == QEvent::ShortcutOverride) {
            m_keyRepeats = static_cast<QKeyEvent*>(event)->isAutoRepeat();
        }
        auto* widget = qobject_cast<QWidget*>(watched);
        if (widget == nullptr) {
            return false;
        }
        // A press beside the rows that a list offers closes them, as does a window that is moved under them.
        const bool pressed = type == QEvent::MouseButtonPress || type == QEvent::Wheel;
        auto* typedIn = qobject_cast<BoundList*>(QApplication::focusWidget());
        if (typedIn != nullptr && (pressed || (type == QEvent::Move && widget->isWindow())) &&
            widget->window() == typedIn->window()) {
            typedIn->closeOffers();
        }
        // The mouse wheel over a list that has no focus must not change the list by accident.
        if (type == QEvent::Wheel && qobject_cast<QComboBox*>(widget) != nullptr && !widget->hasFocus() &&
            screenOf(widget) != nullptr) {
            event->ignore();
            return true;
        }
        auto* button = qobject_cast<QAbstractButton*>(widget);
        return (type == QEvent::KeyPress && isLetterOfNoButton(widget, *static_cast<QKeyEvent*>(event))) ||
               (button != nullptr && screenOf(button) != nullptr && onButtonEvent(button, event));
    }

private:
    /// A button that is disabled takes no Alt and letter, also when its own first press disabled it and the key is
    /// pressed again or held down: the field with the keyboard would take the letter as typed.
    static bool isLetterOfNoButton(const QWidget* widget, const QKeyEvent& key) {
        return (key.modifiers() & ~Qt::ShiftModifier) == Qt::AltModifier && !key.text().isEmpty() &&
               key.text().front().isPrint() && screenOf(widget) != nullptr;
    }

    /// Enter presses the button that has the keyboard. Alt and a letter press a button at once, where the toolkit waits
    /// while the next keys still go to the field before. Returns whether the event is dealt with.
    bool onButtonEvent(QAbstractButton* button, const QEvent* event) {
        const QEvent::Type type = event->type();
        if (qobject_cast<QPushButton*>(button) != nullptr &&
            (type == QEvent::MouseButtonPress || type == QEvent::MouseButtonDblClick)) {
            return isClickTooMany(screenOf(button), *static_cast<const QMouseEvent*>(event));
        }
        const int key = type == QEvent::KeyPress ? static_cast<const QKeyEvent*>(event)->key() : 0;
        const bool enter = (key == Qt::Key_Return || key == Qt::Key_Enter) && !button->isCheckable();
        if (!enter && (type != QEvent::Shortcut || static_cast<const QShortcutEvent*>(event)->isAmbiguous())) {
            return false;
        }
        if (auto* list = qobject_cast<BoundList*>(QApplication::focusWidget())) {
            list->finishTyping();
        }
        if (!m_keyRepeats) {
            button->click();
        }
        return true;
    }

    /// A double click presses once: the second click is no answer to what the first one did. The third click of a row
    /// of fast ones begins a new double click.
    bool isClickTooMany(const Screen* screen, const QMouseEvent& click) {
        const auto pause = static_cast<quint64>(QApplication::doubleClickInterval());
        const bool tooMany = click.type() == QEvent::MouseButtonDblClick ||
                             (m_doubleClickedOn == screen && click.timestamp() - m_doubleClicked < pause);
        m_doubleClickedOn = tooMany ? screen : nullptr;
        m_doubleClicked = click.timestamp();
        return tooMany;
    }

    const Screen* m_doubleClickedOn = nullptr;  ///< where a click too many was last passed over, and when
    quint64 m_doubleClicked = 0;
    bool m_keyRepeats = false;  ///< the key that is pressed is held down
};

}  // namespace

bool handlerWaits() {
    return runningIn() != kNone && eventLoops() > runningIn();
}

bool runGuarded(Dialogs& dialogs, const std::function<void()>& handler) {
    if (handlerWaits()) {
        return false;
    }
    const auto atEnd = qScopeGuard([before = std::exchange(runningIn(), eventLoops())] { runningIn() = before; });
    try {
        handler();
        return true;
    } catch (const std::exception& e) {
        const QString reason = internalReason(e);
        dialogs.message(reason.isEmpty() ? QString::fromUtf8(e.what()) : u"This could not be done: %1."_s.arg(reason));
        return false;
    }
}

QString internalReason(const std::exception& failure) {
    if (dynamic_cast<const std::bad_alloc*>(&failure) != nullptr) {
        return u"there is not enough memory"_s;
    }
    return dynamic_cast<const std::runtime_error*>(&failure) == nullptr ? u"the program made a mistake"_s : QString();
}

Screen::Screen(const QString& caption, Context context) : m_context(std::move(context)) {
    setWindowTitle(caption);
    static QPointer<ScreenKeys> keys;  // one for all screens, as long as the program runs
    if (keys == nullptr) {
        keys = new ScreenKeys(qApp);
        qApp->installEventFilter(keys);
    }
}

void Screen::cameToFront() {
    guard([this] {
        try {
            refillLists();
        } catch (const std::exception&) {
            // A file that cannot be read says so at the next search or save.
        }
    });
}

bool Screen::guard(const std::function<void()>& handler) const {
    return runGuarded(m_context.dialogs, handler);
}

void Screen::onClick(QAbstractButton* button, const std::function<void()>& handler) {
    connect(button, &QAbstractButton::clicked, this, guarded(m_context.dialogs, handler));
}

}  // namespace kelvora
