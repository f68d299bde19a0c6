#include "operations/operation_entry_screen.h"

#include "controls/dialogs.h"
#include "data/names.h"
#include "data/transaction.h"
#include "operations/operation_form.h"
#include "records/keys.h"
#include "records/operation_store.h"

#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>
#include <vector>

using namespace Qt::StringLiterals;

namespace kelvora {
namespace {

const QString kConfirm = u"Confirm"_s;
const QString kNoRecord = u"No Record"_s;

QLabel* heading(const QString& text) {
    auto* label = new QLabel(text);
    QFont font = label->font();
    font.setPointSizeF(font.pointSizeF() * 1.4);
    font.setBold(true);
    label->setFont(font);
    return label;
}

/// Of the rows that a name finds, the one that was chosen if it is among them, else the first.
std::optional<int> keyAmong(const std::vector<int>& found, const std::optional<int>& chosen) {
    if (found.empty()) {
        return std::nullopt;
    }
    return chosen && std::ranges::find(found, *chosen) != found.end() ? *chosen : found.front();
}

}  // namespace

OperationEntryScreen::OperationEntryScreen(const Context& context)
    : Screen(u"Fishing Information"_s, context),
      m_connection(context.databasePath, context.waiting()),
      m_form(new OperationForm(m_connection, dialogs(), context.session.userName)),
      m_save(new QPushButton(u"&SAVE"_s)) {
    auto* clearButton = new QPushButton(u"&CLEAR"_s);

    auto* buttons = new QHBoxLayout;
    buttons->setSpacing(10);
    buttons->addStretch();
    buttons->addWidget(m_save);
    buttons->addWidget(clearButton);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(20, 14, 20, 14);
    layout->setSpacing(14);
    layout->addWidget(heading(u"FISHING OPERATION"_s));
    layout->addWidget(m_form);
    layout->addLayout(buttons);
    layout->addStretch();

    onClick(m_save, [this] { save(); });
    onClick(clearButton, [this] { clear(); });
    guard([this] { giveNumber(); });
}

OperationEntryScreen::~OperationEntryScreen() {
    context().session.lastSavedOperation = 0;
}

void OperationEntryScreen::refillLists() {
    if (m_connection.changedElsewhere()) {
        m_form->fillLists();
        m_form->fillPorts();
    }
}

void OperationEntryScreen::save() {
    m_form->fillAreasAndMethods();
    const OperationEntry entry = m_form->entry();
    if (!passesChecks(entry) || !claimNumber()) {
        return;
    }
    m_stateKey = stateKeyOf(entry.state);
    m_portKey = portKeyOf(entry.state, entry.port);
    offerVessel(entry.registerId);
    store(entry);
}

bool OperationEntryScreen::passesChecks(const OperationEntry& entry) {
    if (const auto refusal = refusalOf(entry)) {
        refuse(dialogs(), refusal->title, refusal->message);
        m_form->putRight(*refusal);
        return false;
    }
    if (!entry.date.isValid()) {
        m_form->refuseDate();
    }
    return entry.date.isValid();
}

/// Makes sure that the number shown is still free, before the sampler is asked anything about the operation.
bool OperationEntryScreen::claimNumber() {
    if (!m_number) {
        giveNumber();
    }
    const int number = m_number.value();
    if (!storedOperation(m_connection, number)) {
        return true;
    }
    giveNumber();
    dialogs().message(
        u"No. %1 was given to another operation in the meantime. Nothing was stored yet: "
        "this operation now has No. %2, please press SAVE again."_s.arg(number)
            .arg(m_number.value()));
    return false;
}

void OperationEntryScreen::giveNumber() {
    m_number.reset();
    m_form->showNumber(m_number);
    m_number = nextOperation(m_connection);
    m_form->showNumber(m_number);
}

int OperationEntryScreen::stateKeyOf(const QString& state) {
    const ResultSet rows = rowsNamed(m_connection, Sql("select * from state where "), {{"statename", state}});
    std::vector<int> found;
    found.reserve(static_cast<std::size_t>(rows.rowCount()));
    for (int row = 0; row < rows.rowCount(); ++row) {
        found.push_back(rows.integer(row, u"stateid").value_or(0));
    }
    if (const auto key = keyAmong(found, m_form->chosenState())) {
        return *key;
    }
    AddState(state);
    return getstateid(state).value_or(0);
}

int OperationEntryScreen::portKeyOf(const QString& state, const QString& port) {
    const ResultSet rows = rowsNamed(m_connection, Sql("select * from samplingport where "), {{"samplingname", port}});
    std::vector<int> found;
    found.reserve(static_cast<std::size_t>(rows.rowCount()));
    for (int row = 0; row < rows.rowCount(); ++row) {
        // A port of the same name in another state is another port.
        if (m_stateKey != 0 && rows.integer(row, u"stateid") == m_stateKey) {
            found.push_back(rows.integer(row, u"samplingid").value_or(0));
        }
    }
    if (const auto key = keyAmong(found, m_form->chosenPort())) {
        return *key;
    }
    AddSampling(port, m_stateKey);
    return getsamplingid(state, port).value_or(0);
}

void OperationEntryScreen::offerVessel(const QString& registerId) {
    if (rowsNamed(m_connection, Sql("select * from vessel where "), {{"vesselid", registerId}}).isEmpty()) {
        addvessel(Sql("insert into vessel(vesselid) values(") << registerId << ")");
    }
}

void OperationEntryScreen::store(const OperationEntry& entry) {
    insertOperation(m_connection, entry, m_number.value(), m_portKey);
    dialogs().message(u"Insert Complete"_s);
    context().session.lastSavedOperation = *m_number;
    m_save->setEnabled(false);
}

void OperationEntryScreen::clear() {
    m_form->clear(context().session.userName);
    context().session.lastSavedOperation = 0;
    m_save->setEnabled(true);
    m_form->fillLists();
    giveNumber();
}

void OperationEntryScreen::AddState(const QString& name) {
    const int key = nextState(m_connection);
    const bool added = executeThenAsk(m_connection, Sql("insert into state values(") << key << "," << name << ")", [&] {
        return dialogs().confirm(kConfirm, u"Are you sure to insert state '"_s + name + u'\'');
    });
    if (added) {
        m_form->fillStates();
        m_form->fillPorts();
    }
}

std::optional<int> OperationEntryScreen::getstateid(const QString& name) {
    const ResultSet rows = rowsNamed(m_connection, Sql("select * from state where "), {{"statename", name}});
    if (rows.isEmpty()) {
        dialogs().message(kNoRecord);
        return std::nullopt;
    }
    return rows.integer(0, u"stateid");
}

void OperationEntryScreen::AddSampling(const QString& name, int stateKey) {
    const int key = nextSamplingPort(m_connection);
    const bool added = executeThenAsk(
        m_connection, Sql("insert into samplingport values(") << key << "," << name << "," << stateKey << ")",
        [&] { return dialogs().confirm(kConfirm, u"Are you sure to insert sampling port '"_s + name + u'\''); });
    if (added) {
        m_form->fillPorts();
    }
}

std::optional<int> OperationEntryScreen::getsamplingid(const QString& stateName, const QString& portName) {
    const ResultSet rows = rowsNamed(
        m_connection, Sql("select * from samplingport inner join state on samplingport.stateid = state.stateid where "),
        {{"statename", stateName}, {"samplingname", portName}});
    if (rows.isEmpty()) {
        dialogs().message(kNoRecord);
        return std::nullopt;
    }
    for (int row = 0; row < rows.rowCount(); ++row) {
        if (rows.integer(row, u"stateid") == m_stateKey) {
            return rows.integer(row, u"samplingid");
        }
    }
    return rows.integer(0, u"samplingid");
}

void OperationEntryScreen::addvessel(const Sql& statement) {
    const bool added = executeThenAsk(m_connection, statement, [this] {
        return dialogs().confirm(kConfirm, u"Are you sure to insert this fishing vessel? "_s);
    });
    if (added) {
        m_form->fillVessels();
    }
}

}  // namespace kelvora
