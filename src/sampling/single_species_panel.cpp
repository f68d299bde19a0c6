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
#include "sampling/composition_store.h"
#include "sampling/raising.h"
#include "sampling/species_list.h"

#include <QGridLayout>
#include <QLineEdit>
#include <QPushButton>

namespace kelvora {
namespace {

GridColumns columns() {
    return {{QStringLiteral("Species"), 3000, Qt::AlignLeft}, {QStringLiteral("Weight(kg)"), 1300, Qt::AlignHCenter}};
}

}  // namespace

SingleSpeciesPanel::SingleSpeciesPanel(const FinderPanel& finder, Connection& connection, const Context& context)
    : QGroupBox(tr("Single species")),
      m_finder(finder),
      m_connection(connection),
      m_context(context),
      m_species(new BoundList),
      m_weight(numberField()),
      m_stored(new CaptionedGrid(tr("Total catch in weight of single species"))),
      m_navigator(m_stored->addNavigator(tr("Single species record"))),
      m_delete(m_stored->addButton(tr("X"))) {
    fillSpecies(*m_species, connection);
    auto* add = new QPushButton(tr("&Add"));
    m_delete->setToolTip(tr("Delete this species"));
    m_delete->setMaximumWidth(40);

    auto* form = new QGridLayout;
    addField(form, 0, 0, tr("Species"), m_species);
    form->removeWidget(m_species);
    form->addWidget(m_species, 0, 1, 1, 2);
    addField(form, 1, 0, tr("Weight"), m_weight);
    form->addWidget(add, 1, 2);
    form->setColumnStretch(1, 1);
    m_stored->layout()->setContentsMargins(0, 0, 0, 0);

    auto* layout = new QVBoxLayout(this);
    layout->addLayout(form);
    layout->addWidget(m_stored, 1);

    connect(add, &QPushButton::clicked, this, guarded(context.dialogs, [this] { onAdd(); }));
    connect(m_weight, &QLineEdit::returnPressed, add, &QPushButton::click);
    connect(m_navigator, &RecordNavigator::arrived, this, &SingleSpeciesPanel::onArrived);
    connect(m_delete, &QPushButton::clicked, this, guarded(context.dialogs, [this] { onDelete(); }));
    reset();
}

void SingleSpeciesPanel::refresh(int operation) {
    auto stored = m_connection.model(
        Sql("SELECT fish.genus & ' ' & fish.fishname AS Species, group_composition.estotal"
            " FROM (group_composition INNER JOIN group_main ON (group_composition.groupid = group_main.groupid) AND"
            " (group_composition.optid = group_main.optid)) INNER JOIN fish ON group_composition.spid = fish.fishno"
            " Where group_composition.optid = ")
        << operation << " and group_composition.groupid = 1"
        << " ORDER BY fish.genus & ' ' & fish.fishname;");
    const int count = stored->rowCount();
    m_stored->grid()->show(std::move(stored), columns());
    m_navigator->setRowCount(count);
}

void SingleSpeciesPanel::reset() {
    m_stored->grid()->show(std::make_unique<TextTable>(2), columns());
    m_navigator->setRowCount(0);
}

void SingleSpeciesPanel::refuse(const QString& title, const QString& text, QWidget* field) const {
    m_context.dialogs.message(title, text);
    field->setFocus();
}

void SingleSpeciesPanel::onAdd() {
    const std::optional<int> operation = m_finder.operation();
    if (!operation) {
        return;
    }
    if (m_weight->text().isEmpty()) {
        refuse(tr("ERROR!"), tr("Please input weight"), m_weight);
        return;
    }
    if (const auto problem = weightProblem(m_weight->text())) {
        refuse(tr("ERROR!"), *problem, m_weight);
        return;
    }
    const std::optional<ChosenSpecies> species = chosenSpecies(*m_species);
    if (!species) {
        refuse(tr("ERROR!"), tr("Please select species!"), m_species);
        return;
    }
    if (hasSingleSpecies(m_connection, *operation, species->number)) {
        m_context.dialogs.message(tr("This species is in database already! please try again"));
        return;
    }
    storeSingleSpecies(m_connection, *operation, species->number, leadingNumber(m_weight->text()));
    m_weight->clear();
    m_weight->setFocus();
    refresh(*operation);
    Q_EMIT changed();
}

void SingleSpeciesPanel::onArrived(int row) {
    m_navigator->setCaption(m_stored->grid()->text(row, 0));
    m_delete->setEnabled(row >= 0);
}

void SingleSpeciesPanel::onDelete() {
    const std::optional<int> operation = m_finder.operation();
    if (!operation) {
        return;
    }
    deleteSingleSpecies(m_connection, *operation, m_navigator->caption());
    refresh(*operation);
    Q_EMIT changed();
}

}  // namespace kelvora
