#include "search/length_tab.h"

#include "controls/captioned_grid.h"
#include "controls/dialogs.h"
#include "controls/fields.h"
#include "controls/record_navigator.h"
#include "controls/screen.h"
#include "data/connection.h"
#include "data/numbers.h"
#include "records/length_checks.h"
#include "records/length_store.h"

#include <QGroupBox>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace kelvora {
namespace {

const QString kError = u"ERROR"_s;

GridColumns classColumns() {
    return {{u"Lower(cm.)"_s, 100, Qt::AlignHCenter},
            {u"Upper(cm.)"_s, 100, Qt::AlignHCenter},
            {u"Mid-length(cm.)"_s, 100, Qt::AlignHCenter},
            {u"Frequency"_s, 100, Qt::AlignHCenter}};
}

}  // namespace

LengthTab::LengthTab(Connection& connection, Dialogs& dialogs)
    : SampleTab(connection, dialogs),
      m_navigator(new RecordNavigator(u"Length record"_s)),
      m_delete(deleteButton(u"Delete length sample"_s)),
      m_classes(new Grid(u"Length classes"_s)),
      m_weight(numberField()),
      m_update(new QPushButton(u"&Update"_s)),
      m_interval(new ValueLabel),
      m_addFrame(new QGroupBox(u"Lower-Upper Length"_s)),
      m_nextLabel(new ValueLabel),
      m_frequency(numberField()),
      m_add(new QPushButton(u"&ADD"_s)) {
    auto* record = new QHBoxLayout;
    record->addWidget(m_navigator, 1);
    record->addWidget(m_delete);
    auto* samples = new QVBoxLayout;
    samples->setSpacing(8);
    samples->addLayout(record);
    samples->addWidget(m_classes, 1);

    auto* layout = new QHBoxLayout(this);
    layout->setSpacing(16);
    layout->addLayout(samples, 3);
    layout->addLayout(sampleForm(), 2);

    connect(m_navigator, &RecordNavigator::arrived, this, &LengthTab::onArrived);
    connect(m_frequency, &QLineEdit::returnPressed, m_add, &QPushButton::click);
    connect(m_weight, &QLineEdit::returnPressed, m_update, &QPushButton::click);
    onClick(m_update, [this] { onUpdate(); });
    onClick(m_add, [this] { onAdd(); });
    onClick(m_delete, [this] { onDelete(); });
}

QLayout* LengthTab::sampleForm() {
    auto* form = new QGridLayout;
    form->setHorizontalSpacing(12);
    form->setVerticalSpacing(8);
    form->setColumnStretch(1, 1);
    addField(form, 0, 0, u"Sample weight (kg.)"_s, m_weight);
    form->addWidget(m_update, 0, 2);
    addField(form, 1, 0, u"Class Interval"_s, m_interval);

    auto* add = new QGridLayout(m_addFrame);
    add->setHorizontalSpacing(12);
    add->setColumnStretch(1, 1);
    addField(add, 0, 0, u"Next class"_s, m_nextLabel);
    addField(add, 1, 0, u"Frequency"_s, m_frequency);
    add->addWidget(m_add, 1, 2);
    form->addWidget(m_addFrame, 2, 0, 1, 3);
    form->setRowStretch(3, 1);
    return form;
}

void LengthTab::reload() {
    m_samples = {};
    if (operation()) {
        m_samples =
            keyed(connection().query(Sql("SELECT fish.genus & ' ' & fish.fishname AS Species,fish.fishno FROM fish "
                                         "INNER JOIN length ON fish.fishno = length.spid where optid = ")
                                     << operation()->number),
                  u"fishno");
    }
    m_navigator->setRowCount(m_samples.rowCount());
}

void LengthTab::onArrived(int row) {
    if (row < 0 || !runGuarded(dialogs(), [&] { showSample(row); })) {
        showNone();
    }
}

