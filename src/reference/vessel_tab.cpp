#include "reference/vessel_tab.h"

#include "controls/bound_list.h"
#include "controls/dialogs.h"
#include "controls/fields.h"
#include "data/numbers.h"
#include "records/gears.h"
#include "records/vessel_import.h"
#include "reference/import_preview.h"
#include "reference/record_grid.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QLineEdit>
#include <QPushButton>

#include <array>

using namespace Qt::StringLiterals;

namespace kelvora {
namespace {

GridColumns registerColumns() {
    GridColumns columns;
    for (const VesselField& field : vesselFields()) {
        columns.push_back({field.caption, field.width});
    }
    return columns;
}

}  // namespace

VesselTab::VesselTab(Connection& connection, Dialogs& dialogs)
    : ReferencePanel(connection, dialogs),
      m_gear(new BoundList),
      m_engineType(new FixedList({u"In Board"_s, u"Out Board"_s})),
      m_register(new RecordGrid(
          {.caption = u"FISHING VESSEL"_s,
           .columns = registerColumns(),
           .query = vesselRegister(),
           .name =
               [this] {
                   const QString name = m_register->text(u"vesselname");
                   return name.isEmpty() ? m_register->text(u"vesselid") : name;
               },
           .remove = [this] { return remove(m_register->text(u"vesselname"), m_register->text(u"vesselid")); }},
          connection, dialogs)) {
    auto* layout = new QVBoxLayout(this);
    auto* frame = new QGroupBox(u"FISHING VESSEL"_s);
    layout->addWidget(frame);
    auto* vessels = new QVBoxLayout(frame);

    auto* form = new QGridLayout;
    vessels->addLayout(form);
    fillForm(form);
    vessels->addSpacing(6);
    m_register->leaveFrame();
    vessels->addWidget(m_register, 3);
    vessels->addWidget(newImport(), 4);

    m_register->refresh();
    RefreshVesselGearList();
}

/// Four rows of three, each a caption and its field.
void VesselTab::fillForm(QGridLayout* form) {
    struct Place {
        QString caption;
        QString Vessel::*text;
        QWidget* list = nullptr;
        bool isNumber = false;
    };
    const auto places = std::to_array<Place>({{u"Vessel name"_s, &Vessel::name},
                                              {u"Engine Power (hp)"_s, &Vessel::enginePower, nullptr, true},
                                              {u"State/Province"_s, &Vessel::state},
                                              {u"Vessel register id"_s, &Vessel::registerId},
                                              {u"Type of Gear"_s, &Vessel::gearName, m_gear},
                                              {u"Net width"_s, &Vessel::netWidth},
                                              {u"Size(GRT)"_s, &Vessel::size, nullptr, true},
                                              {u"Net length"_s, &Vessel::netLength},
                                              {u"Mesh size"_s, &Vessel::meshSize},
                                              {u"Engine type"_s, &Vessel::engineType, m_engineType},
                                              {u"Vessel Length(m)"_s, &Vessel::length, nullptr, true}});
    for (int i = 0; const auto& [caption, text, list, isNumber] : places) {
        QWidget* widget = list;
        if (widget == nullptr) {
            m_texts.push_back({text, isNumber ? numberField() : new QLineEdit, isNumber});
            widget = m_texts.back().field;
        }
        addField(form, i / 3, i % 3 * 2, caption, widget);
        ++i;
    }
    for (const int column : {1, 3, 5}) {
        form->setColumnStretch(column, 1);
    }
    form->setHorizontalSpacing(12);
    auto* addButton = new QPushButton(u"&Add"_s);
    form->addWidget(addButton, 3, 5, Qt::AlignRight);
    onClick(addButton, [this] { add(); });
    connect(m_texts.back().field, &QLineEdit::returnPressed, addButton, &QPushButton::click);
}

ImportPreview* VesselTab::newImport() {
    return new ImportPreview(
        {.layout = vesselLayout(),
         .captions = {u"Vessel import"_s, u"Vessel file"_s, u"Vessel import"_s, u"Save"_s, u"Delete"_s, u"Clear"_s},
         .complete = [this](auto& records) { complete(records); },
         .store = [this](const auto& records, const auto& count) { return storeVessels(connection(), records, count); },
         .stored = [this] { m_register->refresh(); },
         .isFramed = false},
        connection(), dialogs());
}

void VesselTab::complete(std::vector<CsvRecord>& records) {
    GearQuestions questions;
    questions.ask = [this, noMore = false](const QString& proposed) mutable {
        if (noMore) {
            return QString();
        }
        const Dialogs::Answer answer =
            dialogs().inputOrNoMore(u"New Fishing Gear"_s, u"You have to insert new fishing gear"_s, proposed);
        noMore = answer.noMore;
        return answer.text.value_or(QString());
    };
    questions.confirm = [this](const QString& name) {
        return dialogs().confirm(u"Are you sure to insert '%1'? "_s.arg(name));
    };
    questions.added = [this] {
        dialogs().message(u"Insert Complete!"_s);
        RefreshVesselGearList();
        Q_EMIT gearAdded();
    };
    settleGears(connection(), records, questions);
    for (CsvRecord& record : records) {
        record.fields.first() = typed(record.fields.first());
    }
}

void VesselTab::RefreshVesselGearList() {
    m_gear->setSource(connection().model(gearsByName()), u"guname"_s, u"gearid"_s);
}

void VesselTab::add() {
    const Vessel vessel = entry();
    if (isRefused(vessel)) {
        return;
    }
    addvessel(connection(), vessel,
              asking(Dialogs::Question::Adding, u"Are you sure to insert this fishing vessel? "_s));
    ClearVesselFields();
    focusOn(m_texts.front().field);
    m_register->refresh();
    const bool named = !vessel.name.isEmpty();
    m_register->grid()->bringIntoView(named ? 0 : 1, named ? vessel.name : vessel.registerId);
}

Vessel VesselTab::entry() const {
    Vessel vessel;
    for (const TextField& text : m_texts) {
        vessel.*text.text = text.field->text();
    }
    vessel.name = typed(vessel.name);
    vessel.registerId = typed(vessel.registerId);
    vessel.engineType = m_engineType->currentText();
    vessel.gear = m_gear->key().toInt();
    return vessel;
}

bool VesselTab::isRefused(const Vessel& vessel) {
    const auto refused = [this](const QString& message, QWidget* field = nullptr) {
        refuse(dialogs(), u"ERROR"_s, message, field);
        return true;
    };
    if (vessel.name.isEmpty() && vessel.registerId.isEmpty()) {
        return refused(u"Please input vessel register id and vessel name"_s);
    }
    if (vessel.engineType.isEmpty()) {
        return refused(u"Please select engine type"_s, m_engineType);
    }
    // A typed gear that the list does not have has no key to store.
    if (!m_gear->key().isValid()) {
        return refused(u"Please select type of gear"_s);
    }
    for (const TextField& number : m_texts) {
        if (number.isNumber && !isNumeric(vessel.*number.text)) {
            dialogs().message(u"ERROR"_s, u"Please input numeric character only"_s);
            number.field->clear();
            focusOn(number.field);
            return true;
        }
    }
    return false;
}

void VesselTab::ClearVesselFields() {
    for (const TextField& text : m_texts) {
        text.field->clear();
    }
    m_engineType->setCurrentIndex(-1);
    m_gear->setText({});
}

bool VesselTab::remove(const QString& name, const QString& registerId) {
    // An operation stores the name of its vessel: one without a name is used by none.
    if (!name.isEmpty() && isVesselUsed(connection(), name)) {
        dialogs().message(u"ERROR!"_s, u"Can not delete because vessel used in another table"_s);
        return false;
    }
    return deleteVessels(
        connection(), name, registerId,
        asking(Dialogs::Question::Deleting, u"Are you sure to delete '%1'?"_s.arg(name.isEmpty() ? registerId : name)));
}

}  // namespace kelvora
