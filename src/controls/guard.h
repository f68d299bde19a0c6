#pragma once

#include <QString>

#include <exception>
#include <functional>

namespace kelvora {

class Dialogs;

/// Whether a handler has begun, and waits: for the answer to a box, for the disk while a progress is shown, for a file
/// that another program holds. Boxes keep keyboard and mouse from everything else meanwhile, but not a screen reader,
/// the desktop, or a second start of the program: nothing may begin then, and nothing may be closed.
bool handlerWaits();

/// Runs a handler; a failure in it (a statement refused, a file not written) is shown in a box, and the program goes
/// on with everything on the screen as it was. Returns whether the handler came to its end: it does not begin while
/// another one waits.
bool runGuarded(Dialogs& dialogs, const std::function<void()>& handler);

/// A handler to connect to a signal, run as runGuarded does.
inline auto guarded(Dialogs& dialogs, std::function<void()> handler) {
    return [&dialogs, handler = std::move(handler)] { runGuarded(dialogs, handler); };
}

/// Why something could not be done that failed by a want of memory or a mistake of the program; empty for a failure
/// that brings words of its own.
QString internalReason(const std::exception& failure);

}  // namespace kelvora
