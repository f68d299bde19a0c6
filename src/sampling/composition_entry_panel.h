#pragma once

#include "controls/session.h"
#include "sampling/entry_panel.h"

namespace kelvora {

class CompositionSummary;
class Connection;
class FinderPanel;
class GroupsPanel;
class PendingGroupPanel;
class SingleSpeciesPanel;

/// The composition of a catch: the species weighed whole, the sampling groups, and what both come to.
class CompositionEntryPanel : public EntryPanel {
    Q_OBJECT

public:
    CompositionEntryPanel(const FinderPanel& finder, Connection& connection, const Context& context);

    void reset() override;
    void refresh() override;
    void refillLists() override;

private:
    void refreshGroups();
    void refreshSummary();
    void onDeleteGroup(int group);
    [[nodiscard]] int operation() const;

    const FinderPanel& m_finder;
    Connection& m_connection;
    Dialogs& m_dialogs;
    SingleSpeciesPanel* m_singleSpecies;
    PendingGroupPanel* m_pendingGroup;
    GroupsPanel* m_groups;
    CompositionSummary* m_summary;
};

}  // namespace kelvora
