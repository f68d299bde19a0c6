#include "sampling/composition_entry_panel.h"

#include "controls/bound_list.h"
#include "controls/captioned_grid.h"
#include "controls/dialogs.h"
#include "controls/fields.h"
#include "controls/record_navigator.h"
#include "controls/screen.h"
#include "controls/text_table.h"
#include "data/numbers.h"
#include "operations/finder_panel.h"
#include "operations/operation_line.h"
#include "records/composition_store.h"
#include "sampling/pending_group_panel.h"
#include "sampling/stored_composition.h"

#include <QGridLayout>
#include <QLineEdit>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace kelvora {
namespace {

constexpr int kSingleSpecies = 1;  ///< the number of their group

GridColumns weightColumns() {
    return {{u"Species"_s, 200, Qt::AlignLeft}, {u"Weight(kg)"_s, 86, Qt::AlignHCenter}};
}

}  // namespace

CompositionEntryPanel::CompositionEntryPanel(const FinderPanel& finder, Connection& connection, Dialogs& dialogs)
    : EntryPanel(finder, connection, dialogs, Offers::Catalogue),
      m_weight(numberField()),
      m_stored(new CaptionedGrid(u"Total catch in weight of single species"_s)),
      m_navigator(m_stored->addNavigator(u"Single species record"_s)),
      m_delete(m_stored->addButton(u"X"_s)),
      m_pendingGroup(new PendingGroupPanel(finder, connection, dialogs)),
      m_groups(
          new GroupsPanel(connection, dialogs, GroupsPanel::Use::Entry, [this](int group) { onDeleteGroup(group); })),
      m_summary(new CaptionedGrid(u"Composition"_s)) {
    m_fields = {nullptr, nullptr, m_species, m_weight};
    auto* areas = new QHBoxLayout;
    areas->addWidget(createSingleSpecies(), 10);
    areas->addWidget(createGroups(), 15);
    areas->addWidget(m_summary, 13);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(new OperationLine(finder));
    layout->addLayout(areas, 1);
    CompositionEntryPanel::reset();
}

QWidget* CompositionEntryPanel::createSingleSpecies() {
    EntryPanel::refillLists();
    auto* add = new QPushButton(u"&Add"_s);
    m_delete->setToolTip(u"Delete this species"_s);
    m_delete->setMaximumWidth(40);

    auto* form = new QGridLayout;
    addField(form, 0, 0, u"Species"_s, m_species);
    form->removeWidget(m_species);
    form->addWidget(m_species, 0, 1, 1, 2);
    addField(form, 1, 0, u"Weight"_s, m_weight);
    form->addWidget(add, 1, 2);
    form->setColumnStretch(1, 1);
    m_stored->layout()->setContentsMargins(0, 0, 0, 0);

    auto* area = new QGroupBox(u"Single species"_s);
    auto* layout = new QVBoxLayout(area);
    layout->addLayout(form);
    layout->addWidget(m_stored, 1);

    onClick(add, [this] { onAdd(); });
    connect(m_weight, &QLineEdit::returnPressed, add, &QPushButton::click);
    connect(m_navigator, &RecordNavigator::arrived, this, &CompositionEntryPanel::onArrived);
    onClick(m_delete, [this] { onDelete(); });
    return area;
}

QWidget* CompositionEntryPanel::createGroups() {
    auto* area = new QGroupBox(u"Sampling group"_s);
    auto* layout = new QVBoxLayout(area);
    layout->addWidget(m_pendingGroup, 1);
    layout->addSpacing(8);
    layout->addWidget(m_groups, 1);
    connect(m_pendingGroup, &PendingGroupPanel::saved, this, &CompositionEntryPanel::onGroupSaved);
    return area;
}

void CompositionEntryPanel::reset() {
    m_single.clear();
    m_stored->grid()->show(std::make_unique<TextTable>(2), weightColumns());
    m_navigator->setRowCount(0);
    m_groups->reset();
    showComposition(*m_summary, {});
}

void CompositionEntryPanel::refresh() {
    const bool shown = runGuarded(m_dialogs, [this] {
        showSingleSpecies();
        m_groups->refresh(operation());
        showComposition(*m_summary, compositionOf(m_connection, operation()));
    });
    if (!shown) {
        // Rather nothing than the samples of the operation shown before.
        reset();
    }
}

void CompositionEntryPanel::refillLists() {
    EntryPanel::refillLists();
    m_pendingGroup->refillLists();
}

void CompositionEntryPanel::onAdd() {
    const auto& current = m_finder.operation();
    const std::optional<ChosenSpecies> species = chosenSpecies();
    if (!current || isRefused(singleSpeciesRefusal(species, m_weight->text()))) {
        return;
    }
    if (hasSingleSpecies(m_connection, current->number, species->number)) {
        m_dialogs.message(u"This species is in database already! please try again"_s);
        return;
    }
    storeSingleSpecies(m_connection, *current, *species, leadingNumber(m_weight->text()));
    m_weight->clear();
    focusOn(m_weight);
    showSingleSpecies();
    m_stored->grid()->bringIntoView(0, species->name);
    showSummary();
}

void CompositionEntryPanel::onArrived(int row) {
    m_navigator->setCaption(row < 0 ? QString() : m_single.at(static_cast<std::size_t>(row)).name);
    m_delete->setEnabled(row >= 0);
}

void CompositionEntryPanel::onDelete() {
    deleteSingleSpecies(m_connection, m_finder.operation().value(),
                        m_single.at(static_cast<std::size_t>(m_navigator->row())));
    showSingleSpecies();
    showSummary();
}

void CompositionEntryPanel::onGroupSaved() {
    runGuarded(m_dialogs, [this] { m_groups->refresh(operation()); });
    showSummary();
}

void CompositionEntryPanel::onDeleteGroup(int group) {
    deleteGroup(m_connection, m_finder.operation().value(), group);
    m_groups->refresh(operation());
    showSummary();
}

void CompositionEntryPanel::showSingleSpecies() {
    const ResultSet stored = speciesOfGroup(m_connection, operation(), kSingleSpecies);
    auto weights = std::make_unique<TextTable>(2);
    for (int row = 0; row < stored.rowCount(); ++row) {
        weights->appendRow({stored.text(row, u"Species"), stored.text(row, u"estotal")});
    }
    m_single = speciesIn(stored);
    m_stored->grid()->show(std::move(weights), weightColumns());
    m_navigator->setRowCount(stored.rowCount());
}

void CompositionEntryPanel::showSummary() {
    runGuarded(m_dialogs, [this] { showComposition(*m_summary, compositionOf(m_connection, operation())); });
}

int CompositionEntryPanel::operation() const {
    return m_finder.operation().value().number;
}

}  // namespace kelvora
