#pragma once

#include "controls/screen.h"
#include "data/connection.h"

class QLabel;

namespace kelvora {

class CompositionSummary;
class FinderPanel;
class PendingGroupPanel;
class SingleSpeciesPanel;
class StoredGroupsPanel;

/// "Species Composition": how the catch of one operation divides into species by weight.
class SpeciesCompositionScreen : public Screen {
    Q_OBJECT

public:
    explicit SpeciesCompositionScreen(const Context& context);

protected:
    void refillLists() override;

private:
    QWidget* createCompositionTab();
    void clearResults();
    void refreshResults();
    void refreshGroups();
    void refreshSummary();

    Connection m_connection;
    FinderPanel* m_finder;
    SingleSpeciesPanel* m_singleSpecies;
    PendingGroupPanel* m_pendingGroup;
    StoredGroupsPanel* m_storedGroups;
    CompositionSummary* m_summary;
};

}  // namespace kelvora
