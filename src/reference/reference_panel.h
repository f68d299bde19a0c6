#pragma once

#include "controls/dialogs.h"
#include "data/connection.h"

#include <QWidget>

#include <functional>

class QAbstractButton;
class QLineEdit;

namespace kelvora {

using namespace Qt::StringLiterals;

/// A part of the "General Information" screen that keeps one reference list, over the screen's connection.
class ReferencePanel : public QWidget {
    Q_OBJECT

protected:
    ReferencePanel(Connection& connection, Dialogs& dialogs) : m_connection(connection), m_dialogs(dialogs) {}

    [[nodiscard]] Connection& connection() const { return m_connection; }
    [[nodiscard]] Dialogs& dialogs() const { return m_dialogs; }

    /// Runs a handler in the guard whenever a button is pressed.
    void onClick(QAbstractButton* button, const std::function<void()>& handler);
    /// What was typed as a name; blanks only are none.
    [[nodiscard]] static QString typed(const QString& text);
    [[nodiscard]] static QString typed(const QLineEdit* field);
    /// The question whether what was done is to be kept.
    [[nodiscard]] std::function<bool()> asking(Dialogs::Question kind, const QString& question,
                                               const QString& title = u"Confirm"_s) const;

private:
    Connection& m_connection;
    Dialogs& m_dialogs;
};

}  // namespace kelvora
