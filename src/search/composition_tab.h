#pragma once

#include "data/result_set.h"
#include "search/sample_tab.h"

class QPushButton;

namespace kelvora {

class CompositionSummary;
class Grid;
class RecordNavigator;

/// The species composition of an operation and its groups one by one, the single species being group 1.
class CompositionTab : public SampleTab {
    Q_OBJECT

public:
    CompositionTab(Connection& connection, Dialogs& dialogs);

protected:
    void reload() override;

private:
    void onArrived(int row);
    void showGroup(int row);
    void showNone(const QString& caption);
    void onDelete();
    [[nodiscard]] int currentGroup() const;

    CompositionSummary* m_summary;
    RecordNavigator* m_navigator;
    QPushButton* m_delete;
    Grid* m_group;
    ResultSet m_groups;
};

}  // namespace kelvora
