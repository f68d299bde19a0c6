#include "sampling/composition_entry_panel.h"

#include "controls/guard.h"
#include "operations/finder_panel.h"
#include "operations/operation_line.h"
#include "records/composition_store.h"
#include "sampling/composition_summary.h"
#include "sampling/groups_panel.h"
#include "sampling/pending_group_panel.h"
#include "sampling/single_species_panel.h"

#include <QHBoxLayout>

using namespace Qt::StringLiterals;

namespace kelvora {

CompositionEntryPanel::CompositionEntryPanel(const FinderPanel& finder, Connection& connection, const Context& context)
    : m_finder(finder),
      m_connection(connection),
      m_dialogs(context.dialogs),
      m_singleSpecies(new SingleSpeciesPanel(finder, connection, context.dialogs)),
      m_pendingGroup(new PendingGroupPanel(finder, connection, context.dialogs)),
      m_groups(new GroupsPanel(connection, context.dialogs, GroupsPanel::Use::Entry,
                               [this](int group) { onDeleteGroup(group); })),
      m_summary(new CompositionSummary) {
    auto* group = new QGroupBox(u"Sampling group"_s);
    auto* groupLayout = new QVBoxLayout(group);
    groupLayout->addWidget(m_pendingGroup, 1);
    groupLayout->addSpacing(8);
    groupLayout->addWidget(m_groups, 1);

    auto* areas = new QHBoxLayout;
    areas->addWidget(m_singleSpecies, 10);
    areas->addWidget(group, 15);
    areas->addWidget(m_summary, 13);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(new OperationLine(finder));
    layout->addLayout(areas, 1);

    connect(m_singleSpecies, &SingleSpeciesPanel::changed, this, &CompositionEntryPanel::refreshSummary);
    connect(m_pendingGroup, &PendingGroupPanel::saved, this, &CompositionEntryPanel::refreshGroups);
}

void CompositionEntryPanel::reset() {
    m_singleSpecies->reset();
    m_groups->reset();
    m_summary->reset();
}

void CompositionEntryPanel::refresh() {
    const bool shown = runGuarded(m_dialogs, [this] {
        m_singleSpecies->refresh(operation());
        m_groups->refresh(operation());
        m_summary->refresh(m_connection, operation());
    });
    if (!shown) {
        // Rather nothing than the samples of the operation shown before.
        reset();
    }
}

void CompositionEntryPanel::refillLists() {
    m_singleSpecies->refillLists();
    m_pendingGroup->refillLists();
}

void CompositionEntryPanel::refreshGroups() {
    runGuarded(m_dialogs, [this] { m_groups->refresh(operation()); });
    refreshSummary();
}

void CompositionEntryPanel::refreshSummary() {
    runGuarded(m_dialogs, [this] { m_summary->refresh(m_connection, operation()); });
}

void CompositionEntryPanel::onDeleteGroup(int group) {
    deleteGroup(m_connection, m_finder.operation().value(), group);
    m_groups->refresh(operation());
    refreshSummary();
}

int CompositionEntryPanel::operation() const {
    return m_finder.operation().value().number;
}

}  // namespace kelvora
