#include "sampling/stored_composition.h"

#include "controls/dialogs.h"
#include "controls/fields.h"
#include "controls/record_navigator.h"
#include "controls/screen.h"
#include "controls/text_table.h"
#include "data/numbers.h"
#include "records/composition_store.h"

#include <QHBoxLayout>
#include <QPushButton>

#include <utility>

using namespace Qt::StringLiterals;

namespace kelvora {
namespace {

GridColumns entryColumns() {
    return {{u"species"_s, 173, Qt::AlignLeft},
            {u"Sampling Weight"_s, 100, Qt::AlignHCenter},
            {u"estimate total catch"_s, 113, Qt::AlignHCenter}};
}

GridColumns correctionColumns(const QString& weight) {
    return {
        {u"Species"_s, 173}, {weight, 133, Qt::AlignHCenter}, {u"Estimate total catch(kg.)"_s, 140, Qt::AlignHCenter}};
}

/// A stored weight as it is shown.
QString weightText(const QVariant& weight, bool withTwoDecimals) {
    const bool number = weight.typeId() == QMetaType::Double;
    return number && withTwoDecimals ? twoDecimals(weight.toDouble()) : displayText(weight);
}

}  // namespace

void showRows(Grid& grid, ResultSet rows, const GridColumns& columns) {
    if (rows.isEmpty()) {
        grid.showBlank(columns);
    } else {
        grid.show(std::make_unique<ResultModel>(std::move(rows)), columns);
    }
}

void showComposition(const CaptionedGrid& summary, ResultSet composition) {
    showRows(*summary.grid(), std::move(composition),
             {{u"Species"_s, 173, Qt::AlignHCenter},
              {u"Composition"_s, 113, Qt::AlignHCenter},
              {u"%Composition"_s, 113, Qt::AlignHCenter}});
}

GroupsPanel::GroupsPanel(Connection& connection, Dialogs& dialogs, Use use, Deletion deletion)
    : m_connection(connection),
      m_dialogs(dialogs),
      m_correction(use == Use::Correction),
      m_deletion(std::move(deletion)),
      m_navigator(new RecordNavigator(u"Group record"_s)),
      m_delete(m_correction ? keyButton(u"Delete group"_s) : new QPushButton(u"X"_s)),
      m_frame(m_correction ? nullptr : new CaptionedGrid(QString())),
      m_grid(m_correction ? new Grid(u"Group"_s) : m_frame->grid()) {
    auto* record = new QHBoxLayout;
    record->addWidget(m_navigator, 1);
    record->addWidget(m_delete);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addLayout(record);
    if (m_correction) {
        layout->setSpacing(8);
        layout->addWidget(m_grid, 1);
    } else {
        m_delete->setToolTip(u"Delete this group"_s);
        m_delete->setMaximumWidth(40);
        m_frame->layout()->setContentsMargins(0, 0, 0, 0);
        layout->addWidget(m_frame, 1);
    }
    connect(m_navigator, &RecordNavigator::arrived, this, &GroupsPanel::onArrived);
    connect(m_delete, &QPushButton::clicked, this, guarded(dialogs, [this] { onDelete(); }));
    reset();
}

void GroupsPanel::refresh(int operation) {
    m_operation = operation;
    m_groups = groupsOf(m_connection, operation, m_correction);
    m_navigator->setRowCount(m_groups.rowCount());
    if (m_groups.isEmpty()) {
        m_navigator->setCaption(m_correction ? u"No data"_s : u"No Group Data"_s);
    }
}

void GroupsPanel::reset() {
    m_groups = {};
    m_navigator->setRowCount(0);
}

void GroupsPanel::onArrived(int row) {
    if (row < 0 || !runGuarded(m_dialogs, [&] { showGroup(row); })) {
        showNone();
    }
}

void GroupsPanel::showGroup(int row) {
    const ResultSet species = speciesOfGroup(m_connection, m_operation, m_groups.integer(row, u"groupid").value());
    auto weights = std::make_unique<TextTable>(3);
    for (int i = 0; i < species.rowCount(); ++i) {
        weights->appendRow({species.text(i, u"Species"), weightText(species.value(i, u"totalweight"), m_correction),
                            weightText(species.value(i, u"estotal"), m_correction)});
    }
    const QString name = m_groups.text(row, u"groupname");
    m_navigator->setCaption(u"Record %1/%2 "_s.arg(row + 1).arg(m_groups.rowCount()) + name + u" [Total weight "_s +
                            m_groups.text(row, u"totalsampling") + u" kg.]"_s);
    m_delete->setEnabled(true);
    if (m_frame != nullptr) {
        m_frame->setCaption(u"Total catch in weight of "_s + name + u" (kg.)"_s);
    }
    m_grid->show(std::move(weights), m_correction ? correctionColumns(u"Total weight(kg.)"_s) : entryColumns());
}

void GroupsPanel::showNone() {
    m_navigator->setCaption({});
    m_delete->setEnabled(false);
    if (m_correction) {
        m_grid->showBlank(correctionColumns(u"Sampling weight(kg.)"_s));
    } else {
        m_frame->setCaption(u"Total catch in weight of sampling group"_s);
        m_grid->show(std::make_unique<TextTable>(3), entryColumns());
    }
}

void GroupsPanel::onDelete() {
    if (m_dialogs.confirm(u"Are you sure to delete this group?"_s, Dialogs::Question::Deleting)) {
        m_deletion(m_groups.integer(m_navigator->row(), u"groupid").value());
    }
}

}  // namespace kelvora
