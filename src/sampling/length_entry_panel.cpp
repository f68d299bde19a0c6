#include "sampling/length_entry_panel.h"

#include "controls/bound_list.h"
#include "controls/captioned_grid.h"
#include "controls/dialogs.h"
#include "controls/fields.h"
#include "controls/screen.h"
#include "controls/text_table.h"
#include "data/numbers.h"
#include "operations/finder_panel.h"
#include "operations/operation_line.h"

#include <QGridLayout>
#include <QLineEdit>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace kelvora {
namespace {

/// Room between the frame around the waiting class and what is in it.
constexpr int kInset = 10;

GridColumns classColumns() {
    return {{u"Lower"_s, 80, Qt::AlignRight},
            {u"Upper"_s, 80, Qt::AlignRight},
            {u"Mid-Length"_s, 100, Qt::AlignRight},
            {u"Frequency"_s, 100, Qt::AlignRight}};
}

QStringList rowOf(const LengthClass& c, const QString& frequency = {}) {
    return {plainText(c.lower), plainText(c.upper), plainText(c.middle()), frequency};
}

}  // namespace

LengthEntryPanel::LengthEntryPanel(const FinderPanel& finder, Connection& connection, Dialogs& dialogs)
    : EntryPanel(finder, connection, dialogs, Offers::Catch),
      m_interval(numberField()),
      m_weight(numberField()),
      m_lowerLimit(numberField()),
      m_start(keyButton(u"&START INPUT>>"_s)),
      m_frame(new QFrame),
      m_currentClass(new ValueLabel),
      m_frequency(numberField()),
      m_finish(keyButton(u"&FINISH"_s)),
      m_save(keyButton(u"SA&VE"_s)),
      m_clear(keyButton(u"&CLEAR"_s)),
      m_grid(new Grid(u"Length classes"_s)),
      m_rows(new TextTable(4, this)),
      m_notice(new QLabel) {
    auto* layout = new QGridLayout(this);
    layout->addWidget(new OperationLine(m_finder), 0, 0, 1, 2);
    m_notice->setTextFormat(Qt::PlainText);
    m_notice->setWordWrap(true);
    layout->addWidget(m_notice, 1, 0, 1, 2);
    layout->addWidget(createForm(), 2, 0);
    layout->addWidget(createFrequencyFrame(), 3, 0);
    layout->addWidget(createButtons(), 4, 0);
    layout->addWidget(m_grid, 2, 1, 4, 1);
    layout->setRowStretch(5, 1);
    layout->setColumnStretch(0, 2);
    layout->setColumnStretch(1, 3);
    layout->setHorizontalSpacing(16);

    m_fields = {m_species, nullptr, m_interval, m_weight, m_lowerLimit};
    m_grid->show(m_rows, classColumns());
    connectFields();
    clear();
}

QWidget* LengthEntryPanel::createForm() {
    auto* form = new QWidget;
    auto* layout = new QGridLayout(form);
    layout->setContentsMargins(0, 0, kInset, 0);
    // The boxes stand above those of the frame, whose caption is the longest.
    layout->setColumnMinimumWidth(0, fontMetrics().horizontalAdvance(u"Lower-Upper Length"_s) + kInset);
    layout->setColumnStretch(1, 1);
    addField(layout, 0, 0, u"Species"_s, m_species);
    addField(layout, 1, 0, u"Class Interval"_s, m_interval);
    addField(layout, 2, 0, u"Sampling weight"_s, m_weight);
    addField(layout, 3, 0, u"Lower limit(cm)"_s, m_lowerLimit);
    layout->addWidget(m_start, 4, 1, Qt::AlignRight);
    return form;
}

QFrame* LengthEntryPanel::createFrequencyFrame() {
    QFont large = m_currentClass->font();
    large.setPointSizeF(large.pointSizeF() * 1.5);
    large.setBold(true);
    m_currentClass->setFont(large);
    m_frequency->setFont(large);
    m_frequency->setAccessibleName(u"Frequency"_s);
    m_frequency->setPlaceholderText(u"Frequency"_s);

    m_frame->setFrameShape(QFrame::StyledPanel);
    auto* layout = new QGridLayout(m_frame);
    layout->setContentsMargins(kInset - 1, kInset, kInset - 1, kInset);
    layout->setColumnStretch(1, 1);
    addField(layout, 0, 0, u"Lower-Upper Length"_s, m_currentClass);
    layout->addWidget(m_frequency, 1, 1);
    layout->addWidget(m_finish, 2, 1, Qt::AlignRight);
    return m_frame;
}

