#include "operations/operation_form.h"

#include "controls/bound_list.h"
#include "controls/dialogs.h"
#include "controls/fields.h"
#include "controls/screen.h"
#include "data/connection.h"
#include "operations/date_field.h"

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

/// Where the captions of the three columns stand; the fields stand beside them, the room between columns behind those.
constexpr int kFirst = 0;
constexpr int kSecond = 3;
constexpr int kThird = 6;

const QString kNoNumber = u"0"_s;

QLineEdit* zeroField(QWidget* parent, const QString& name = {}) {
    QLineEdit* field = numberField(kNoNumber);
    field->setParent(parent);
    field->setAccessibleName(name);
    return field;
}

/// Degrees and minutes in one row of a form: "Dec [ ] Min [ ] N".
void addPosition(QGridLayout* form, int row, const QString& caption, QLineEdit* dec, QLineEdit* min,
                 const QString& direction) {
    auto* position = new QHBoxLayout;
    position->setSpacing(8);
    position->addWidget(new QLabel(u"Dec"_s));
    position->addWidget(dec, 1);
    position->addWidget(new QLabel(u"Min"_s));
    position->addWidget(min, 1);
    auto* side = new QLabel(direction);
    side->setFixedWidth(side->fontMetrics().horizontalAdvance(u'N'));
    position->addWidget(side);
    auto* label = new QLabel(caption);
    label->setBuddy(dec);
    form->addWidget(label, row, kSecond);
    form->addLayout(position, row, kSecond + 1);
}

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
    const auto text = [&](const Row& row, QStringView column) {
        return displayText(row[static_cast<std::size_t>(vessels.column(column))]);
    };
    const auto isNameless = [&](const Row& row) { return isBlank(text(row, u"vesselname")); };
    std::map<QString, bool> named;  // ids of rows without a name: whether another row with the id has one
    for (const Row& row : vessels.rows) {
        if (isNameless(row)) {
            named[text(row, u"vesselid").toCaseFolded()] = false;
        }
    }
    if (named.empty()) {
        return vessels;
    }
    for (const Row& row : vessels.rows) {
        const auto found = named.find(text(row, u"vesselid").toCaseFolded());
        if (found != named.end() && !isNameless(row)) {
            found->second = true;
        }
    }
    std::erase_if(vessels.rows,
                  [&](const Row& row) { return isNameless(row) && named.at(text(row, u"vesselid").toCaseFolded()); });
    return vessels;
}

}  // namespace

OperationForm::OperationForm(Connection& connection, Dialogs& dialogs, const QString& recorder)
    : m_connection(connection),
      m_dialogs(dialogs),
      m_number(new QLineEdit(this)),
      m_vesselNames(new BoundList(this)),
      m_registerIds(new BoundList(this)),
      m_gears(new BoundList(this)),
      m_methods(new BoundList(this)),
      m_areas(new BoundList(this)),
      m_states(new BoundList(this)),
      m_ports(new BoundList(this)),
      m_date(new DateField(this)),
      m_latitudeDec(zeroField(this, u"Latitude Dec"_s)),
      m_latitudeMin(zeroField(this, u"Latitude Min"_s)),
      m_longitudeDec(zeroField(this, u"Longtitude Dec"_s)),
      m_longitudeMin(zeroField(this, u"Longtitude Min"_s)),
      m_fishingTime(new QButtonGroup(this)),
      m_bottomDepth(zeroField(this)),
      m_fishingDepth(zeroField(this)),
      m_hauls(zeroField(this)),
      m_duration(zeroField(this)),
      m_totalCatch(zeroField(this)),
      m_recorder(new QLineEdit(recorder, this)),
      m_note(new QPlainTextEdit(this)) {
    auto* form = new QGridLayout(this);
    form->setContentsMargins(0, 0, 0, 0);
    form->setHorizontalSpacing(10);
    form->setVerticalSpacing(14);
    // With large letters a name still fits on the right.
    form->setColumnMinimumWidth(kThird + 1, fontMetrics().averageCharWidth() * 11);
    for (BoundList* list : {m_vesselNames, m_registerIds, m_gears, m_methods, m_areas, m_states, m_ports}) {
        list->setMinimumContentsLength(12);
    }
    for (const int captions : {kFirst, kSecond, kThird}) {
        form->setColumnStretch(captions + 1, 1);
    }
    for (const int gap : {kSecond - 1, kThird - 1}) {
        form->setColumnMinimumWidth(gap, 20);
    }
    addCatchColumn(form);
    addLandingColumn(form);
    addTripColumn(form);

    QLabel* note = addField(form, 6, kFirst, u" Note"_s, m_note);
    form->addWidget(m_note, 6, kFirst + 1, 1, kThird + 1 - kFirst);
    form->setAlignment(note, Qt::AlignTop);
    m_note->setTabChangesFocus(true);
    m_note->setMinimumHeight(m_note->fontMetrics().lineSpacing() * 4);
    m_note->setMaximumHeight(m_note->fontMetrics().lineSpacing() * 12);

    connectLists();
    fillLists();
}

