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

protected:
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
