#pragma once

#include <QString>

#include <exception>
#include <functional>

namespace kelvora {

class Dialogs;

/// Runs a handler; a failure in it (a statement refused, a file not written) is shown in a box, and the program goes
/// on with everything on the screen as it was. Returns whether the handler came to its end.
bool runGuarded(Dialogs& dialogs, const std::function<void()>& handler);

/// A handler to connect to a signal, run as runGuarded does.
inline auto guarded(Dialogs& dialogs, std::function<void()> handler) {
    return [&dialogs, handler = std::move(handler)] { runGuarded(dialogs, handler); };
}

/// Why something could not be done that failed by a want of memory or a mistake of the program; empty for a failure
/// that brings words of its own.
QString internalReason(const std::exception& failure);

}  // namespace kelvora
