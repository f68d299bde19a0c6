#include "operations/operation_entry_screen.h"

#include "controls/dialogs.h"
#include "operations/operation_form.h"
#include "records/keys.h"
#include "records/operation_store.h"
#include "records/places.h"
#include "records/vessels.h"

#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>
#include <vector>

using namespace Qt::StringLiterals;

namespace kelvora {
namespace {

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
    }
}

void OperationEntryScreen::save() {
    m_form->fillAreasAndMethods();
    const OperationEntry entry = m_form->entry();
    if (!passesChecks(entry) || !claimNumber()) {
        return;
    }
    const int state = stateKeyOf(entry.state);
    const int port = portKeyOf(entry, state);
    offerVessel(entry.registerId);
    insertOperation(m_connection, entry, m_number.value(), port);
    dialogs().message(u"Insert Complete"_s);
    context().session.lastSavedOperation = *m_number;
    m_save->setEnabled(false);
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
    if (const auto key = keyAmong(keysOfState(m_connection, state), m_form->chosenState())) {
        return *key;
    }
    if (AddState(m_connection, state, asked(u"Are you sure to insert state '"_s + state + u'\''))) {
        m_form->fillPlaces();
    }
    return foundKey(getstateid(m_connection, state));
}

int OperationEntryScreen::portKeyOf(const OperationEntry& entry, int state) {
    const QString& port = entry.port;
    if (const auto key = keyAmong(keysOfPort(m_connection, port, state), m_form->chosenPort())) {
        return *key;
    }
    if (AddSampling(m_connection, port, state, asked(u"Are you sure to insert sampling port '"_s + port + u'\''))) {
        m_form->fillPorts();
    }
    return foundKey(getsamplingid(m_connection, entry.state, port, state));
}

/// A key that was looked up; 0 if what it is the key of was declined.
int OperationEntryScreen::foundKey(const std::optional<int>& key) {
    if (!key) {
        dialogs().message(u"No Record"_s);
    }
    return key.value_or(0);
}

void OperationEntryScreen::offerVessel(const QString& registerId) {
    if (!isRegisterIdStored(m_connection, registerId) &&
        addvessel(m_connection, registerId, asked(u"Are you sure to insert this fishing vessel? "_s))) {
        m_form->fillVessels();
    }
}

std::function<bool()> OperationEntryScreen::asked(const QString& question) {
    return [this, question] { return dialogs().confirm(u"Confirm"_s, question); };
}

void OperationEntryScreen::clear() {
    m_form->clear(context().session.userName);
    context().session.lastSavedOperation = 0;
    m_save->setEnabled(true);
    m_form->fillLists();
    giveNumber();
}

}  // namespace kelvora
