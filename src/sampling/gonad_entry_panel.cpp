#include "sampling/gonad_entry_panel.h"

#include "controls/bound_list.h"
#include "controls/dialogs.h"
#include "controls/fields.h"
#include "controls/progress.h"
#include "controls/screen.h"
#include "data/csv_reader.h"
#include "data/numbers.h"
#include "operations/finder_panel.h"
#include "operations/operation_line.h"
#include "sampling/fish_fields.h"
#include "sampling/measured_fish_grid.h"

#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace kelvora {
namespace {

/// Why the fish could not be stored, in the words for a sampler.
QString reasonOf(const std::exception& failure) {
    const auto* known = dynamic_cast<const DataError*>(&failure);
    if (known != nullptr && !known->reason().isEmpty()) {
        return known->reason();
    }
    const QString reason = internalReason(failure);
    return reason.isEmpty() ? QString::fromUtf8(failure.what()) : reason;
}

}  // namespace

GonadEntryPanel::GonadEntryPanel(const FinderPanel& finder, Connection& connection, Dialogs& dialogs)
    : EntryPanel(finder, connection, dialogs, Offers::Catch),
      m_weight(numberField()),
      m_start(keyButton(u"&ADD SAMPLING >>"_s)),
      m_import(keyButton(u"&IMPORT"_s)),
      m_fields(new FishFields(connection)),
      m_next(keyButton(u"&NEXT>>"_s)),
      m_grid(new MeasuredFishGrid(dialogs)),
      m_save(keyButton(u"&SAVE"_s)),
      m_clear(keyButton(u"&CLEAR"_s)) {
    auto* layout = new QGridLayout(this);
    layout->setHorizontalSpacing(24);
    layout->setVerticalSpacing(12);
    layout->addWidget(new OperationLine(m_finder), 0, 0, 1, 2);
    layout->addWidget(createSampleLine(), 1, 0, 1, 2);
    layout->addWidget(createFishForm(), 2, 0);
    layout->addWidget(createGridSide(), 2, 1);
    layout->setColumnStretch(1, 1);
    layout->setRowStretch(2, 1);
    connectHandlers();
    GonadEntryPanel::reset();
}

QWidget* GonadEntryPanel::createSampleLine() {
    auto* line = new QWidget;
    auto* form = new QGridLayout(line);
    form->setContentsMargins({});
    m_species->setMinimumWidth(320);
    m_species->setMaximumWidth(480);
    form->setColumnMinimumWidth(0, m_fields->captionWidth());
    addField(form, 0, 0, u"Species"_s, m_species);
    form->setColumnMinimumWidth(2, 12);
    addField(form, 0, 3, u"Sampling weight"_s, m_weight);
    m_weight->setMaximumWidth(140);
    form->addWidget(new QLabel(u"kg"_s), 0, 5);
    form->setColumnMinimumWidth(6, 12);
    form->addWidget(m_start, 0, 7);
    form->addWidget(m_import, 0, 8);
    form->setColumnStretch(1, 1);
    form->setColumnStretch(9, 1);
    return line;
}

QWidget* GonadEntryPanel::createFishForm() {
    auto* side = new QWidget;
    auto* layout = new QVBoxLayout(side);
    layout->setContentsMargins({});
    layout->setSpacing(12);
    layout->addWidget(m_fields);
    layout->addWidget(m_next);
    layout->addStretch(1);
    side->setFixedWidth(270);
    return side;
}

QWidget* GonadEntryPanel::createGridSide() {
    auto* side = new QWidget;
    auto* layout = new QVBoxLayout(side);
    layout->setContentsMargins({});
    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(m_save);
    buttons->addWidget(m_clear);
    layout->addWidget(m_grid, 1);
    layout->addLayout(buttons);
    return side;
}

void GonadEntryPanel::connectHandlers() {
    onClick(m_start, [this] { onStart(); });
    onClick(m_import, [this] { onImport(); });
    onClick(m_next, [this] { onNext(); });
    onClick(m_save, [this] { onSave(); });
    onClick(m_clear, [this] { clear(); });
    connect(m_fields, &FishFields::completed, m_next, &QPushButton::click);
    connect(m_grid, &MeasuredFishGrid::deleted, this, &GonadEntryPanel::showWeight);
    connect(m_species, &BoundList::chosen, this, [this] { m_start->setEnabled(true); });
}

void GonadEntryPanel::reset() {
    m_operation.reset();
    m_species->clearSource();
    clear();
}

void GonadEntryPanel::refresh() {
    const auto& operation = m_finder.operation();
    if (operation != m_operation) {
        // Stepping from one operation to the next: the fish measured so far are not of its catch.
        reset();
    }
    runGuarded(m_dialogs, [&] {
        offerCatch();
        m_operation = operation;
    });
}

void GonadEntryPanel::onStart() {
    if (!hasSpecies()) {
        return;
    }
    m_import->setEnabled(true);
    m_next->setEnabled(true);
    m_start->setEnabled(false);
    // Without a fish there is nothing to save; fish that were measured before the species was put right are kept.
    m_save->setEnabled(!m_grid->fish().empty());
    m_fields->setLocked(false);
    m_fields->focusFirst();
}

