#include "controls/guard.h"

#include "controls/dialogs.h"

#include <exception>

namespace kelvora {

bool runGuarded(Dialogs& dialogs, const std::function<void()>& handler) {
    try {
        handler();
        return true;
    } catch (const std::exception& e) {
        dialogs.message(QString::fromUtf8(e.what()));
        return false;
    }
}

}  // namespace kelvora
