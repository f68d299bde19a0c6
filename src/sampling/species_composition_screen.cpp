#include "sampling/species_composition_screen.h"

#include "operations/finder_panel.h"
#include "operations/operation_line.h"
#include "sampling/composition_summary.h"
#include "sampling/pending_group_panel.h"
#include "sampling/single_species_panel.h"
#include "sampling/stored_groups_panel.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QTabWidget>

using namespace Qt::StringLiterals;

namespace kelvora {

SpeciesCompositionScreen::SpeciesCompositionScreen(const Context& context)
    : Screen(u"Species Composition"_s, context),
      m_connection(context.databasePath, context.waiting()),
      m_finder(new FinderPanel(u"Fishing operation no."_s, m_connection, context)),
      m_singleSpecies(new SingleSpeciesPanel(*m_finder, m_connection, context)),
      m_pendingGroup(new PendingGroupPanel(*m_finder, m_connection, context)),
      m_storedGroups(new StoredGroupsPanel(*m_finder, m_connection, context)),
      m_summary(new CompositionSummary) {
    auto* tabs = new QTabWidget;
    tabs->addTab(m_finder, u"Fishing Operation"_s);
    tabs->addTab(createCompositionTab(), u"Species Composition"_s);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(tabs);

    connect(m_finder, &FinderPanel::cleared, this, &SpeciesCompositionScreen::clearResults);
    connect(m_finder, &FinderPanel::loaded, this, &SpeciesCompositionScreen::refreshResults);
    connect(m_singleSpecies, &SingleSpeciesPanel::changed, this, &SpeciesCompositionScreen::refreshSummary);
    connect(m_pendingGroup, &PendingGroupPanel::saved, this, &SpeciesCompositionScreen::refreshGroups);
    connect(m_storedGroups, &StoredGroupsPanel::changed, this, &SpeciesCompositionScreen::refreshSummary);
    m_finder->open(true);
    // Where there is nothing to find, the sampler goes on with the sample.
    tabs->setCurrentIndex(m_finder->isLocked() ? 1 : 0);
}

QWidget* SpeciesCompositionScreen::createCompositionTab() {
    auto* group = new QGroupBox(u"Sampling group"_s);
    auto* groupLayout = new QVBoxLayout(group);
    groupLayout->addWidget(m_pendingGroup, 1);
    groupLayout->addSpacing(8);
    groupLayout->addWidget(m_storedGroups, 1);

    auto* tab = new QWidget;
    auto* areas = new QHBoxLayout;
    areas->addWidget(m_singleSpecies, 10);
    areas->addWidget(group, 15);
    areas->addWidget(m_summary, 13);
    auto* layout = new QVBoxLayout(tab);
    layout->addWidget(new OperationLine(*m_finder));
    layout->addLayout(areas, 1);
    return tab;
}

void SpeciesCompositionScreen::refillLists() {
    if (m_connection.changedElsewhere()) {
        m_finder->refillLists();
        m_singleSpecies->refillLists();
        m_pendingGroup->refillLists();
    }
}

void SpeciesCompositionScreen::clearResults() {
    m_singleSpecies->reset();
    m_storedGroups->reset();
    m_summary->reset();
}

void SpeciesCompositionScreen::refreshResults() {
    const bool shown = guard([this] {
        const int operation = m_finder->operation().value().number;
        m_singleSpecies->refresh(operation);
        m_storedGroups->refresh(operation);
        m_summary->refresh(m_connection, operation);
    });
    if (!shown) {
        // Rather nothing than the samples of the operation shown before.
        clearResults();
    }
}

void SpeciesCompositionScreen::refreshGroups() {
    guard([this] { m_storedGroups->refresh(m_finder->operation().value().number); });
    refreshSummary();
}

void SpeciesCompositionScreen::refreshSummary() {
    guard([this] { m_summary->refresh(m_connection, m_finder->operation().value().number); });
}

}  // namespace kelvora
