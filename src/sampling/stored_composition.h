#pragma once

#include "controls/captioned_grid.h"
#include "data/result_set.h"

#include <functional>

class QPushButton;

namespace kelvora {

class Connection;
class Dialogs;
class RecordNavigator;

/// Shows rows in a grid: one blank row if there are none.
void showRows(Grid& grid, ResultSet rows, const GridColumns& columns);
/// The composition of an operation, as compositionOf gives it.
void showComposition(const CaptionedGrid& summary, ResultSet composition);

/// The stored groups of an operation, one at a time.
class GroupsPanel : public QWidget {
    Q_OBJECT

public:
    /// Where groups are entered, the sampling groups with their weights as stored; where they are corrected, the single
    /// species too, with two decimals.
    enum class Use { Entry, Correction };
    /// Deletes a group, and shows the panel what is left. Is called in the guard, after a Yes.
    using Deletion = std::function<void(int group)>;

    GroupsPanel(Connection& connection, Dialogs& dialogs, Use use, Deletion deletion);

    /// Shows the groups of an operation, the first one first. Throws DataError.
    void refresh(int operation);
    /// Shows nothing: there is no operation.
    void reset();

private:
    void onArrived(int row);
    void showGroup(int row);
    void showNone();
    void onDelete();

    Connection& m_connection;
    Dialogs& m_dialogs;
    bool m_correction;
    Deletion m_deletion;
    RecordNavigator* m_navigator;
    QPushButton* m_delete;
    CaptionedGrid* m_frame;  ///< has the shown group in its caption; none where groups are corrected
    Grid* m_grid;

    int m_operation = 0;
    ResultSet m_groups;
};

}  // namespace kelvora
