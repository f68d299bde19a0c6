#include "controls/guard.h"

#include "controls/dialogs.h"

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

}  // namespace kelvora
