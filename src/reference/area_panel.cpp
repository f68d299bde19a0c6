#include "reference/area_panel.h"

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

AreaPanel::AreaPanel(Connection& connection, Dialogs& dialogs)
    : ReferencePanel(connection, dialogs),
      m_name(new QLineEdit),
      m_description(new QLineEdit),
      m_areas(new RecordGrid(u"Fishing Area"_s, {{u"Area"_s, 100}, {u"Description"_s, 193}}, areasByName(), connection,
                             dialogs)) {
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
    m_areas->nameRows([this] { return m_areas->text(u"aname"); });
    m_areas->onDelete([this] { return remove(m_areas->text(u"aname")); }, [this] { clearEntry(); });
}

void AreaPanel::RefreshAreaGrid() {
    m_areas->refresh();
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
    if (isAreaKnown(connection(), name)) {
        dialogs().message(u"ERROR"_s, u"Fishing area repeat please try again"_s);
    } else {
        const bool stored = AddArea(connection(), name, description,
                                    asking(Dialogs::Question::Adding, u"Are you sure to insert this fishing area? "_s));
        dialogs().message(u"RESULT"_s,
                          stored ? u"Insert fishing area Complete"_s : u"Insert fishing area not Complete"_s);
    }
    clearEntry();
    focusOn(m_name);
    RefreshAreaGrid();
    m_areas->grid()->bringIntoView(0, name);
}

bool AreaPanel::remove(const QString& name) {
    if (isAreaUsed(connection(), name)) {
        dialogs().message(u"ERROR"_s, u"Can not delete because this area used in Fishing Operation"_s);
        return false;
    }
    if (!isAreaStored(connection(), name)) {
        dialogs().message(u"ERROR"_s, u"It's doesn't have this area"_s);
        clearEntry();
        return false;
    }
    return deleteArea(connection(), name, asking(Dialogs::Question::Deleting, u"Do you want to delete this area?"_s));
}

void AreaPanel::clearEntry() {
    m_name->clear();
    m_description->clear();
}

}  // namespace kelvora
