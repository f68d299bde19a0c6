#include "reference/state_port_panel.h"

#include "controls/bound_list.h"
#include "controls/dialogs.h"
#include "controls/fields.h"
#include "data/names.h"
#include "data/transaction.h"
#include "records/keys.h"
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
                             {{u"State/Province"_s, 133}, {u"Sampling Port"_s, 153}})) {
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
    m_ports->onArrival(dialogs, [this](bool onRow) { followRow(onRow); });
    onClick(m_ports->deleteButton(), [this] {
        if (!m_ports->caption().isEmpty()) {
            DeleteSamplingPort(m_selectedPort);
        }
    });
}

void StatePortPanel::RefreshStatePortGrid() {
    m_ports->refresh(connection(), Sql("SELECT state.statename,samplingport.samplingname FROM samplingport"
                                       " INNER JOIN state ON samplingport.stateid = state.stateid"
                                       " Order by samplingid"));
}

void StatePortPanel::RefreshStateList() {
    m_state->setSource(connection().model(Sql("select * from state order by statename")), u"statename"_s, u"stateid"_s);
}

std::optional<int> StatePortPanel::getsamplingid(const QString& stateName, const QString& portName) {
    const std::optional<int> found = samplingid(stateName, portName);
    if (!found) {
        dialogs().message(u"No Record"_s);
    }
    return found;
}

std::optional<int> StatePortPanel::samplingid(const QString& stateName, const QString& portName) const {
    const ResultSet found = connection().query(Sql("select samplingid from samplingport inner join state"
                                                   " on samplingport.stateid = state.stateid where statename = ")
                                               << stateName << " and samplingname = " << portName);
    return found.isEmpty() ? std::nullopt : found.integer(0, u"samplingid");
}

void StatePortPanel::followRow(bool onRow) {
    m_selectedPort = 0;
    if (!onRow) {
        return;
    }
    m_selectedPort = samplingid(m_ports->current(0), m_ports->current(1)).value_or(0);
    m_ports->setCaption(m_ports->current(1));
    m_ports->deleteButton()->setEnabled(true);
}

void StatePortPanel::add() {
    const QString state = typed(m_state->text());
    const QString port = typed(m_port);
    if (state.isEmpty() || port.isEmpty()) {
        return;
    }
    const ResultSet found = rowsNamed(connection(), Sql("select * from State where "), {{"statename", state}});
    if (found.isEmpty()) {
        AddSamplingPort(port, InsertState(state));
    } else {
        // A state that another screen has added since this list was filled is not in the list yet.
        const QVariant chosen = m_state->key();
        AddSamplingPort(port, chosen.isValid() ? chosen.toInt() : found.integer(0, u"stateid").value_or(0));
    }
    m_port->clear();
    focusOn(m_port);
}

int StatePortPanel::InsertState(const QString& name) {
    const int id = nextState(connection());
    connection().execute(Sql("insert into state values(") << id << "," << name << ")");
    RefreshStateList();
    m_state->setKey(id);
    return id;
}

void StatePortPanel::AddSamplingPort(const QString& portName, int stateid) {
    const Sql ports = Sql("select * from samplingport where stateid = ") << stateid << " and ";
    if (!rowsNamed(connection(), ports, {{"samplingname", portName}}).isEmpty()) {
        dialogs().message(u"ERROR"_s, u"sampling port repeat please try again"_s);
        m_port->clear();
        focusOn(m_port);
        return;
    }
    const int id = nextSamplingPort(connection());
    const Sql statement = Sql("insert into samplingport values(") << id << "," << portName << "," << stateid << ")";
    if (confirmAfterExecute(statement, Dialogs::Question::Adding,
                            u"Are you sure to insert sampling port '%1'"_s.arg(portName))) {
        RefreshStatePortGrid();
        m_ports->grid()->scrollToBottom();
    }
}

void StatePortPanel::DeleteSamplingPort(int samplingid) {
    if (finds(Sql("select * from fishoperation where portid = ") << samplingid)) {
        dialogs().message(u"ERROR"_s, u"Can not remove because sampling port used in Fishing Operation"_s);
        return;
    }
    if (confirmAfterExecute(Sql("delete from samplingport where samplingid = ") << samplingid,
                            Dialogs::Question::Deleting, u"Do you want to remove this sampling port"_s)) {
        m_ports->setCaption({});
        RefreshStatePortGrid();
        m_ports->leaveRow();
        PurgeStatesWithoutPorts();
    }
}

void StatePortPanel::PurgeStatesWithoutPorts() {
    const ResultSet states =
        connection().query(Sql("select * from state where stateid not in (select stateid from samplingport)"));
    for (int row = 0; row < states.rowCount(); ++row) {
        Transaction transaction(connection());
        const int state = states.integer(row, u"stateid").value_or(0);
        dialogs().message(u"'delete from state where stateid = %1'"_s.arg(state));
        connection().execute(Sql("delete from state where stateid = ") << state);
        dialogs().message(u"Del state"_s);
        transaction.commit();
        RefreshStateList();
    }
}

}  // namespace kelvora