void OperationForm::addCatchColumn(QGridLayout* form) {
    addField(form, 0, kFirst, u" No."_s, m_number);
    addField(form, 1, kFirst, u" Vessel Name"_s, m_vesselNames);
    addField(form, 2, kFirst, u" Vessel Register id"_s, m_registerIds);
    addField(form, 3, kFirst, u" Fishing Gear"_s, m_gears);
    addField(form, 4, kFirst, u" Fishing Method"_s, m_methods);
    addField(form, 5, kFirst, u" Fishing Area"_s, m_areas);
    makeReadOnly(m_number);
    // Typing starts with the vessel.
    m_number->setFocusPolicy(Qt::ClickFocus);
}

void OperationForm::addLandingColumn(QGridLayout* form) {
    addField(form, 0, kSecond, u" Landing State/Province"_s, m_states);
    addField(form, 1, kSecond, u" Landing Port"_s, m_ports);
    addField(form, 2, kSecond, u" Sampling Date"_s, m_date);
    addPosition(form, 3, u"Latitude"_s, m_latitudeDec, m_latitudeMin, u"N"_s);
    addPosition(form, 4, u"Longtitude"_s, m_longitudeDec, m_longitudeMin, u"E"_s);

    auto* options = new QHBoxLayout;
    options->setSpacing(14);
    QWidget* before = m_longitudeMin;
    for (const QString& time : {u"Day"_s, u"Night"_s, u"Day and Night"_s}) {
        auto* option = new QRadioButton(time, this);
        m_fishingTime->addButton(option);
        options->addWidget(option);
        setTabOrder(before, option);
        before = option;
    }
    options->addStretch();
    m_fishingTime->buttons().first()->setChecked(true);
    auto* label = new QLabel(u"Fishing time"_s);
    label->setBuddy(m_fishingTime->buttons().first());
    form->addWidget(label, 5, kSecond);
    form->addLayout(options, 5, kSecond + 1);
}

