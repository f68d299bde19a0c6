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
    RecordGrid(const QString& caption, GridColumns columns);

    /// For a grid inside a frame that carries its caption already: no frame and no caption of its own.
    void leaveFrame();

    /// Runs the query again and goes to the first row. Throws DataError and leaves the rows as they are on a failure.
    void refresh(Connection& connection, const Sql& query);

    [[nodiscard]] QString caption() const;
    void setCaption(const QString& caption);
    /// Names no row after one was deleted, although the list marks its first one: the sampler chooses what "Delete" is
    /// about next.
    void leaveRow();
    /// A cell of the row that the navigator stands on; empty if there is none.
    [[nodiscard]] QString current(int column) const;

    /// Called on every arrival, with whether there is a row to stand on. The caption is empty by then, so that a
    /// handler that fails leaves nothing to delete.
    void onArrival(Dialogs& dialogs, const std::function<void(bool onRow)>& handler);

    [[nodiscard]] QPushButton* deleteButton() const { return m_delete; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    GridColumns m_columns;
    RecordNavigator* m_navigator;
    QPushButton* m_delete;
};

}  // namespace kelvora
