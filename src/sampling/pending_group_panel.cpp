#include "sampling/pending_group_panel.h"

#include "controls/bound_list.h"
#include "controls/captioned_grid.h"
#include "controls/dialogs.h"
#include "controls/fields.h"
#include "data/numbers.h"
#include "operations/finder_panel.h"
#include "records/composition_store.h"

#include <QGridLayout>
#include <QLineEdit>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace kelvora {
namespace {

GridColumns pendingColumns() {
    return {{u"Species"_s, 226, Qt::AlignLeft}, {u"Weight(kg.)"_s, 86, Qt::AlignHCenter}};
}

}  // namespace

PendingGroupPanel::PendingGroupPanel(const FinderPanel& finder, Connection& connection, Dialogs& dialogs)
    : EntryPanel(finder, connection, dialogs, Offers::Catalogue),
      m_group(new QLineEdit),
      m_total(numberField()),
      m_sample(new ValueLabel),
      m_weight(numberField()),
      m_list(new Grid(u"Pending group"_s)),
      m_rows(2),
      m_save(new QPushButton(u"&SAVE"_s)),
      m_clear(new QPushButton(u"&CLEAR"_s)) {
    m_fields = {m_group, m_total, m_species, m_weight};
    refillLists();
    m_list->show(&m_rows, pendingColumns());
    auto* add = new QPushButton(u"A&DD"_s);

    auto* form = new QGridLayout;
    form->setColumnStretch(1, 1);
    m_total->setMaximumWidth(m_total->minimumWidth());
    m_weight->setMaximumWidth(m_weight->minimumWidth());
    addField(form, 0, 0, u"Group"_s, m_group);
    addField(form, 0, 2, u"Total weight"_s, m_total);
    addField(form, 1, 0, u"Species"_s, m_species);
    form->removeWidget(m_species);
    form->addWidget(m_species, 1, 1, 1, 3);
    addField(form, 2, 0, u"Weight"_s, m_weight);
    form->addWidget(add, 2, 2, 1, 2, Qt::AlignRight);

    auto* sum = new QGridLayout;
    sum->setColumnStretch(1, 1);
    addField(sum, 0, 0, u"Total Sampling weight"_s, m_sample);
    sum->addWidget(m_save, 0, 2);
    sum->addWidget(m_clear, 0, 3);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addLayout(form);
    layout->addWidget(m_list, 1);
    layout->addLayout(sum);

    onClick(add, [this] { onAdd(); });
    connect(m_weight, &QLineEdit::returnPressed, add, &QPushButton::click);
    onClick(m_save, [this] { onSave(); });
    onClick(m_clear, [this] { onClear(); });
    onClear();
    m_save->setEnabled(false);
    m_clear->setEnabled(false);
}

SamplingGroup PendingGroupPanel::typedGroup() const {
    return {m_group->text(), leadingNumber(m_total->text()), m_listed};
}

bool PendingGroupPanel::askName() {
    const bool asks = m_group->text().trimmed().isEmpty();
    const QString name = asks ? m_dialogs.input(u"Please input groupname"_s).value_or(QString()) : m_group->text();
    if (isRefused(groupNameRefusal(name))) {
        return false;
    }
    if (asks) {
        m_group->setText(name);
        m_group->setEnabled(false);
    }
    return true;
}

bool PendingGroupPanel::askTotal() {
    const bool asks = m_total->text().isEmpty();
    const QString typed =
        asks ? m_dialogs.input(u"Please input total sampling weight!"_s).value_or(QString()) : m_total->text();
    if (isRefused(totalWeightRefusal(typed))) {
        return false;
    }
    if (asks) {
        m_total->setText(plainText(leadingNumber(typed)));
        m_total->setEnabled(false);
    }
    return true;
}

void PendingGroupPanel::onAdd() {
    if (!m_finder.operation() || !askName() || !askTotal()) {
        return;
    }
    const std::optional<ChosenSpecies> species = chosenSpecies();
    if (isRefused(sampledSpeciesRefusal(species, m_weight->text()))) {
        return;
    }
    const SampledSpecies sampled{*species, leadingNumber(m_weight->text())};
    const auto refusal = furtherSpeciesRefusal(typedGroup(), sampled);
    if (refusal && refusal->field == WeightField) {
        m_weight->clear();
    }
    if (isRefused(refusal)) {
        return;
    }
    m_listed.push_back(sampled);
    m_rows.setRow(m_rows.rowCount() - 1, {species->name, m_weight->text()});
    m_rows.appendRow({});
    m_list->scrollToBottom();
    m_sample->setText(plainText(typedGroup().sample()));
    m_weight->clear();
    m_save->setEnabled(true);
    m_clear->setEnabled(true);
    focusOn(m_species);
}

bool PendingGroupPanel::chooseFreeName(int operation) {
    if (!hasGroup(m_connection, operation, m_group->text())) {
        return true;
    }
    m_dialogs.message(u"ERROR!"_s, u"Group repeat please change new group"_s);
    m_group->clear();
    m_group->setEnabled(true);
    focusOn(m_group);
    return false;
}

void PendingGroupPanel::onSave() {
    const auto& operation = m_finder.operation();
    if (!operation) {
        m_dialogs.message(u"ERROR"_s, u"Please choose a fishing operation for this group"_s);
        return;
    }
    // The boxes may have been changed since the last species was listed.
    const SamplingGroup group = typedGroup();
    if (isRefused(groupNameRefusal(group.name)) || isRefused(totalWeightRefusal(m_total->text())) ||
        isRefused(sampleRefusal(group))) {
        return;
    }
    if (!m_dialogs.confirm(u"CONFIRM"_s, u"Are you sure to 'SAVE' this group"_s) ||
        !chooseFreeName(operation->number)) {
        return;
    }
    storeGroup(m_connection, *operation, group);
    onClear();
    focusOn(m_group);
    m_save->setEnabled(false);
    m_clear->setEnabled(false);
    Q_EMIT saved();
}

void PendingGroupPanel::onClear() {
    m_listed.clear();
    m_rows.setRows({QStringList()});
    m_group->clear();
    m_total->clear();
    m_sample->clear();
    m_weight->clear();
    m_species->setText({});
    m_group->setEnabled(true);
    m_total->setEnabled(true);
}

}  // namespace kelvora
