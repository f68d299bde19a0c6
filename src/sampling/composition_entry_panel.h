#pragma once

#include "sampling/entry_panel.h"

#include <vector>

class QPushButton;

namespace kelvora {

class CaptionedGrid;
class GroupsPanel;
class PendingGroupPanel;
class RecordNavigator;

/// The composition of a catch: the species weighed whole, the sampling groups, and what both come to.
class CompositionEntryPanel : public EntryPanel {
    Q_OBJECT

public:
    CompositionEntryPanel(const FinderPanel& finder, Connection& connection, Dialogs& dialogs);

    void reset() override;
    void refresh() override;
    void refillLists() override;

private:
    QWidget* createSingleSpecies();
    QWidget* createGroups();

    void onAdd();
    void onArrived(int row);
    void onDelete();
    void onGroupSaved();
    void onDeleteGroup(int group);

    void showSingleSpecies();
    void showSummary();
    [[nodiscard]] int operation() const;

    QLineEdit* m_weight;
    CaptionedGrid* m_stored;
    RecordNavigator* m_navigator;
    QPushButton* m_delete;
    PendingGroupPanel* m_pendingGroup;
    GroupsPanel* m_groups;
    CaptionedGrid* m_summary;

    std::vector<ChosenSpecies> m_single;  ///< the species weighed whole, in the order of their grid
};

}  // namespace kelvora