void LengthTab::showSample(int row) {
    m_navigator->setCaption(u"Species %1 / %2 "_s.arg(row + 1).arg(m_samples.rowCount()) +
                            m_samples.text(row, u"Species"));
    showWeight();
    const ResultSet fish = connection().query(Sql("select * from fish where fishno = ") << species());
    m_interval->setText(fish.isEmpty() ? QString() : fish.text(0, u"classinterval"));
    showClasses();
    setUsable(true);
}

void LengthTab::showWeight() {
    const ResultSet stored = connection().query(sample());
    m_weight->setText(stored.isEmpty() ? QString() : stored.text(0, u"weight"));
}

void LengthTab::showClasses() {
    auto classes =
        connection().model(Sql("select lower1,upper1,midlength1,frequency1 from length_detail where optid = ")
                           << operation().value().number << " and spid = " << species() << " order by lower1");
    showNextClass(classes->result());
    if (classes->rowCount() == 0) {
        m_classes->showBlank(classColumns());
    } else {
        m_classes->show(std::move(classes), classColumns());
    }
}

/// The class that follows on the last one. Without a class to follow on, or an interval, there is none to add to.
void LengthTab::showNextClass(const ResultSet& classes) {
    m_frequency->clear();
    m_next.reset();
    const double interval = leadingNumber(m_interval->text());
    const std::optional<double> upper =
        classes.isEmpty() ? std::nullopt : classes.number(classes.rowCount() - 1, u"upper1");
    if (!upper) {
        m_nextLabel->setText(u"none: this sample has no classes"_s);
    } else if (interval <= 0) {
        m_nextLabel->setText(u"none: this species has no class interval"_s);
    } else {
        m_next = nextClass(*upper, interval);
        m_nextLabel->setText(plainText(m_next->lower) + u'-' + plainText(m_next->upper));
    }
    m_frequency->setEnabled(m_next.has_value());
    m_add->setEnabled(m_next.has_value());
}

void LengthTab::showNone() {
    m_next.reset();
    m_navigator->setCaption({});
    m_interval->clear();
    m_weight->clear();
    m_frequency->clear();
    m_nextLabel->clear();
    m_classes->showBlank(classColumns());
    setUsable(false);
}

/// There is a sample to mend, or there is none.
void LengthTab::setUsable(bool usable) {
    m_weight->setEnabled(usable);
    m_update->setEnabled(usable);
    m_delete->setVisible(usable);
    m_addFrame->setVisible(usable);
}

void LengthTab::onUpdate() {
    const std::optional<double> weight = toNumber(m_weight->text());
    if (!weight || *weight < 0) {
        dialogs().message(kError, u"Please input sample weight: a number not below 0 (decimal point, no comma)"_s);
        focusOn(m_weight);
        return;
    }
    if (isStored(sample())) {
        correctWeight(connection(), *operation(), species(), *weight);
        showWeight();
        dialogs().message(u"RESULT"_s, u"Update complete!"_s);
    }
}

void LengthTab::onAdd() {
    if (!isFrequency(m_frequency->text())) {
        dialogs().message(kError, u"Numeric Only"_s);
        m_frequency->clear();
        focusOn(m_frequency);
        return;
    }
    if (isStored(sample())) {
        addLengthClass(connection(), *operation(), shownSpecies(),
                       {*m_next, m_next->middle(), leadingNumber(m_frequency->text())});
        showClasses();
        m_classes->scrollToBottom();
        focusOn(m_frequency);
    }
}

void LengthTab::onDelete() {
    if (dialogs().confirm(u"Are you sure to delete?"_s, Dialogs::Question::Deleting) && isStored(sample())) {
        deleteLengthSample(connection(), *operation(), shownSpecies());
        reload();
    }
}

int LengthTab::species() const {
    return m_samples.integer(m_navigator->row(), u"fishno").value();
}

ChosenSpecies LengthTab::shownSpecies() const {
    return {species(), m_samples.text(m_navigator->row(), u"Species")};
}

Sql LengthTab::sample() const {
    return Sql("select * from length where optid = ") << operation().value().number << " and spid = " << species();
}

}  // namespace kelvora
