#include "reference/gear_method_panel.h"

#include "controls/bound_list.h"
#include "controls/dialogs.h"
#include "controls/fields.h"
#include "records/gears.h"
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
                               {{u"No."_s, 33}, {u"Fishing gear"_s, 133}, {u"Method"_s, 133}}, methodsWithGears(),
                               connection, dialogs)) {
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
    m_methods->nameRows([this] { return m_methods->text(u"methodname"); });
    m_methods->onDelete([this] { return remove(m_methods->key(u"methodid")); }, [this] { RefreshMethodGearList(); });
}

void GearMethodPanel::RefreshGearMethodGrid() {
    m_methods->refresh();
}

void GearMethodPanel::RefreshMethodGearList() {
    m_gear->setSource(connection().model(gearsByName()), u"guname"_s, u"gearid"_s);
}

void GearMethodPanel::add() {
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

void GearMethodPanel::addGear(const QString& name) {
    const std::optional<int> gear =
        AddGear(connection(), name,
                asking(Dialogs::Question::Adding, u"Are you sure to insert fishing gear '%1'?"_s.arg(name)));
    if (!gear) {
        dialogs().message(u"RESULT"_s, u"Insert fishing gear not Complete"_s);
        focusOn(m_method);
        return;
    }
    RefreshMethodGearList();
    Q_EMIT gearAdded();
    addMethod(m_method->text(), *gear);
}

void GearMethodPanel::addMethod(const QString& name, int gear) {
    const std::optional<int> method = AddMethod(connection(), name, gear);
    if (!method) {
        dialogs().message(u"Error!"_s, u"fishing method repeat please try again!"_s);
        return;
    }
    RefreshGearMethodGrid();
    m_methods->grid()->bringIntoView(0, QString::number(*method));
    m_gear->setText({});
    m_method->clear();
    focusOn(m_gear);
}

bool GearMethodPanel::remove(int method) {
    if (isMethodUsed(connection(), method)) {
        dialogs().message(u"Can not delete fishing gear because this gear used in another table"_s);
        return false;
    }
    deleteMethod(connection(), method);
    return true;
}

}  // namespace kelvora
