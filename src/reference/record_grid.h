#pragma once

#include "controls/captioned_grid.h"
#include "data/connection.h"

#include <functional>

class QPushButton;

namespace kelvora {

class Dialogs;

/// A list of reference rows.
struct RecordKind {
    QString caption;
    GridColumns columns;
    Sql query;
    /// How the row that the navigator stands on is named. Where that fails there is nothing to delete.
    std::function<QString()> name;
    /// What "Delete" does with a named row; returns whether it is deleted.
    std::function<bool()> remove;
    /// A row was deleted, and the list is shown without it.
    std::function<void()> removed = [] {};
};

/// A captioned grid over the rows, its navigator and its "Delete" button. The navigator's caption names the row that
/// "Delete" is about; it is empty when there is none, and after a deletion, although the list marks its first row: the
/// sampler chooses what "Delete" is about next.
class RecordGrid : public CaptionedGrid {
public:
    RecordGrid(RecordKind kind, Connection& connection, Dialogs& dialogs);

    /// For a grid inside a frame that carries its caption already: no frame and no caption of its own.
    void leaveFrame();
    /// Runs the query again and goes to the first row. Throws DataError and leaves the rows as they are on a failure.
    void refresh();

    /// A value of the row that the navigator stands on; empty or 0 if there is none.
    [[nodiscard]] QString text(QStringView column) const;
    [[nodiscard]] int key(QStringView column) const;

    [[nodiscard]] QPushButton* deleteButton() const { return m_delete; }

private:
    void arrive(int row);
    void remove();

    const RecordKind m_kind;
    Connection& m_connection;
    Dialogs& m_dialogs;
    RecordNavigator* m_navigator;
    QPushButton* m_delete;
    ResultModel* m_rows = nullptr;  ///< those that the grid shows
};

}  // namespace kelvora
