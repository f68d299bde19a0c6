#include "operations/operation_form.h"

#include "controls/bound_list.h"
#include "controls/dialogs.h"
#include "controls/fields.h"
#include "controls/screen.h"
#include "data/connection.h"
#include "operations/date_field.h"
#include "operations/operation_details.h"
#include "records/gears.h"
#include "records/places.h"
#include "records/vessels.h"

#include <QApplication>
#include <QButtonGroup>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QRadioButton>

#include <map>
#include <vector>

using namespace Qt::StringLiterals;

namespace kelvora {
namespace {

const QString kNoNumber = u"0"_s;

/// The key of a list's row as a whole number.
std::optional<int> chosenKey(const BoundList& list) {
    bool whole = false;
    const int key = list.key().toInt(&whole);
    return !isBlank(list.text()) && whole ? std::optional(key) : std::nullopt;
}

/// Shows in one list what the other's row has as its key. A row without one takes away what belongs to another boat of
/// the register; a text that is no row stays, since it may be the name that the boat still lacks.
void fillFrom(const BoundList& from, BoundList& to) {
    const QString partner = from.key().toString();
    if (!isBlank(from.text()) && from.row() >= 0 && (!partner.isEmpty() || to.row() >= 0)) {
        to.setText(partner);
    }
}

/// The rows of the register behind its ids: of two rows with one id, one registered by its id alone says nothing.
ResultSet registeredIds(ResultSet vessels) {
    using Row = std::vector<QVariant>;
    const auto name = static_cast<std::size_t>(vessels.column(u"vesselname"));
    const auto id = static_cast<std::size_t>(vessels.column(u"vesselid"));
    const auto isNameless = [=](const Row& row) { return isBlank(displayText(row[name])); };
    const auto idOf = [=](const Row& row) { return displayText(row[id]).toCaseFolded(); };
    std::map<QString, bool> named;  // ids of rows without a name: whether another row with the id has one
    for (const Row& row : vessels.rows) {
        if (isNameless(row)) {
            named[idOf(row)] = false;
        }
    }
    if (named.empty()) {
        return vessels;
    }
    for (const Row& row : vessels.rows) {
        if (!isNameless(row) && named.contains(idOf(row))) {
            named[idOf(row)] = true;
        }
    }
    std::erase_if(vessels.rows, [&](const Row& row) { return isNameless(row) && named.at(idOf(row)); });
    return vessels;
}

}  // namespace

OperationForm::OperationForm(Connection& connection, Dialogs& dialogs, const QString& recorder)
    : m_connection(connection),
      m_dialogs(dialogs),
      m_number(new QLineEdit),
      m_vesselNames(new BoundList),
      m_registerIds(new BoundList),
      m_gears(new BoundList),
      m_methods(new BoundList),
      m_areas(new BoundList),
      m_states(new BoundList),
      m_ports(new BoundList),
      m_date(new DateField),
      m_fishingTime(new QButtonGroup(this)),
      m_recorder(new QLineEdit(recorder)),
      m_note(new QPlainTextEdit),
      m_boxes{{u"optid", m_number},        {u"vesselname", m_vesselNames}, {u"vid", m_registerIds},
              {u"guname", m_gears},        {u"methodname", m_methods},     {u"aname", m_areas},
              {u"statename", m_states},    {u"samplingname", m_ports},     {u"optdate", m_date},
              {u"interviewer", m_recorder}} {
    auto* form = new QGridLayout(this);
    form->setContentsMargins(0, 0, 0, 0);
    form->setHorizontalSpacing(10);
    form->setVerticalSpacing(14);
    for (BoundList* list : {m_vesselNames, m_registerIds, m_gears, m_methods, m_areas, m_states, m_ports}) {
        list->setMinimumContentsLength(12);
    }
    constexpr int gap = 20;
    layOutInThree(form, gap,
                  [=, this](const OperationField& field, int row, int column) { add(form, row, column, field); });
    // With large letters a name still fits on the right.
    form->setColumnMinimumWidth(form->columnCount() - 1, fontMetrics().averageCharWidth() * 11);
    makeReadOnly(m_number);
    // Typing starts with the vessel.
    m_number->setFocusPolicy(Qt::ClickFocus);

    const int noteRow = form->rowCount();
    QLabel* note = addField(form, noteRow, 0, u"Note"_s, m_note);
    form->addWidget(m_note, noteRow, 1, 1, -1);
    form->setAlignment(note, Qt::AlignTop);
    m_note->setTabChangesFocus(true);
    m_note->setMinimumHeight(m_note->fontMetrics().lineSpacing() * 4);
    m_note->setMaximumHeight(m_note->fontMetrics().lineSpacing() * 12);

    connectLists();
    fillLists();
}

void OperationForm::add(QGridLayout* form, int row, int column, const OperationField& field) {
    if (field.shown == u"fishingtime") {
        for (QRadioButton* time : addFishingTime(form, row, column, 14)) {
            m_fishingTime->addButton(time);
        }
        m_fishingTime->buttons().first()->setChecked(true);
        return;
    }
    QWidget*& box = m_boxes[field.shown];
    if (box == nullptr) {
        box = m_numbers.emplace_back(numberField(kNoNumber));
    }
    if (field.part.isEmpty()) {
        addField(form, row, column, field.captions.entry.toString(), box);
        return;
    }
    QHBoxLayout* line = addAngle(form, row, column, field.captions.entry, field, m_numbers.back());
    line->setSpacing(8);
    line->setStretchFactor(box, 1);
    if (!field.side.isEmpty()) {
        auto* side = new QLabel(field.side.toString());
        side->setFixedWidth(side->fontMetrics().horizontalAdvance(u'N'));
        line->addWidget(side);
    }
}

void OperationForm::connectLists() {
    connect(m_vesselNames, &BoundList::chosen, this, [this] { fillFrom(*m_vesselNames, *m_registerIds); });
    connect(m_registerIds, &BoundList::chosen, this, [this] { fillFrom(*m_registerIds, *m_vesselNames); });
    connect(m_gears, &BoundList::chosen, this, guarded(m_dialogs, [this] { fillMethods(); }));
    connect(m_states, &BoundList::chosen, this, guarded(m_dialogs, [this] { onState(); }));
    // A state that is not stored has no ports yet: those of the state before must not be offered under it.
    connect(m_states->lineEdit(), &QLineEdit::editingFinished, this, guarded(m_dialogs, [this] {
                if (!chosenState()) {
                    onState();
                }
            }));
    // Once the keyboard is in another field: "SAVE" and "CLEAR" speak for themselves, as does another screen.
    connect(m_date, &DateField::leftWithoutDate, this,
            guarded(m_dialogs,
                    [this] {
                        const QWidget* next = QApplication::focusWidget();
                        if (next != m_date && isAncestorOf(next) && !m_date->date().isValid()) {
                            refuseDate();
                        }
                    }),
            Qt::QueuedConnection);
    m_ports->setOpenCheck([this] {
        if (isBlank(m_states->text())) {
            m_dialogs.message(u"ERROR"_s, u" Please input state first"_s);
            return false;
        }
        return true;
    });
}

/// Another state takes away a port of the one before; a newly typed port may be one of its own.
void OperationForm::onState() {
    if (chosenState() != m_stateOfPorts && m_ports->row() >= 0) {
        m_ports->setText({});
    }
    fillPorts();
}

void OperationForm::clear(const QString& recorder) {
    m_recorder->setText(recorder);
    for (QLineEdit* number : m_numbers) {
        number->setText(kNoNumber);
    }
    m_note->clear();
    m_fishingTime->buttons().first()->setChecked(true);
    m_date->setDate(QDate::currentDate());
    for (BoundList* list : {m_areas, m_vesselNames, m_states, m_gears, m_registerIds}) {
        list->setText({});
    }
    m_ports->clearSource();
    m_methods->clearSource();
    focusOn(m_vesselNames);
}

void OperationForm::fillLists() {
    fillPlaces();
    fillVessels();
    m_gears->setSource(m_connection.model(gearsWithMethods()), u"guname"_s, u"gearid"_s);
    fillAreasAndMethods();
}

void OperationForm::fillVessels() {
    ResultSet vessels = m_connection.query(vesselsByName());
    const QString name = u"vesselname"_s;
    const QString registerId = u"vesselid"_s;
    m_registerIds->setSource(std::make_unique<ResultModel>(registeredIds(vessels)), registerId, name);
    m_vesselNames->setSource(std::make_unique<ResultModel>(std::move(vessels)), name, registerId);
}

void OperationForm::fillMethods() {
    if (const auto gear = chosenKey(*m_gears)) {
        m_methods->setSource(m_connection.model(methodsByName(*gear)), u"methodname"_s, u"methodid"_s);
    }
}

void OperationForm::fillAreasAndMethods() {
    m_areas->setSource(m_connection.model(areasByName()), u"aname"_s, u"aname"_s);
    fillMethods();
}

void OperationForm::fillPlaces() {
    m_states->setSource(m_connection.model(statesByName()), u"statename"_s, u"stateid"_s);
    fillPorts();
}

void OperationForm::fillPorts() {
    m_stateOfPorts = chosenState();
    if (const auto state = m_stateOfPorts) {
        m_ports->setSource(m_connection.model(portsByName(*state)), u"samplingname"_s, u"samplingid"_s);
        return;
    }
    const QString kept = m_ports->text();
    m_ports->clearSource();
    m_ports->setText(kept);
}

OperationEntry OperationForm::entry() const {
    OperationEntry entry;
    for (const OperationField& field : operationFields()) {
        const auto found = m_boxes.find(field.shown);
        if (found == m_boxes.end() || field.member == nullptr) {
            continue;
        }
        const auto* list = qobject_cast<const BoundList*>(found->second);
        entry.*field.member = list != nullptr ? list->text() : static_cast<const QLineEdit*>(found->second)->text();
    }
    const auto keyOf = [](const BoundList& list) { return isBlank(list.text()) ? QString() : list.key().toString(); };
    entry.method = keyOf(*m_methods);
    entry.area = keyOf(*m_areas);
    entry.date = m_date->date();
    entry.fishingTime = m_fishingTime->checkedButton()->text();
    entry.note = m_note->toPlainText();
    return entry;
}

std::optional<int> OperationForm::chosenState() const {
    return chosenKey(*m_states);
}

std::optional<int> OperationForm::chosenPort() const {
    return chosenKey(*m_ports);
}

void OperationForm::showNumber(std::optional<int> number) {
    m_number->setText(number ? QString::number(*number) : QString());
}

void OperationForm::putRight(const OperationRefusal& refusal) {
    QWidget* box = m_boxes.at(operationFields()[static_cast<std::size_t>(refusal.field)].shown);
    if (refusal.reaction == Reaction::SetToZero) {
        static_cast<QLineEdit*>(box)->setText(kNoNumber);
    }
    if (refusal.reaction == Reaction::EmptyAndFocus) {
        static_cast<QLineEdit*>(box)->clear();
    }
    if (refusal.reaction == Reaction::Focus || refusal.reaction == Reaction::EmptyAndFocus) {
        focusOn(box);
    }
}

void OperationForm::refuseDate() {
    if (QWidget* list = QApplication::activePopupWidget(); list != nullptr) {
        list->close();
    }
    m_dialogs.message(u"ERROR"_s, u"The sampling date is no date. Please write it like %1"_s.arg(m_date->example()));
    m_date->setFocus(Qt::OtherFocusReason);
    m_date->selectAll();
}

}  // namespace kelvora