QWidget* LengthEntryPanel::createButtons() {
    auto* buttons = new QWidget;
    auto* layout = new QHBoxLayout(buttons);
    layout->setContentsMargins(0, 0, kInset, 0);
    layout->addStretch(1);
    layout->addWidget(m_save);
    layout->addWidget(m_clear);
    return buttons;
}

void LengthEntryPanel::connectFields() {
    connect(m_species, &BoundList::chosen, this, guarded(m_dialogs, [this] { onSpeciesChosen(); }));
    connect(m_species, &QComboBox::editTextChanged, this, guarded(m_dialogs, [this] { onSpeciesChosen(); }));
    connect(m_interval, &QLineEdit::textChanged, this, &LengthEntryPanel::onIntervalChanged);
    onClick(m_start, [this] { onStart(); });
    connect(m_frequency, &QLineEdit::returnPressed, this, guarded(m_dialogs, [this] { onFrequency(); }));
    onClick(m_finish, [this] { onFinish(); });
    onClick(m_save, [this] { onSave(); });
    onClick(m_clear, [this] {
        clear();
        focusOn(m_species);
    });
}

void LengthEntryPanel::reset() {
    if (!m_started) {
        m_currentClass->clear();
        m_rows->setRows({QStringList()});
        return;
    }
    const QString givenUp =
        u"The count of %1 in fishing operation no. %2 was given up (classes counted: %3): another operation was looked for."_s
            .arg(m_species->text(), QString::number(m_started->number), QString::number(m_counted.size()));
    clear();
    m_notice->setText(givenUp);
    m_notice->show();
}

void LengthEntryPanel::refresh() {
    const bool filled = runGuarded(m_dialogs, [this] { offerCatch(); });
    if (!filled) {
        // Rather no species than those of another operation.
        m_species->clearSource();
    }
}

void LengthEntryPanel::onSpeciesChosen() {
    const std::optional<ChosenSpecies> chosen = chosenSpecies();
    if (!chosen || (m_shownSpecies && chosen->number == m_shownSpecies->number)) {
        return;
    }
    const std::optional<double> interval = storedInterval(m_connection, chosen->number);
    if (m_started && !fitsTheCount(*chosen, interval)) {
        return;
    }
    m_shownSpecies = chosen;
    if (!m_started) {
        m_interval->setText(interval ? plainText(*interval) : QString());
    }
    m_interval->setEnabled(!interval);
}

/// The species may be put right while its fish are counted, as long as the classes remain the same.
bool LengthEntryPanel::fitsTheCount(const ChosenSpecies& chosen, const std::optional<double>& interval) {
    if (interval == leadingNumber(m_interval->text())) {
        return true;
    }
    const ChosenSpecies counted = m_shownSpecies.value();
    m_species->setText(counted.name);
    m_species->setKey(counted.number);
    const QString has =
        interval ? u"is counted in classes of %1 cm"_s.arg(plainText(*interval)) : u"has no class interval yet"_s;
    m_dialogs.message(
        u"ERROR"_s, u"%1 %2, and these fish in classes of %3 cm: they stay with %4. Press CLEAR to begin again."_s.arg(
                        chosen.name, has, m_interval->text(), counted.name));
    return false;
}

void LengthEntryPanel::onIntervalChanged() {
    if (m_interval->text().isEmpty()) {
        return;
    }
    m_counted.clear();
    std::vector<QStringList> rows;
    for (const LengthClass& c : classTable(leadingNumber(m_interval->text()))) {
        rows.push_back(rowOf(c));
    }
    rows.emplace_back();
    rows.push_back({u"TOTAL"_s});
    m_rows->setRows(std::move(rows));
    m_grid->scrollToTop();
}

void LengthEntryPanel::highlight(int row) {
    // A light blue, with a text colour that is read on it in dark mode too.
    m_rows->setRowColours(row, QColor(0xb0, 0xd5, 0xe6), QColor(0x1f, 0x2a, 0x30));
}

LengthStart LengthEntryPanel::typedStart() const {
    return {chosenSpecies().has_value(), m_finder.operation().has_value(), m_interval->text(), m_weight->text(),
            m_lowerLimit->text()};
}

