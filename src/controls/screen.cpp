#include "controls/screen.h"

#include "controls/bound_list.h"
#include "controls/guard.h"

#include <QApplication>
#include <QKeyEvent>
#include <QPushButton>

#include <exception>
#include <utility>

namespace kelvora {

Screen::Screen(const QString& caption, Context context) : m_context(std::move(context)) {
    setWindowTitle(caption);
    qApp->installEventFilter(this);
}

bool Screen::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::ShortcutOverride) {
        m_keyRepeats = static_cast<QKeyEvent*>(event)->isAutoRepeat();
    }
    const bool pressed = event->type() == QEvent::MouseButtonPress || event->type() == QEvent::Wheel;
    if ((pressed && watched->isWidgetType() && static_cast<QWidget*>(watched)->window() == window()) ||
        (event->type() == QEvent::Move && watched == window())) {
        if (auto* list = qobject_cast<BoundList*>(QApplication::focusWidget())) {
            list->closeOffers();
        }
    }
    if (event->type() == QEvent::KeyPress && isLetterOfNoButton(watched, *static_cast<QKeyEvent*>(event))) {
        return true;
    }
    auto* button = qobject_cast<QAbstractButton*>(watched);
    return (button != nullptr && isAncestorOf(button) && onButtonEvent(button, event)) ||
           QWidget::eventFilter(watched, event);
}

/// A button that is disabled takes no Alt and letter, also when its own first press disabled it and the key is pressed
/// again or held down: the field with the keyboard would take the letter as typed.
bool Screen::isLetterOfNoButton(const QObject* watched, const QKeyEvent& key) const {
    return watched->isWidgetType() && isAncestorOf(static_cast<const QWidget*>(watched)) &&
           (key.modifiers() & ~Qt::ShiftModifier) == Qt::AltModifier && !key.text().isEmpty() &&
           key.text().front().isPrint();
}

/// Whether the event is dealt with.
bool Screen::onButtonEvent(QAbstractButton* button, const QEvent* event) {
    const bool again = event->type() == QEvent::MouseButtonDblClick;
    if (qobject_cast<QPushButton*>(button) != nullptr && (again || event->type() == QEvent::MouseButtonPress)) {
        // The third click of a row of fast ones begins a new double click.
        const quint64 now = static_cast<const QMouseEvent*>(event)->timestamp();
        const bool third =
            m_doubleClicked != 0 && now - m_doubleClicked < static_cast<quint64>(QApplication::doubleClickInterval());
        m_doubleClicked = again || third ? now : 0;
        return again || third;
    }
    const bool enter = event->type() == QEvent::KeyPress && !button->isCheckable() &&
                       (static_cast<const QKeyEvent*>(event)->key() == Qt::Key_Return ||
                        static_cast<const QKeyEvent*>(event)->key() == Qt::Key_Enter);
    const bool letter = event->type() == QEvent::Shortcut && !static_cast<const QShortcutEvent*>(event)->isAmbiguous();
    if (!enter && !letter) {
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
