#include "search/gonad_tab.h"

#include "controls/captioned_grid.h"
#include "controls/dialogs.h"
#include "controls/fields.h"
#include "controls/record_navigator.h"
#include "controls/screen.h"
#include "data/connection.h"
#include "records/gonad_store.h"
#include "sampling/fish_fields.h"

#include <QGridLayout>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace kelvora {
namespace {

GridColumns fishColumns() {
    GridColumns columns = {{u"No."_s, 33, Qt::AlignHCenter}};
    for (const auto& caption :
         {u"TL(cm)"_s, u"BL(cm)"_s, u"FL(cm)"_s, u"SL(cm)"_s, u"BW(g)"_s, u"SEX"_s, u"STAGE"_s, u"GW(g)"_s, u"GSI"_s}) {
        columns.push_back({caption, 53, Qt::AlignHCenter});
    }
    return columns;
}

}  // namespace

GonadTab::GonadTab(Connection& connection, Dialogs& dialogs)
    : SampleTab(connection, dialogs),
      m_navigator(new RecordNavigator(u"Gonad record"_s)),
      m_delete(deleteButton(u"Delete gonad sample"_s)),
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

    connect(m_navigator, &RecordNavigator::arrived, this, &GonadTab::onArrived);
    connect(m_fields, &FishFields::completed, m_add, &QPushButton::click);
    onClick(m_add, [this] { onAdd(); });
    onClick(m_delete, [this] { onDelete(); });
}

void GonadTab::reload() {
    m_samples = {};
    if (operation()) {
        m_samples =
            keyed(connection().query(Sql("SELECT fish.fishno, fish.genus & ' ' & fish.fishname AS Species FROM fish "
                                         "INNER JOIN gonad ON fish.fishno = gonad.spid WHERE gonad.optid=")
                                     << operation()->number),
                  u"fishno");
    }
    m_navigator->setRowCount(m_samples.rowCount());
}

void GonadTab::onArrived(int row) {
    if (row < 0 || !runGuarded(dialogs(), [&] { showSample(row); })) {
        showNone();
    }
}

void GonadTab::showSample(int row) {
    m_navigator->setCaption(u"Species%1/%2 "_s.arg(row + 1).arg(m_samples.rowCount()) +
                            m_samples.text(row, u"Species"));
    const ResultSet stored = connection().query(sample());
    m_weight->setText(stored.isEmpty() ? QString() : stored.text(0, u"samplingw"));
    showFish();
    setUsable(true);
}

void GonadTab::showFish() {
    auto fish = connection().model(
        Sql("select samplingno,tl,bl,fl,sl,format(bw,'0.00'),sex,stage,gw,format(gsi,'0.00') from gonad_detail"
            " where optid = ")
        << operation().value().number << " and spid = " << species() << " order by samplingno");
    if (fish->rowCount() == 0) {
        m_fish->showBlank(fishColumns());
    } else {
        m_fish->show(std::move(fish), fishColumns());
    }
}

void GonadTab::showNone() {
    m_navigator->setCaption({});
    m_weight->clear();
    m_fish->showBlank(fishColumns());
    m_fields->clear();
    setUsable(false);
}

/// There is a sample to mend, or there is none.
void GonadTab::setUsable(bool usable) {
    m_fields->setLocked(!usable);
    m_add->setEnabled(usable);
    m_delete->setEnabled(usable);
}

void GonadTab::onAdd() {
    if (!dialogs().confirm(kGonadTitle.toString(), u"Are you sure to add this sampling"_s)) {
        return;
    }
    const GonadFish fish = m_fields->fish();
    if (const std::optional<FishRefusal> refusal = fishRefusal(fish)) {
        dialogs().message(kGonadTitle.toString(), refusal->message);
        m_fields->refuse(refusal->field);
        return;
    }
    if (!isStored(sample())) {
        return;
    }
    addFish(connection(), *operation(), {species(), m_samples.text(m_navigator->row(), u"Species")}, fish);
    showFish();
    m_fish->scrollToBottom();
    m_fields->startNext();
    m_fields->focusFirst();
}

void GonadTab::onDelete() {
    const bool sure = dialogs().confirm(u"CONFIRM"_s, u"Are you sure to delete?"_s, Dialogs::Question::Deleting);
    if (sure && isStored(sample())) {
        deleteGonadSample(connection(), *operation(), species());
        reload();
    }
}

int GonadTab::species() const {
    return m_samples.integer(m_navigator->row(), u"fishno").value();
}

Sql GonadTab::sample() const {
    return Sql("select * from gonad where optid = ") << operation().value().number << " and spid = " << species();
}

}  // namespace kelvora