void LengthEntryPanel::onStart() {
    onSpeciesChosen();  // its interval may have been unreadable when it was chosen
    const LengthStart start = typedStart();
    if (isRefused(startRefusal(start))) {
        return;
    }
    if (!replacesStored(*m_finder.operation(), chosenSpecies().value())) {
        clear();
        focusOn(m_species);
        return;
    }
    m_started = m_finder.operation();
    m_notice->hide();
    startAt(classHolding(leadingNumber(start.lowerLimit), leadingNumber(start.interval)).value());
}

bool LengthEntryPanel::replacesStored(const StoredOperation& operation, const ChosenSpecies& species) {
    if (!lengthSampleWeight(m_connection, operation.number, species.number)) {
        return true;
    }
    if (!m_dialogs.confirm(u"CONFORM"_s,
                           u"This species have lenght frequency data in database. Do you want to update?"_s,
                           Dialogs::Question::Deleting)) {
        return false;
    }
    deleteLengthSample(m_connection, operation, species);
    return true;
}

void LengthEntryPanel::startAt(const LengthClass& first) {
    m_current = first;
    m_currentClass->setText(plainText(first.lower) + u" - "_s + plainText(first.upper));
    m_rows->setRows({rowOf(first)});
    highlight(0);
    m_finish->setEnabled(false);
    m_frame->show();
    focusOn(m_frequency);
    m_start->setEnabled(false);
    m_weight->setEnabled(false);
    m_lowerLimit->setEnabled(false);
}

void LengthEntryPanel::onFrequency() {
    if (m_frequency->text().isEmpty()) {
        return;
    }
    const std::optional<double> frequency = typedFrequency(m_dialogs, m_frequency);
    if (!frequency || isRefused(intervalRefusal(m_interval->text()))) {
        return;
    }
    m_finish->setEnabled(true);
    const int waiting = m_rows->rowCount() - 1;
    m_counted.push_back({m_current, *frequency});
    m_current = nextClass(m_current.upper, leadingNumber(m_interval->text()));
    m_rows->setRow(waiting, rowOf(m_counted.back().limits, plainText(*frequency)));
    highlight(waiting);
    m_rows->appendRow(rowOf(m_current));
    m_grid->scrollToBottom();
    m_currentClass->setText(plainText(m_current.lower) + u'-' + plainText(m_current.upper));
    m_frequency->clear();
    focusOn(m_frequency);
}

void LengthEntryPanel::onFinish() {
    m_save->show();
    m_clear->show();
    m_save->setFocus();
    m_finish->setEnabled(false);
}

bool LengthEntryPanel::mayBeSaved() {
    const int started = m_started.value().number;
    const bool elsewhere = m_finder.operation() && m_finder.operation()->number != started;
    if (!elsewhere && isRefused(saveRefusal(typedStart()))) {
        return false;
    }
    QString problem;
    if (elsewhere) {
        problem = u"This sample belongs to fishing operation no. %1: go back to it to save"_s.arg(started);
    } else if (m_counted.empty()) {
        problem = u"There is no length class with a frequency to save"_s;
    } else if (lengthSampleWeight(m_connection, started, chosenSpecies().value().number)) {
        problem = u"This species has a length sample in this operation already"_s;
    }
    if (!problem.isEmpty()) {
        m_dialogs.message(u"ERROR"_s, problem);
    }
    return problem.isEmpty();
}

void LengthEntryPanel::onSave() {
    onSpeciesChosen();
    if (!mayBeSaved() || !m_dialogs.confirm(u"Confirm"_s, u"Are you sure to insert this data"_s)) {
        return;
    }
    storeLengthSample(m_connection, {m_started.value(), chosenSpecies().value(), leadingNumber(m_weight->text()),
                                     leadingNumber(m_interval->text()), m_counted});
    clear();
    focusOn(m_species);
}

void LengthEntryPanel::clear() {
    m_rows->setRows({QStringList()});
    m_species->setText({});
    m_shownSpecies.reset();
    m_started.reset();
    m_counted.clear();
    m_notice->hide();
    for (QLineEdit* box : {m_interval, m_lowerLimit, m_weight, m_frequency}) {
        box->clear();
        box->setEnabled(true);
    }
    m_currentClass->clear();
    m_frame->hide();
    m_start->setEnabled(true);
    m_save->hide();
    m_clear->hide();
}

}  // namespace kelvora
