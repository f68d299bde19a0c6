#include "controls/guard.h"

#include "controls/dialogs.h"

#include <new>
#include <stdexcept>

using namespace Qt::StringLiterals;

namespace kelvora {
bool runGuarded(Dialogs& dialogs, const std::function<void()>& handler) {
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

}  // namespace kelvora
