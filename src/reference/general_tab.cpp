#include "reference/general_tab.h"

#include "controls/bound_list.h"
#include "controls/fields.h"
#include "records/gears.h"
#include "records/places.h"
#include "reference/record_grid.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QLineEdit>
#include <QPushButton>

namespace kelvora {

GeneralTab::GeneralTab(Connection& connection, Dialogs& dialogs)
    : ReferencePanel(connection, dialogs),
      m_state(new BoundList(this)),
      m_port(new QLineEdit(this)),
      m_gear(new BoundList(this)),
      m_method(new QLineEdit(this)),
      m_areaName(new QLineEdit(this)),
      m_description(new QLineEdit(this)) {
    auto* columns = new QHBoxLayout(this);
    addPortColumn(columns);
    addMethodColumn(columns);
    addAreaColumn(columns);
    m_ports->refresh();
    m_methods->refresh();
    m_areas->refresh();
    RefreshStateList();
    RefreshMethodGearList();
}

QWidget* GeneralTab::newEntry(const Entry& entry) {
    auto* frame = new QGroupBox(entry.frame);
    auto* form = new QGridLayout(frame);
    addField(form, 0, 0, entry.firstCaption, entry.first);
    form->addWidget(entry.first, 0, 1, 1, 2);
    addField(form, 1, 0, entry.secondCaption, entry.second);
    auto* button = new QPushButton(entry.button);
    form->addWidget(button, 1, 2);
    onClick(button, entry.add);
    connect(entry.second, &QLineEdit::returnPressed, button, &QPushButton::click);
    return frame;
}

void GeneralTab::RefreshStateList() {
    m_state->setSource(connection().model(statesByName()), u"statename"_s, u"stateid"_s);
}

void GeneralTab::RefreshMethodGearList() {
    m_gear->setSource(connection().model(gearsByName()), u"guname"_s, u"gearid"_s);
}

void GeneralTab::addPortColumn(QHBoxLayout* columns) {
    m_ports = new RecordGrid({.caption = u"State/Province and Sampling Port"_s,
                              .columns = {{u"State/Province"_s, 133}, {u"Sampling Port"_s, 153}},
                              .query = portsWithStates(),
                              .name =
                                  [this] {
                                      QString port = m_ports->text(u"samplingname");
                                      m_selectedPort =
                                          getsamplingid(connection(), m_ports->text(u"statename"), port).value_or(0);
                                      return port;
                                  },
                              .remove = [this] { return removePort(m_selectedPort); },
                              .removed = [this] { purgeStates(); }},
                             connection(), dialogs());
    auto* column = new QVBoxLayout;
    columns->addLayout(column, 1);
    column->addWidget(m_ports, 1);
    column->addWidget(newEntry({u"New sampling port"_s, u"State/Province"_s, m_state, u"Sampling port"_s, m_port,
                                u"ADD"_s, [this] { addPort(); }}));
}

void GeneralTab::addPort() {
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
        AddSamplingPort(port, added);
    }
    m_port->clear();
    focusOn(m_port);
}

void GeneralTab::AddSamplingPort(const QString& name, int state) {
    const QString question = u"Are you sure to insert sampling port '%1'"_s.arg(name);
    if (isPortOfState(connection(), name, state)) {
        dialogs().message(u"ERROR"_s, u"sampling port repeat please try again"_s);
    } else if (AddSampling(connection(), name, state, asking(Dialogs::Question::Adding, question))) {
        m_ports->refresh();
        m_ports->grid()->scrollToBottom();
    }
}

bool GeneralTab::removePort(int port) {
    if (isPortUsed(connection(), port)) {
        dialogs().message(u"ERROR"_s, u"Can not remove because sampling port used in Fishing Operation"_s);
        return false;
    }
    return DeleteSamplingPort(connection(), port,
                              asking(Dialogs::Question::Deleting, u"Do you want to remove this sampling port"_s));
}

void GeneralTab::purgeStates() {
    // Unlike the others it stays as it is without ports.
    m_ports->deleteButton()->setEnabled(true);
    PurgeStatesWithoutPorts(
        connection(), {.deleting = [this](const QString& statement) { dialogs().message(u"'%1'"_s.arg(statement)); },
                       .deleted = [this] { dialogs().message(u"Del state"_s); },
                       .committed = [this] { RefreshStateList(); }});
}

