#pragma once

#include "controls/dialogs.h"

#include <QString>
#include <QWidget>

#include <exception>
#include <functional>

class QAbstractButton;

namespace kelvora {

/// What holds from a successful login to the end of the program.
struct Session {
    QString login;
    QString password;
    QString userName;            ///< the recorder that new operations propose
    int lastSavedOperation = 0;  ///< 0 if none: the sampling screens open on this operation
};

/// What a screen is handed when it is made.
struct Context {
    QString databasePath;
    Session& session;
    Dialogs& dialogs;

    /// For the connection of a screen whose entries must not be lost to a passing lock: how it waits.
    [[nodiscard]] auto waiting() const {
        return [&asked = dialogs] { return asked.waiting(); };
    }
};

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

/// The frame of every screen inside the main window: its caption, what it shares with the program, and the guard that
/// its handlers run in.
class Screen : public QWidget {
    Q_OBJECT

public:
    Screen(const QString& caption, Context context);

    /// To be called whenever the screen comes to the front. Shows no box, which would bring it to the front again.
    void cameToFront();

Q_SIGNALS:
    /// The screen has done what it was opened for: its window closes.
    void finished();

protected:
    /// Fills the lists again if another screen or program has changed the data file: each keeps what it shows.
    virtual void refillLists() {}

    [[nodiscard]] const Context& context() const { return m_context; }
    [[nodiscard]] Dialogs& dialogs() const { return m_context.dialogs; }

    /// Runs a handler in the guard; returns whether it came to its end.
    bool guard(const std::function<void()>& handler) const;
    /// Runs a handler in the guard whenever a button is pressed.
    void onClick(QAbstractButton* button, const std::function<void()>& handler);

private:
    Context m_context;
};

}  // namespace kelvora
