#pragma once

#include "search/sample_tab.h"

namespace kelvora {

class CaptionedGrid;
class GroupsPanel;

/// The species composition of an operation and its groups one by one, the single species being group 1.
class CompositionTab : public SampleTab {
    Q_OBJECT

public:
    CompositionTab(Connection& connection, Dialogs& dialogs);

protected:
    void reload() override;

private:
    void onDeleteGroup(int group);

    CaptionedGrid* m_summary;
    GroupsPanel* m_groups;
};

}  // namespace kelvora
