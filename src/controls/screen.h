#pragma once

#include "controls/session.h"

#include <QWidget>

#include <functional>

class QAbstractButton;

namespace kelvora {

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
