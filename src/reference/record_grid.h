#pragma once

#include "controls/captioned_grid.h"
#include "data/connection.h"

#include <functional>

class QPushButton;

namespace kelvora {

class Dialogs;

/// A list of reference rows: a captioned grid over a query, its navigator and its "Delete" button. The navigator's
/// caption names the row that "Delete" is about; it is empty when there is none, and after a deletion.
class RecordGrid : public CaptionedGrid {
public:
    /// The caption is also the name of the navigator.
    RecordGrid(const QString& caption, GridColumns columns, const Sql& query, Connection& connection, Dialogs& dialogs);

    /// For a grid inside a frame that carries its caption already: no frame and no caption of its own.
    void leaveFrame();

    /// Runs the query again and goes to the first row. Throws DataError and leaves the rows as they are on a failure.
    void refresh();

    /// How the row that the navigator stands on is named. Where that fails there is nothing to delete.
    void nameRows(const std::function<QString()>& name);
    /// What "Delete" does with a named row; returns whether it is deleted. Afterwards no row is named, although the
    /// list marks its first one: the sampler chooses what "Delete" is about next.
    void onDelete(
        const std::function<bool()>& remove, const std::function<void()>& afterwards = [] {});

    /// A value of the row that the navigator stands on; empty or 0 if there is none.
    [[nodiscard]] QString text(QStringView column) const;
    [[nodiscard]] int key(QStringView column) const;

    [[nodiscard]] QPushButton* deleteButton() const { return m_delete; }

private:
    GridColumns m_columns;
    Sql m_query;
    Connection& m_connection;
    Dialogs& m_dialogs;
    RecordNavigator* m_navigator;
    QPushButton* m_delete;
    ResultModel* m_rows = nullptr;  ///< those that the grid shows
};

}  // namespace kelvora
