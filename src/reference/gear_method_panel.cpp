#include "reference/gear_method_panel.h"

#include "controls/bound_list.h"
#include "controls/dialogs.h"
#include "controls/fields.h"
#include "data/names.h"
#include "records/keys.h"
#include "reference/record_grid.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QLineEdit>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace kelvora {

GearMethodPanel::GearMethodPanel(Connection& connection, Dialogs& dialogs)
    : ReferencePanel(connection, dialogs),
      m_gear(new BoundList),
      m_method(new QLineEdit),
      m_methods(new RecordGrid(u"Fishing Gear and Method"_s,
                               {{u"No."_s, 33}, {u"Fishing gear"_s, 133}, {u"Method"_s, 133}})) {
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins({});

    auto* entry = new QGroupBox(u"New fishing method"_s);
    layout->addWidget(entry);
    auto* form = new QGridLayout(entry);
    addField(form, 0, 0, u" Fishing gear"_s, m_gear);
    form->addWidget(m_gear, 0, 1, 1, 2);
    addField(form, 1, 0, u" Fishing Method"_s, m_method);
    auto* addButton = new QPushButton(u"Add"_s);
    form->addWidget(addButton, 1, 2);

    layout->addWidget(m_methods, 1);

    onClick(addButton, [this] { add(); });
    connect(m_method, &QLineEdit::returnPressed, addButton, &QPushButton::click);
    m_methods->onArrival(dialogs, [this](bool onRow) {
        m_selectedMethod = m_methods->current(0).toInt();
        m_methods->setCaption(m_methods->current(2));
        m_methods->deleteButton()->setEnabled(onRow);
    });
    onClick(m_methods->deleteButton(), [this] { deleteMethod(); });
}

void GearMethodPanel::RefreshGearMethodGrid() {
    m_methods->refresh(connection(),
                       Sql("SELECT Fishing_method.methodid, Fishing_gear.guname, Fishing_method.methodname"
                           " FROM Fishing_gear INNER JOIN Fishing_method ON Fishing_gear.gearid ="
                           " Fishing_method.gearid"));
}

void GearMethodPanel::RefreshMethodGearList() {
    m_gear->setSource(connection().model(Sql("select * from fishing_gear order by guname")), u"guname"_s, u"gearid"_s);
}

void GearMethodPanel::add() {
    const QString gear = typed(m_gear->text());
    const QString method = typed(m_method);
    if (method.isEmpty() || gear.isEmpty()) {
        return;
    }
    const ResultSet found = rowsNamed(connection(), Sql("select * from Fishing_gear where "), {{"guname", gear}});
    if (found.rowCount() == 1) {
        AddMethod(method, found.integer(0, u"gearid").value_or(0));
    } else {
        AddGear(gear);
        m_method->clear();
    }
}

void GearMethodPanel::AddGear(const QString& name) {
    const int id = nextGear(connection());
    const Sql statement = Sql("insert into Fishing_gear(gearid,guname) values(") << id << "," << name << ")";
    if (!confirmAfterExecute(statement, Dialogs::Question::Adding,
                             u"Are you sure to insert fishing gear '%1'?"_s.arg(name))) {
        dialogs().message(u"RESULT"_s, u"Insert fishing gear not Complete"_s);
        focusOn(m_method);
        return;
    }
    RefreshMethodGearList();
    Q_EMIT gearAdded();
    AddMethod(m_method->text(), id);
}

void GearMethodPanel::AddMethod(const QString& name, int gearid) {
    const Sql methods = Sql("select * from Fishing_method where gearid = ") << gearid << " and ";
    if (!rowsNamed(connection(), methods, {{"methodname", name}}).isEmpty()) {
        dialogs().message(u"Error!"_s, u"fishing method repeat please try again!"_s);
        return;
    }
    const int id = nextMethod(connection());
    connection().execute(Sql("insert into Fishing_method values(") << id << "," << name << "," << gearid << ")");
    RefreshGearMethodGrid();
    m_methods->grid()->bringIntoView(0, QString::number(id));
    m_gear->setText({});
    m_method->clear();
    focusOn(m_gear);
}

void GearMethodPanel::deleteMethod() {
    if (m_methods->caption().isEmpty()) {
        return;
    }
    if (finds(Sql("select * from fishoperation where fishing_method = ") << m_selectedMethod) ||
        finds(Sql("select  * from vessel where gear = ") << m_selectedMethod)) {
        dialogs().message(u"Can not delete fishing gear because this gear used in another table"_s);
        return;
    }
    connection().execute(Sql("delete from fishing_method where methodid = ") << m_selectedMethod);
    m_methods->setCaption({});
    RefreshMethodGearList();
    RefreshGearMethodGrid();
    m_methods->leaveRow();
}

}  // namespace kelvora
