#include "controls/screen.h"

#include "controls/guard.h"

#include <QAbstractButton>

#include <exception>
#include <utility>

namespace kelvora {

Screen::Screen(const QString& caption, Context context) : m_context(std::move(context)) {
    setWindowTitle(caption);
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
