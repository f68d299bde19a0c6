#include "reference/area_panel.h"

#include "controls/dialogs.h"
#include "controls/fields.h"
#include "data/names.h"
#include "reference/record_grid.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QLineEdit>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace kelvora {

AreaPanel::AreaPanel(Connection& connection, Dialogs& dialogs)
    : ReferencePanel(connection, dialogs),
      m_name(new QLineEdit),
      m_description(new QLineEdit),
      m_areas(new RecordGrid(u"Fishing Area"_s, {{u"Area"_s, 100}, {u"Description"_s, 193}})) {
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins({});

    auto* entry = new QGroupBox(u"New fishing area"_s);
    layout->addWidget(entry);
    auto* form = new QGridLayout(entry);
    addField(form, 0, 0, u" Area Name"_s, m_name);
    form->addWidget(m_name, 0, 1, 1, 2);
    addField(form, 1, 0, u" Description"_s, m_description);
    auto* addButton = new QPushButton(u"Add"_s);
    form->addWidget(addButton, 1, 2);

    layout->addWidget(m_areas, 1);

    onClick(addButton, [this] { add(); });
    connect(m_description, &QLineEdit::returnPressed, addButton, &QPushButton::click);
    m_areas->onArrival(dialogs, [this](bool onRow) {
        m_areas->setCaption(m_areas->current(0));
        m_areas->deleteButton()->setEnabled(onRow);
    });
    onClick(m_areas->deleteButton(), [this] {
        if (!m_areas->caption().isEmpty()) {
            deleteArea(m_areas->caption());
        }
    });
}

void AreaPanel::RefreshAreaGrid() {
    m_areas->refresh(connection(), Sql("select * from fishing_area order by aname"));
}

void AreaPanel::add() {
    const QString name = typed(m_name);
    const QString description = typed(m_description);
    if (name.isEmpty()) {
        dialogs().message(u"Please insert fishing area"_s);
        focusOn(m_name);
        return;
    }
    if (description.isEmpty()) {
        dialogs().message(u"Please insert description"_s);
        focusOn(m_description);
        return;
    }
    AddArea(name, description);
    clearEntry();
    focusOn(m_name);
    RefreshAreaGrid();
    m_areas->grid()->bringIntoView(0, name);
}

void AreaPanel::AddArea(const QString& name, const QString& description) {
    if (!rowsNamed(connection(), Sql("select * from fishing_area where "), {{"aname", name}}).isEmpty()) {
        dialogs().message(u"ERROR"_s, u"Fishing area repeat please try again"_s);
        return;
    }
    const Sql statement = Sql("insert into fishing_area(aname,describ) values(") << name << "," << description << ")";
    const bool stored =
        confirmAfterExecute(statement, Dialogs::Question::Adding, u"Are you sure to insert this fishing area? "_s);
    dialogs().message(u"RESULT"_s, stored ? u"Insert fishing area Complete"_s : u"Insert fishing area not Complete"_s);
}

void AreaPanel::deleteArea(const QString& name) {
    if (finds(Sql("select * from fishoperation where areaid = ") << name)) {
        dialogs().message(u"ERROR"_s, u"Can not delete because this area used in Fishing Operation"_s);
        return;
    }
    if (!finds(Sql("select * from fishing_area where aname = ") << name << " ")) {
        dialogs().message(u"ERROR"_s, u"It's doesn't have this area"_s);
        clearEntry();
        return;
    }
    if (confirmAfterExecute(Sql("delete from fishing_area where aname = ") << name, Dialogs::Question::Deleting,
                            u"Do you want to delete this area?"_s)) {
        m_areas->setCaption({});
        RefreshAreaGrid();
        m_areas->leaveRow();
        clearEntry();
    }
}

void AreaPanel::clearEntry() {
    m_name->clear();
    m_description->clear();
}

}  // namespace kelvora
