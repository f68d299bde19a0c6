#pragma once

#include "controls/session.h"

#include <QWidget>

#include <functional>

class QAbstractButton;
class QKeyEvent;

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
    /// A press beside the rows that a list offers closes them. Enter presses the button that has the keyboard. Alt and
    /// a letter press a button at once, where the toolkit waits while the next keys still go to the field before. A
    /// double click presses once: the second click is no answer to what the first one did.
    bool eventFilter(QObject* watched, QEvent* event) override;

    /// Fills the lists again if another screen or program has changed the data file: each keeps what it shows.
    virtual void refillLists() {}

    [[nodiscard]] const Context& context() const { return m_context; }
    [[nodiscard]] Dialogs& dialogs() const { return m_context.dialogs; }

    /// Runs a handler in the guard; returns whether it came to its end.
    bool guard(const std::function<void()>& handler) const;
    /// Runs a handler in the guard whenever a button is pressed.
    void onClick(QAbstractButton* button, const std::function<void()>& handler);

private:
    bool isLetterOfNoButton(const QObject* watched, const QKeyEvent& key) const;
    bool onButtonEvent(QAbstractButton* button, const QEvent* event);

    Context m_context;
    quint64 m_doubleClicked = 0;  ///< when a double click on a button was last passed over, or a click right behind one
    bool m_keyRepeats = false;    ///< the key that is pressed is held down
};

}  // namespace kelvora