void OperationForm::addTripColumn(QGridLayout* form) {
    addField(form, 0, kThird, u" Bottom Depth(Meter)"_s, m_bottomDepth);
    addField(form, 1, kThird, u" Fishing Depth(Meter)"_s, m_fishingDepth);
    addField(form, 2, kThird, u" No of haul per Trip(haul)"_s, m_hauls);
    addField(form, 3, kThird, u" Duration of Trip(days)"_s, m_duration);
    addField(form, 4, kThird, u" Total Catch (kg/trip)"_s, m_totalCatch);
    addField(form, 5, kThird, u" Recorder"_s, m_recorder);
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
    for (QLineEdit* number : {m_bottomDepth, m_latitudeDec, m_latitudeMin, m_longitudeDec, m_longitudeMin,
                              m_fishingDepth, m_hauls, m_duration, m_totalCatch}) {
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
    fillStates();
    fillVessels();
    fillGears();
    fillAreasAndMethods();
}

void OperationForm::fillVessels() {
    ResultSet vessels = m_connection.query(Sql("select * from vessel order by vesselname"));
    const QString name = u"vesselname"_s;
    const QString registerId = u"vesselid"_s;
    m_registerIds->setSource(std::make_unique<ResultModel>(registeredIds(vessels)), registerId, name);
    m_vesselNames->setSource(std::make_unique<ResultModel>(std::move(vessels)), name, registerId);
}

void OperationForm::fillGears() {
    m_gears->setSource(m_connection.model(Sql("select * from fishing_gear where gearid in "
                                              "(select gearid from Fishing_method )order by guname")),
                       u"guname"_s, u"gearid"_s);
}

void OperationForm::fillMethods() {
    if (const auto gear = chosenKey(*m_gears)) {
        m_methods->setSource(
            m_connection.model(Sql("select * from Fishing_method where gearid = ") << *gear << " order by methodname"),
            u"methodname"_s, u"methodid"_s);
    }
}

void OperationForm::fillAreasAndMethods() {
    m_areas->setSource(m_connection.model(Sql("select * from Fishing_area order by aname")), u"aname"_s, u"aname"_s);
    fillMethods();
}

void OperationForm::fillStates() {
    m_states->setSource(m_connection.model(Sql("select * from state order by statename")), u"statename"_s,
                        u"stateid"_s);
}

void OperationForm::fillPorts() {
    m_stateOfPorts = chosenState();
    if (const auto state = m_stateOfPorts) {
        m_ports->setSource(m_connection.model(Sql("select * from samplingport where stateid = ")
                                              << *state << " order by samplingname"),
                           u"samplingname"_s, u"samplingid"_s);
        return;
    }
    const QString kept = m_ports->text();
    m_ports->clearSource();
    m_ports->setText(kept);
}

OperationEntry OperationForm::entry() const {
    return {.vesselName = m_vesselNames->text(),
            .registerId = m_registerIds->text(),
            .method = chosenKey(*m_methods),
            .area = m_areas->text(),
            .chosenArea = m_areas->key().toString(),
            .state = m_states->text(),
            .port = m_ports->text(),
            .date = m_date->date(),
            .latitudeDec = m_latitudeDec->text(),
            .latitudeMin = m_latitudeMin->text(),
            .longitudeDec = m_longitudeDec->text(),
            .longitudeMin = m_longitudeMin->text(),
            .fishingTime = m_fishingTime->checkedButton()->text(),
            .bottomDepth = m_bottomDepth->text(),
            .fishingDepth = m_fishingDepth->text(),
            .hauls = m_hauls->text(),
            .duration = m_duration->text(),
            .totalCatch = m_totalCatch->text(),
            .recorder = m_recorder->text(),
            .note = m_note->toPlainText()};
}

std::optional<int> OperationForm::chosenState() const {
    return chosenKey(*m_states);
}

std::optional<int> OperationForm::chosenPort() const {
    return chosenKey(*m_ports);
}

std::optional<int> OperationForm::number() const {
    bool whole = false;
    const int shown = m_number->text().toInt(&whole);
    return whole ? std::optional(shown) : std::nullopt;
}

void OperationForm::setNumber(std::optional<int> number) {
    m_number->setText(number ? QString::number(*number) : QString());
}

void OperationForm::sendBack(const OperationCheck& failed) {
    QWidget* found = field(failed.field);
    auto* box = qobject_cast<QLineEdit*>(found);
    if (box != nullptr && failed.reaction == Reaction::EmptyAndFocus) {
        box->clear();
    }
    if (box != nullptr && failed.reaction == Reaction::SetToZero) {
        box->setText(kNoNumber);
    }
    if (failed.reaction == Reaction::Focus || failed.reaction == Reaction::EmptyAndFocus) {
        focusOn(found);
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

QWidget* OperationForm::field(OperationField field) const {
    using enum OperationField;
    const std::map<OperationField, QWidget*> fields = {
        {State, m_states},
        {Port, m_ports},
        {Area, m_areas},
        {RegisterId, m_registerIds},
        {Method, m_methods},
        {LatitudeDec, m_latitudeDec},
        {LatitudeMin, m_latitudeMin},
        {LongitudeDec, m_longitudeDec},
        {LongitudeMin, m_longitudeMin},
        {BottomDepth, m_bottomDepth},
        {FishingDepth, m_fishingDepth},
        {Hauls, m_hauls},
        {Duration, m_duration},
        {TotalCatch, m_totalCatch},
    };
    return fields.at(field);
}

}  // namespace kelvora
