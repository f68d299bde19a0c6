#include "reference/vessel_tab.h"

#include "controls/bound_list.h"
#include "controls/dialogs.h"
#include "controls/fields.h"
#include "data/numbers.h"
#include "records/keys.h"
#include "reference/record_grid.h"
#include "reference/vessel_import_panel.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QLineEdit>
#include <QPushButton>

#include <array>

using namespace Qt::StringLiterals;

namespace kelvora {
namespace {

GridColumns registerColumns() {
    return {{u"Vessel name"_s, 100},   {u"Register id"_s, 66},    {u"Engine type"_s, 73},   {u"Engine power"_s, 86},
            {u"Vessel length"_s, 86},  {u"State/Province"_s, 86}, {u"Size(GRT)"_s, 86},     {u"Type of gear"_s, 80},
            {u"Net length(m.)"_s, 86}, {u"Net width(m.)"_s, 86},  {u"Mesh size(cm.)"_s, 86}};
}

double numberOf(const QLineEdit* field) {
    return toNumber(field->text()).value_or(0);
}

}  // namespace

VesselTab::VesselTab(Connection& connection, Dialogs& dialogs)
    : ReferencePanel(connection, dialogs),
      m_name(new QLineEdit),
      m_enginePower(numberField()),
      m_state(new QLineEdit),
      m_registerId(new QLineEdit),
      m_gear(new BoundList),
      m_netWidth(new QLineEdit),
      m_size(numberField()),
      m_netLength(new QLineEdit),
      m_meshSize(new QLineEdit),
      m_engineType(new FixedList({u"In Board"_s, u"Out Board"_s})),
      m_length(numberField()),
      m_register(new RecordGrid(u"FISHING VESSEL"_s, registerColumns())) {
    auto* layout = new QVBoxLayout(this);
    auto* frame = new QGroupBox(u"FISHING VESSEL"_s);
    layout->addWidget(frame);
    auto* vessels = new QVBoxLayout(frame);

    auto* form = new QGridLayout;
    vessels->addLayout(form);
    placeFields(form);
    auto* addButton = new QPushButton(u"&Add"_s);
    form->addWidget(addButton, 3, 5, Qt::AlignRight);

    vessels->addSpacing(6);
    m_register->leaveFrame();
    vessels->addWidget(m_register, 3);

    vessels->addWidget(new VesselImportPanel(*this, connection, dialogs), 4);

    onClick(addButton, [this] { add(); });
    connect(m_length, &QLineEdit::returnPressed, addButton, &QPushButton::click);
    m_register->onArrival(dialogs, [this](bool onRow) {
        const QString name = m_register->current(0);
        m_register->setCaption(name.isEmpty() ? m_register->current(1) : name);
        m_register->deleteButton()->setEnabled(onRow);
    });
    onClick(m_register->deleteButton(), [this] {
        if (!m_register->caption().isEmpty()) {
            deleteVessel(m_register->current(0), m_register->current(1));
        }
    });
}

void VesselTab::placeFields(QGridLayout* form) {
    addField(form, 0, 0, u" Vessel name"_s, m_name);
    addField(form, 0, 2, u" Engine Power (hp)"_s, m_enginePower);
    addField(form, 0, 4, u" State/Province"_s, m_state);

    addField(form, 1, 0, u" Vessel register id"_s, m_registerId);
    addField(form, 1, 2, u" Type of Gear"_s, m_gear);
    addField(form, 1, 4, u" Net width"_s, m_netWidth);

    addField(form, 2, 0, u" Size(GRT)"_s, m_size);
    addField(form, 2, 2, u" Net length"_s, m_netLength);
    addField(form, 2, 4, u" Mesh size"_s, m_meshSize);

    addField(form, 3, 0, u" Engine type"_s, m_engineType);
    addField(form, 3, 2, u" Vessel Length(m)"_s, m_length);

    for (const int column : {1, 3, 5}) {
        form->setColumnStretch(column, 1);
    }
    form->setHorizontalSpacing(12);
}

void VesselTab::RefreshVesselGrid() {
    m_register->refresh(connection(),
                        Sql("SELECT vesselname,vesselid,enginetype,enginepower,vessellength,flagstate,"
                            "format(vesselsize,'0.00'),guname,netlength,netwidth,meshsize FROM vessel"
                            " inner join Fishing_gear on vessel.gear = Fishing_gear.gearid order by vesselid"));
}

void VesselTab::RefreshVesselGearList() {
    m_gear->setSource(connection().model(Sql("select * from Fishing_gear order by guname")), u"guname"_s, u"gearid"_s);
}

void VesselTab::add() {
    if (isRefused()) {
        return;
    }
    addvessel(insertStatement());
    const int column = m_name->text().isEmpty() ? 1 : 0;
    const QString added = (column == 0 ? m_name : m_registerId)->text();
    ClearVesselFields();
    focusOn(m_name);
    RefreshVesselGrid();
    m_register->grid()->bringIntoView(column, added);
}

bool VesselTab::isRefused() {
    struct Check {
        bool failed;
        QString message;
        QWidget* focus = nullptr;
        QLineEdit* emptied = nullptr;
    };
    const QString notNumeric = u"Please input numeric character only"_s;
    const auto checks = std::to_array<Check>({
        {typed(m_name).isEmpty() && typed(m_registerId).isEmpty(),
         u"Please input vessel register id and vessel name"_s},
        {m_engineType->currentText().isEmpty(), u"Please select engine type"_s, m_engineType},
        // A typed gear that the list does not have has no key to store.
        {!m_gear->key().isValid(), u"Please select type of gear"_s},
        {!isNumeric(m_enginePower->text()), notNumeric, m_enginePower, m_enginePower},
        {!isNumeric(m_size->text()), notNumeric, m_size, m_size},
        {!isNumeric(m_length->text()), notNumeric, m_length, m_length},
    });
    for (const Check& check : checks) {
        if (!check.failed) {
            continue;
        }
        dialogs().message(u"ERROR"_s, check.message);
        if (check.emptied != nullptr) {
            check.emptied->clear();
        }
        if (check.focus != nullptr) {
            focusOn(check.focus);
        }
        return true;
    }
    return false;
}

Sql VesselTab::insertStatement() const {
    return Sql("insert into vessel values(")
           << typed(m_name) << "," << typed(m_registerId) << "," << m_state->text() << ","
           << m_engineType->currentText() << "," << numberOf(m_enginePower) << "," << numberOf(m_size) << ","
           << numberOf(m_length) << "," << m_gear->key().toInt() << "," << m_meshSize->text() << ","
           << m_netLength->text() << "," << m_netWidth->text() << ")";
}

void VesselTab::addvessel(const Sql& statement) {
    static_cast<void>(
        confirmAfterExecute(statement, Dialogs::Question::Adding, u"Are you sure to insert this fishing vessel? "_s));
}

void VesselTab::addvessel2(const Sql& statement) {
    connection().execute(statement);
}

void VesselTab::AddGearCounted(const QString& name) {
    int id = nextGearByCount(connection());
    if (finds(Sql("select * from Fishing_gear where gearid = ") << id)) {
        id = nextGear(connection());
    }
    connection().execute(Sql("insert into Fishing_gear values(") << id << "," << name << ")");
    dialogs().message(u"Insert Complete!"_s);
    RefreshVesselGearList();
    Q_EMIT gearAdded();
}

void VesselTab::ClearVesselFields() {
    for (QLineEdit* field :
         {m_name, m_enginePower, m_state, m_registerId, m_netWidth, m_size, m_netLength, m_meshSize, m_length}) {
        field->clear();
    }
    m_engineType->setCurrentIndex(-1);
    m_gear->setText({});
}

void VesselTab::deleteVessel(const QString& name, const QString& registerId) {
    // An operation stores the name of its vessel: one without a name is used by none.
    const bool named = !name.isEmpty();
    if (named && finds(Sql("select * from fishoperation where vesselid = ") << name)) {
        dialogs().message(u"ERROR!"_s, u"Can not delete because vessel used in another table"_s);
        return;
    }
    const Sql statement = named ? Sql("delete from vessel where vesselname = ") << name
                                : Sql("delete from vessel where ifnull(vesselname,'') = '' and vesselid = ")
                                      << registerId;
    if (confirmAfterExecute(statement, Dialogs::Question::Deleting,
                            u"Are you sure to delete '%1'?"_s.arg(named ? name : registerId))) {
        m_register->setCaption({});
        RefreshVesselGrid();
        m_register->leaveRow();
    }
}

}  // namespace kelvora
