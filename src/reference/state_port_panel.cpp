#include "reference/state_port_panel.h"

#include "controls/bound_list.h"
#include "controls/dialogs.h"
#include "controls/fields.h"
#include "records/places.h"
#include "reference/record_grid.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QLineEdit>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace kelvora {

StatePortPanel::StatePortPanel(Connection& connection, Dialogs& dialogs)
    : ReferencePanel(connection, dialogs),
      m_state(new BoundList),
      m_port(new QLineEdit),
      m_ports(new RecordGrid(u"State/Province and Sampling Port"_s,
                             {{u"State/Province"_s, 133}, {u"Sampling Port"_s, 153}}, portsWithStates(), connection,
                             dialogs)) {
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->addWidget(m_ports, 1);

    auto* entry = new QGroupBox(u"New sampling port"_s);
    layout->addWidget(entry);
    auto* form = new QGridLayout(entry);
    addField(form, 0, 0, u" State/Province"_s, m_state);
    form->addWidget(m_state, 0, 1, 1, 2);
    addField(form, 1, 0, u" Sampling port"_s, m_port);
    auto* addButton = new QPushButton(u"ADD"_s);
    form->addWidget(addButton, 1, 2);

    onClick(addButton, [this] { add(); });
    connect(m_port, &QLineEdit::returnPressed, addButton, &QPushButton::click);
    m_ports->nameRows([this] {
        const QString port = m_ports->text(u"samplingname");
        m_selectedPort = getsamplingid(this->connection(), m_ports->text(u"statename"), port).value_or(0);
        return port;
    });
    m_ports->onDelete([this] { return remove(m_selectedPort); },
                      [this] {
                          m_ports->deleteButton()->setEnabled(true);
                          purgeStates();
                      });
}

void StatePortPanel::RefreshStatePortGrid() {
    m_ports->refresh();
}

void StatePortPanel::RefreshStateList() {
    m_state->setSource(connection().model(statesByName()), u"statename"_s, u"stateid"_s);
}

void StatePortPanel::add() {
    const QString state = typed(m_state->text());
    const QString port = typed(m_port);
    if (state.isEmpty() || port.isEmpty()) {
        return;
    }
    if (const std::optional<int> stored = getstateid(connection(), state)) {
        // A state that another screen has added since this list was filled is not in the list yet.
        const QVariant chosen = m_state->key();
        AddSamplingPort(port, chosen.isValid() ? chosen.toInt() : *stored);
    } else {
        const int added = InsertState(connection(), state);
        RefreshStateList();
        m_state->setKey(added);
        AddSamplingPort(port, added);
    }
    m_port->clear();
    focusOn(m_port);
}

void StatePortPanel::AddSamplingPort(const QString& portName, int state) {
    if (isPortOfState(connection(), portName, state)) {
        dialogs().message(u"ERROR"_s, u"sampling port repeat please try again"_s);
    } else if (AddSampling(
                   connection(), portName, state,
                   asking(Dialogs::Question::Adding, u"Are you sure to insert sampling port '%1'"_s.arg(portName)))) {
        RefreshStatePortGrid();
        m_ports->grid()->scrollToBottom();
    }
}

bool StatePortPanel::remove(int port) {
    if (isPortUsed(connection(), port)) {
        dialogs().message(u"ERROR"_s, u"Can not remove because sampling port used in Fishing Operation"_s);
        return false;
    }
    return DeleteSamplingPort(connection(), port,
                              asking(Dialogs::Question::Deleting, u"Do you want to remove this sampling port"_s));
}

void StatePortPanel::purgeStates() {
    PurgeStatesWithoutPorts(
        connection(), {.deleting = [this](const QString& statement) { dialogs().message(u"'%1'"_s.arg(statement)); },
                       .deleted = [this] { dialogs().message(u"Del state"_s); },
                       .committed = [this] { RefreshStateList(); }});
}

}  // namespace kelvora