void GonadEntryPanel::onNext() {
    const std::optional<GonadFish> fish = m_fields->askFor(m_dialogs);
    if (!fish) {
        return;
    }
    m_grid->append(*fish);
    showWeight();
    m_fields->startNext();
    m_fields->focusFirst();
    m_save->setEnabled(true);
}

void GonadEntryPanel::onImport() {
    if (!hasSpecies()) {
        return;
    }
    const std::optional<QString> path = m_dialogs.openFile(Dialogs::FileKind::Any);
    if (path) {
        runGuarded(m_dialogs, [&] { importFile(*path); });
        m_save->setEnabled(true);
    }
}

void GonadEntryPanel::importFile(const QString& path) {
    // What was said of the file before holds for it alone.
    m_grid->say({});
    try {
        CsvReader csv(path);
        importFish(csv);
    } catch (const FormatFault& fault) {
        if (dynamic_cast<const HeaderFault*>(&fault) != nullptr) {
            m_grid->setFish({});
            showWeight();
        }
        m_grid->say(QString::fromUtf8(fault.what()));
        m_dialogs.message(u"ERROR"_s, u"Error File Format"_s);
    }
}

void GonadEntryPanel::importFish(CsvReader& csv) {
    FishReader reader(csv);
    if (!reader.readHeader()) {
        m_dialogs.message(u"No data in this file"_s);
        return;
    }
    Progress progress(u"Reading the file…"_s, csv.size(), Progress::Way::GiveUp);
    std::vector<GonadFish> fish;
    while (std::optional<GonadFish> one = reader.next()) {
        fish.push_back(std::move(*one));
        if (!progress.reached(csv.done())) {
            m_grid->say(u"given up: nothing was loaded"_s);
            return;
        }
    }
    m_grid->setFish(std::move(fish));
    if (reader.passedOver() > 0) {
        m_grid->say(u"empty lines passed over: %1"_s.arg(reader.passedOver()));
    }
    showWeight();
    m_start->setEnabled(false);
}

void GonadEntryPanel::onSave() {
    const std::optional<GonadSample> sample = sampleToStore();
    if (!sample || !m_dialogs.confirm(u"Confirm"_s, u"Are you sure to add this data to database"_s)) {
        return;
    }
    const int storedBefore = m_stored.fish;
    const int all = storedBefore + static_cast<int>(sample->fish.size());
    try {
        Progress progress(u"Storing the fish…"_s, static_cast<int>(sample->fish.size()));
        storeGonadSample(m_connection, *sample, m_stored, [&progress] { progress.step(); });
    } catch (const std::exception& failure) {
        m_grid->setFish({sample->fish.begin() + (m_stored.fish - storedBefore), sample->fish.end()});
        // The rest belongs to the sample whose first fish are stored, so to the same species.
        m_species->setEnabled(!m_stored.begun);
        const bool lost = dynamic_cast<const OriginLost*>(&failure) != nullptr;
        m_dialogs.message(
            u"%1 of %2 fish are stored: %3.\n\nThe others are still in the grid. "_s.arg(
                QString::number(m_stored.fish), QString::number(all), reasonOf(failure)) +
            (lost ? u"Choosing another operation empties it: note them before (marked rows are copied with Ctrl+C)."_s
                  : u"Press SAVE again to store them."_s));
        return;
    }
    endSample();
    m_start->setEnabled(false);
    focusOn(m_species);
}

std::optional<GonadSample> GonadEntryPanel::sampleToStore() {
    if (!hasSpecies()) {
        return std::nullopt;
    }
    if (m_grid->fish().empty() && !m_stored.begun) {
        m_dialogs.message(u"There is no fish in the grid. Nothing was stored."_s);
        return std::nullopt;
    }
    const std::optional<double> weight = toNumber(m_weight->text());
    if (!weight || *weight < 0) {
        m_dialogs.message(kGonadTitle.toString(),
                          u"Please input Sampling weight in numeric (decimal point, no comma)"_s);
        showWeight();
        focusOn(m_weight);
        return std::nullopt;
    }
    return GonadSample{*m_operation, chosenSpecies().value(), *weight, m_grid->fish()};
}

void GonadEntryPanel::clear() {
    m_fields->clear();
    endSample();
    m_start->setEnabled(true);
}

void GonadEntryPanel::endSample() {
    m_stored = {};
    m_grid->setFish({});
    m_species->setText({});
    m_species->setEnabled(true);
    m_weight->setText(u"0"_s);
    m_fields->setLocked(true);
    m_next->setEnabled(false);
    m_import->setEnabled(false);
    m_save->setEnabled(false);
}

bool GonadEntryPanel::hasSpecies() {
    if (!m_species->key().isValid()) {
        m_dialogs.message(u"select species"_s);
        focusOn(m_species);
        return false;
    }
    if (m_operation != m_finder.operation()) {
        // The finder stands on an operation that was deleted meanwhile.
        m_dialogs.message(u"Please choose a fishing operation first"_s);
        return false;
    }
    return true;
}

void GonadEntryPanel::showWeight() {
    m_weight->setText(samplingWeightText(m_stored.bodyWeights + bodyWeightSum(m_grid->fish())));
}

}  // namespace kelvora
