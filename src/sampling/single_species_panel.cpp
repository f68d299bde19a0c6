#include "sampling/single_species_panel.h"

#include "controls/bound_list.h"
#include "controls/captioned_grid.h"
#include "controls/dialogs.h"
#include "controls/fields.h"
#include "controls/guard.h"
#include "controls/record_navigator.h"
#include "controls/text_table.h"
#include "data/numbers.h"
#include "operations/finder_panel.h"
#include "records/composition_store.h"
#include "sampling/species_list.h"

#include <QGridLayout>
#include <QLineEdit>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace kelvora {
namespace {

GridColumns weightColumns() {
    return {{u"Species"_s, 200, Qt::AlignLeft}, {u"Weight(kg)"_s, 86, Qt::AlignHCenter}};
}

}  // namespace

SingleSpeciesPanel::SingleSpeciesPanel(const FinderPanel& finder, Connection& connection, Dialogs& dialogs)
    : QGroupBox(u"Single species"_s),
      m_finder(finder),
      m_connection(connection),
      m_dialogs(dialogs),
      m_species(new BoundList),
      m_weight(numberField()),
      m_stored(new CaptionedGrid(u"Total catch in weight of single species"_s)),
      m_navigator(m_stored->addNavigator(u"Single species record"_s)),
      m_delete(m_stored->addButton(u"X"_s)) {
    fillSpecies(*m_species, connection);
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

    auto* layout = new QVBoxLayout(this);
    layout->addLayout(form);
    layout->addWidget(m_stored, 1);

    connect(add, &QPushButton::clicked, this, guarded(dialogs, [this] { onAdd(); }));
    connect(m_weight, &QLineEdit::returnPressed, add, &QPushButton::click);
    connect(m_navigator, &RecordNavigator::arrived, this, &SingleSpeciesPanel::onArrived);
    connect(m_delete, &QPushButton::clicked, this, guarded(dialogs, [this] { onDelete(); }));
    reset();
}

void SingleSpeciesPanel::refresh(int operation) {
    const ResultSet stored = singleSpeciesOf(m_connection, operation);
    auto weights = std::make_unique<TextTable>(2);
    for (int row = 0; row < stored.rowCount(); ++row) {
        weights->appendRow({stored.text(row, u"Species"), stored.text(row, u"estotal")});
    }
    m_shown = speciesIn(stored);
    m_stored->grid()->show(std::move(weights), weightColumns());
    m_navigator->setRowCount(stored.rowCount());
}

void SingleSpeciesPanel::refillLists() {
    fillSpecies(*m_species, m_connection);
}

void SingleSpeciesPanel::reset() {
    m_shown.clear();
    m_stored->grid()->show(std::make_unique<TextTable>(2), weightColumns());
    m_navigator->setRowCount(0);
}

void SingleSpeciesPanel::onAdd() {
    const auto& operation = m_finder.operation();
    if (!operation) {
        return;
    }
    const std::optional<ChosenSpecies> species = chosenSpecies(*m_species);
    if (const auto refusal = singleSpeciesRefusal(species, m_weight->text())) {
        const bool weight = refusal->field == WeightField;
        refuse(m_dialogs, refusal->title, refusal->message, weight ? static_cast<QWidget*>(m_weight) : m_species);
        return;
    }
    if (hasSingleSpecies(m_connection, operation->number, species->number)) {
        m_dialogs.message(u"This species is in database already! please try again"_s);
        return;
    }
    storeSingleSpecies(m_connection, *operation, *species, leadingNumber(m_weight->text()));
    m_weight->clear();
    focusOn(m_weight);
    refresh(operation->number);
    m_stored->grid()->bringIntoView(0, species->name);
    Q_EMIT changed();
}

void SingleSpeciesPanel::onArrived(int row) {
    m_navigator->setCaption(row < 0 ? QString() : m_shown.at(static_cast<std::size_t>(row)).name);
    m_delete->setEnabled(row >= 0);
}

void SingleSpeciesPanel::onDelete() {
    const auto& operation = m_finder.operation();
    if (!operation) {
        return;
    }
    deleteSingleSpecies(m_connection, *operation, m_shown.at(static_cast<std::size_t>(m_navigator->row())));
    refresh(operation->number);
    Q_EMIT changed();
}

}  // namespace kelvora
