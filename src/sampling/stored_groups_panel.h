#pragma once

#include "controls/screen.h"
#include "data/result_set.h"

#include <QWidget>

class QPushButton;

namespace kelvora {

class CaptionedGrid;
class Connection;
class FinderPanel;
class RecordNavigator;

/// The stored sampling groups of an operation, one at a time.
class StoredGroupsPanel : public QWidget {
    Q_OBJECT

public:
    /// Works on the finder's current operation; finder and connection outlive the panel.
    StoredGroupsPanel(const FinderPanel& finder, Connection& connection, const Context& context);

    /// Shows the groups of an operation, the first one first.
    void refresh(int operation);
    void reset();

Q_SIGNALS:
    /// A group was deleted.
    void changed();

private:
    void showGroup(int operation, int row);
    void showNone();
    void onArrived(int row);
    void onDelete();

    const FinderPanel& m_finder;
    Connection& m_connection;
    Context m_context;
    RecordNavigator* m_navigator;
    QPushButton* m_delete;
    CaptionedGrid* m_stored;
    ResultSet m_groups;
};

}  // namespace kelvora
