#include "search/length_tab.h"

#include "controls/captioned_grid.h"
#include "controls/dialogs.h"
#include "controls/fields.h"
#include "controls/record_navigator.h"
#include "controls/screen.h"
#include "data/connection.h"
#include "data/numbers.h"
#include "records/length_store.h"
#include "sampling/entry_panel.h"
#include "sampling/stored_composition.h"

#include <QGroupBox>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace kelvora {
namespace {

GridColumns storedClassColumns() {
    return {{u"Lower(cm.)"_s, 100, Qt::AlignHCenter},
            {u"Upper(cm.)"_s, 100, Qt::AlignHCenter},
            {u"Mid-length(cm.)"_s, 100, Qt::AlignHCenter},
            {u"Frequency"_s, 100, Qt::AlignHCenter}};
}

}  // namespace

LengthTab::LengthTab(Connection& connection, Dialogs& dialogs)
    : SpeciesSampleTab(connection, dialogs,
                       {.navigator = u"Length record"_s,
                        .position = u"Species %1 / %2 "_s,
                        .deleteButton = u"Delete length sample"_s,
                        .deleteTitle = kApplicationTitle.toString(),
                        .species = lengthSpecies,
                        .weight = lengthSampleWeight,
                        .remove = deleteLengthSample}),
      m_classes(new Grid(u"Length classes"_s)),
      m_weight(numberField()),
      m_update(new QPushButton(u"&Update"_s)),
      m_intervalLabel(new ValueLabel),
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

    connect(m_frequency, &QLineEdit::returnPressed, m_add, &QPushButton::click);
    connect(m_weight, &QLineEdit::returnPressed, m_update, &QPushButton::click);
    onClick(m_update, [this] { onUpdate(); });
    onClick(m_add, [this] { onAdd(); });
}

QLayout* LengthTab::sampleForm() {
    auto* form = new QGridLayout;
    form->setHorizontalSpacing(12);
    form->setVerticalSpacing(8);
    form->setColumnStretch(1, 1);
    addField(form, 0, 0, u"Sample weight (kg.)"_s, m_weight);
    form->addWidget(m_update, 0, 2);
    addField(form, 1, 0, u"Class Interval"_s, m_intervalLabel);

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

void LengthTab::showSample(const QString& weight) {
    m_weight->setText(weight);
    const QString interval = displayText(classIntervalOf(connection(), species().number));
    m_interval = leadingNumber(interval);
    m_intervalLabel->setText(interval);
    showClasses();
}

void LengthTab::showClasses() {
    ResultSet classes = lengthClassesOf(connection(), operation().value().number, species().number);
    showNextClass(classes);
    showRows(*m_classes, std::move(classes), storedClassColumns());
}

/// The class that follows on the last one. Without a class to follow on, or an interval, there is none to add to.
void LengthTab::showNextClass(const ResultSet& classes) {
    m_frequency->clear();
    m_next.reset();
    const std::optional<double> upper =
        classes.isEmpty() ? std::nullopt : classes.number(classes.rowCount() - 1, u"upper1");
    if (!upper) {
        m_nextLabel->setText(u"none: this sample has no classes"_s);
    } else if (m_interval <= 0) {
        m_nextLabel->setText(u"none: this species has no class interval"_s);
    } else {
        m_next = nextClass(*upper, m_interval);
        m_nextLabel->setText(plainText(m_next->lower) + u'-' + plainText(m_next->upper));
    }
    m_frequency->setEnabled(m_next.has_value());
    m_add->setEnabled(m_next.has_value());
}

void LengthTab::showNone() {
    m_next.reset();
    m_intervalLabel->clear();
    m_weight->clear();
    m_frequency->clear();
    m_nextLabel->clear();
    m_classes->showBlank(storedClassColumns());
}

void LengthTab::setUsable(bool usable) {
    m_weight->setEnabled(usable);
    m_update->setEnabled(usable);
    m_delete->setVisible(usable);
    m_addFrame->setVisible(usable);
}

void LengthTab::onUpdate() {
    const QString weight = m_weight->text();
    if (const auto refusal = sampleWeightRefusal(weight)) {
        refuse(dialogs(), refusal->title, refusal->message, m_weight);
    } else if (mayChangeSample()) {
        correctWeight(connection(), *operation(), species().number, leadingNumber(weight));
        m_weight->setText(storedWeight());
        dialogs().message(u"RESULT"_s, u"Update complete!"_s);
    }
}

void LengthTab::onAdd() {
    const std::optional<double> frequency = typedFrequency(dialogs(), m_frequency);
    if (frequency && mayChangeSample()) {
        addLengthClass(connection(), *operation(), species(), {*m_next, *frequency});
        showClasses();
        m_classes->scrollToBottom();
        focusOn(m_frequency);
    }
}

}  // namespace kelvora
