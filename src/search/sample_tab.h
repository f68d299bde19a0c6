#pragma once

#include "records/operation_store.h"

#include <QWidget>

#include <functional>
#include <optional>

class QAbstractButton;
class QPushButton;

namespace kelvora {

class Connection;
class Dialogs;

/// A tab of the search screen: the samples of one kind of the current operation, to look at and to mend.
class SampleTab : public QWidget {
    Q_OBJECT

public:
    /// Shows the samples of an operation, or the empty tab if there is none. Throws DataError.
    void load(const std::optional<StoredOperation>& operation);

Q_SIGNALS:
    /// What the sampler wanted to change is not stored any more: nothing was changed, and what the screen shows is old.
    void outdated();

protected:
    /// The connection and the dialogs are the screen's and outlive the tab.
    SampleTab(Connection& connection, Dialogs& dialogs);

    /// Reads the samples of the current operation; without one, shows what a tab without samples shows.
    virtual void reload() = 0;

    [[nodiscard]] Connection& connection() const { return m_connection; }
    [[nodiscard]] Dialogs& dialogs() const { return m_dialogs; }
    [[nodiscard]] const std::optional<StoredOperation>& operation() const { return m_operation; }

    /// A button with room around its caption.
    static QPushButton* deleteButton(const QString& caption);

    /// Runs a handler in the guard whenever a button is pressed.
    void onClick(QAbstractButton* button, const std::function<void()>& handler);

    /// Whether a change may go on: the operation and the sample that a query looks for are still stored. Sends
    /// outdated() if not. Throws DataError.
    bool isStored(const Sql& sample);

private:
    Connection& m_connection;
    Dialogs& m_dialogs;
    std::optional<StoredOperation> m_operation;
};

}  // namespace kelvora
