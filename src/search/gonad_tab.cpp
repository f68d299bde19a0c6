#include "search/gonad_tab.h"

#include "controls/captioned_grid.h"
#include "controls/dialogs.h"
#include "controls/fields.h"
#include "controls/record_navigator.h"
#include "controls/screen.h"
#include "data/connection.h"
#include "records/gonad_store.h"
#include "sampling/fish_fields.h"
#include "sampling/stored_composition.h"

#include <QGridLayout>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace kelvora {
namespace {

GridColumns correctedFishColumns() {
    GridColumns columns = {{u"No."_s, 33, Qt::AlignHCenter}};
    for (const auto& caption :
         {u"TL(cm)"_s, u"BL(cm)"_s, u"FL(cm)"_s, u"SL(cm)"_s, u"BW(g)"_s, u"SEX"_s, u"STAGE"_s, u"GW(g)"_s, u"GSI"_s}) {
        columns.push_back({caption, 53, Qt::AlignHCenter});
    }
    return columns;
}

}  // namespace

GonadTab::GonadTab(Connection& connection, Dialogs& dialogs)
    : SpeciesSampleTab(connection, dialogs,
                       {.navigator = u"Gonad record"_s,
                        .position = u"Species%1/%2 "_s,
                        .deleteButton = u"Delete gonad sample"_s,
                        .deleteTitle = u"CONFIRM"_s,
                        .species = gonadSpecies,
                        .weight = gonadSampleWeight,
                        .remove = deleteGonadSample}),
      m_weight(new ValueLabel),
      m_fish(new Grid(u"Measured fish"_s)),
      m_fields(new FishFields(connection)),
      m_add(new QPushButton(u"&ADD"_s)) {
    auto* sampleForm = new QGridLayout;
    sampleForm->setHorizontalSpacing(12);
    sampleForm->setVerticalSpacing(8);
    sampleForm->setColumnStretch(2, 1);
    sampleForm->addWidget(m_navigator, 0, 0, 1, 3);
    sampleForm->addWidget(m_delete, 0, 3);
    addField(sampleForm, 1, 0, u"Sampling weight"_s, m_weight);
    m_weight->setMinimumWidth(m_weight->sizeHint().width());
    sampleForm->addWidget(m_fish, 2, 0, 1, 4);
    sampleForm->setRowStretch(2, 1);

    auto* fishForm = new QVBoxLayout;
    // Eight fields and the button have to stand beside the grid on a small screen.
    static_cast<QGridLayout*>(m_fields->layout())->setVerticalSpacing(3);
    fishForm->setSpacing(8);
    fishForm->addWidget(m_fields);
    fishForm->addWidget(m_add);
    fishForm->addStretch(1);

    auto* layout = new QHBoxLayout(this);
    layout->setSpacing(16);
    layout->addLayout(sampleForm, 4);
    layout->addLayout(fishForm, 1);

    connect(m_fields, &FishFields::completed, m_add, &QPushButton::click);
    onClick(m_add, [this] { onAdd(); });
}

void GonadTab::showSample(const QString& weight) {
    m_weight->setText(weight);
    showFish();
}

void GonadTab::showFish() {
    showRows(*m_fish, fishOf(connection(), operation().value().number, species().number), correctedFishColumns());
}

void GonadTab::showNone() {
    m_weight->clear();
    m_fish->showBlank(correctedFishColumns());
    m_fields->clear();
}

void GonadTab::setUsable(bool usable) {
    m_fields->setLocked(!usable);
    m_add->setEnabled(usable);
    m_delete->setEnabled(usable);
}

void GonadTab::onAdd() {
    const std::optional<GonadFish> fish = m_fields->askFor(dialogs());
    if (!fish || !mayChangeSample()) {
        return;
    }
    addFish(connection(), *operation(), species(), *fish);
    showFish();
    m_fish->scrollToBottom();
    m_fields->startNext();
    m_fields->focusFirst();
}

}  // namespace kelvora
