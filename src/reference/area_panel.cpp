#include "reference/area_panel.h"

#include "controls/dialogs.h"
#include "controls/fields.h"
#include "reference/record_grid.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QLineEdit>
#include <QPushButton>

namespace kelvora {

AreaPanel::AreaPanel(Connection& connection, Dialogs& dialogs)
    : ReferencePanel(connection, dialogs),
      m_name(new QLineEdit),
      m_description(new QLineEdit),
      m_areas(new RecordGrid(tr("Fishing Area"), {{tr("Area"), 1500}, {tr("Description"), 2900}})) {
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins({});

    auto* entry = new QGroupBox(tr("New fishing area"));
    layout->addWidget(entry);
    auto* form = new QGridLayout(entry);
    addField(form, 0, 0, tr(" Area Name"), m_name);
    form->addWidget(m_name, 0, 1, 1, 2);
    addField(form, 1, 0, tr(" Description"), m_description);
    auto* addButton = new QPushButton(tr("Add"));
    form->addWidget(addButton, 1, 2);

    layout->addWidget(m_areas, 1);

    onClick(addButton, [this] { add(); });
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
    if (m_name->text().isEmpty()) {
        dialogs().message(tr("Please insert fishing area"));
        m_name->setFocus();
        return;
    }
    if (m_description->text().isEmpty()) {
        dialogs().message(tr("Please insert description"));
        m_description->setFocus();
        return;
    }
    AddArea(m_name->text(), m_description->text());
    clearEntry();
    RefreshAreaGrid();
}

void AreaPanel::AddArea(const QString& name, const QString& description) {
    if (finds(Sql("select * from fishing_area where aname =") << name)) {
        dialogs().message(tr("ERROR"), tr("Fishing area repeat please try again"));
        return;
    }
    const Sql statement = Sql("insert into fishing_area(aname,describ) values(") << name << "," << description << ")";
    const bool stored = confirmAfterExecute(statement, tr("Are you sure to insert this fishing area? "));
    dialogs().message(tr("RESULT"),
                      stored ? tr("Insert fishing area Complete") : tr("Insert fishing area not Complete"));
}

void AreaPanel::deleteArea(const QString& name) {
    if (finds(Sql("select * from fishoperation where areaid = ") << name)) {
        dialogs().message(tr("ERROR"), tr("Can not delete because this area used in Fishing Operation"));
        return;
    }
    if (!finds(Sql("select * from fishing_area where aname = ") << name << " ")) {
        dialogs().message(tr("ERROR"), tr("It's doesn't have this area"));
        clearEntry();
        return;
    }
    if (confirmAfterExecute(Sql("delete from fishing_area where aname = ") << name,
                            tr("Do you want to delete this area?"))) {
        m_areas->setCaption({});
        RefreshAreaGrid();
        clearEntry();
    }
}

void AreaPanel::clearEntry() {
    m_name->clear();
    m_description->clear();
}

}  // namespace kelvora