void GeneralTab::addMethodColumn(QHBoxLayout* columns) {
    m_methods = new RecordGrid({.caption = u"Fishing Gear and Method"_s,
                                .columns = {{u"No."_s, 33}, {u"Fishing gear"_s, 133}, {u"Method"_s, 133}},
                                .query = methodsWithGears(),
                                .name = [this] { return m_methods->text(u"methodname"); },
                                .remove = [this] { return removeMethod(m_methods->key(u"methodid")); },
                                .removed = [this] { RefreshMethodGearList(); }},
                               connection(), dialogs());
    auto* column = new QVBoxLayout;
    columns->addLayout(column, 1);
    column->addWidget(newEntry({u"New fishing method"_s, u"Fishing gear"_s, m_gear, u"Fishing Method"_s, m_method,
                                u"Add"_s, [this] { addGearAndMethod(); }}));
    column->addWidget(m_methods, 1);
}

void GeneralTab::addGearAndMethod() {
    const QString gear = typed(m_gear->text());
    const QString method = typed(m_method);
    if (method.isEmpty() || gear.isEmpty()) {
        return;
    }
    const ResultSet found = gearsNamed(connection(), gear);
    if (found.rowCount() == 1) {
        addMethod(method, found.integer(0, u"gearid").value_or(0));
    } else {
        addGear(gear);
        m_method->clear();
    }
}

void GeneralTab::addGear(const QString& name) {
    const QString question = u"Are you sure to insert fishing gear '%1'?"_s.arg(name);
    const std::optional<int> gear = AddGear(connection(), name, asking(Dialogs::Question::Adding, question));
    if (!gear) {
        dialogs().message(u"RESULT"_s, u"Insert fishing gear not Complete"_s);
        focusOn(m_method);
        return;
    }
    RefreshMethodGearList();
    Q_EMIT gearAdded();
    addMethod(m_method->text(), *gear);
}

void GeneralTab::addMethod(const QString& name, int gear) {
    const std::optional<int> method = AddMethod(connection(), name, gear);
    if (!method) {
        dialogs().message(u"Error!"_s, u"fishing method repeat please try again!"_s);
        return;
    }
    m_methods->refresh();
    m_methods->grid()->bringIntoView(0, QString::number(*method));
    m_gear->setText({});
    m_method->clear();
    focusOn(m_gear);
}

bool GeneralTab::removeMethod(int method) {
    if (isMethodUsed(connection(), method)) {
        dialogs().message(u"Can not delete fishing gear because this gear used in another table"_s);
        return false;
    }
    deleteMethod(connection(), method);
    return true;
}

void GeneralTab::addAreaColumn(QHBoxLayout* columns) {
    m_areas = new RecordGrid({.caption = u"Fishing Area"_s,
                              .columns = {{u"Area"_s, 100}, {u"Description"_s, 193}},
                              .query = areasByName(),
                              .name = [this] { return m_areas->text(u"aname"); },
                              .remove = [this] { return removeArea(m_areas->text(u"aname")); },
                              .removed = [this] { clearArea(); }},
                             connection(), dialogs());
    auto* column = new QVBoxLayout;
    columns->addLayout(column, 1);
    column->addWidget(newEntry({u"New fishing area"_s, u"Area Name"_s, m_areaName, u"Description"_s, m_description,
                                u"Add"_s, [this] { addArea(); }}));
    column->addWidget(m_areas, 1);
}

void GeneralTab::addArea() {
    const QString name = typed(m_areaName);
    const QString description = typed(m_description);
    if (name.isEmpty()) {
        refuse(dialogs(), {}, u"Please insert fishing area"_s, m_areaName);
        return;
    }
    if (description.isEmpty()) {
        refuse(dialogs(), {}, u"Please insert description"_s, m_description);
        return;
    }
    if (isAreaKnown(connection(), name)) {
        dialogs().message(u"ERROR"_s, u"Fishing area repeat please try again"_s);
    } else if (AddArea(connection(), name, description,
                       asking(Dialogs::Question::Adding, u"Are you sure to insert this fishing area? "_s))) {
        dialogs().message(u"RESULT"_s, u"Insert fishing area Complete"_s);
    } else {
        dialogs().message(u"RESULT"_s, u"Insert fishing area not Complete"_s);
    }
    clearArea();
    focusOn(m_areaName);
    m_areas->refresh();
    m_areas->grid()->bringIntoView(0, name);
}

bool GeneralTab::removeArea(const QString& name) {
    if (isAreaUsed(connection(), name)) {
        dialogs().message(u"ERROR"_s, u"Can not delete because this area used in Fishing Operation"_s);
        return false;
    }
    if (!isAreaStored(connection(), name)) {
        dialogs().message(u"ERROR"_s, u"It's doesn't have this area"_s);
        clearArea();
        return false;
    }
    return deleteArea(connection(), name, asking(Dialogs::Question::Deleting, u"Do you want to delete this area?"_s));
}

void GeneralTab::clearArea() {
    m_areaName->clear();
    m_description->clear();
}

}  // namespace kelvora
