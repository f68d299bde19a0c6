#include "sampling/stored_groups_panel.h"

#include "controls/captioned_grid.h"
#include "controls/dialogs.h"
#include "controls/record_navigator.h"
#include "controls/screen.h"
#include "controls/text_table.h"
#include "data/connection.h"
#include "operations/finder_panel.h"
#include "records/composition_store.h"

#include <QPushButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace kelvora {
namespace {

GridColumns groupColumns() {
    return {{u"species"_s, 173, Qt::AlignLeft},
            {u"Sampling Weight"_s, 100, Qt::AlignHCenter},
            {u"estimate total catch"_s, 113, Qt::AlignHCenter}};
}

}  // namespace

StoredGroupsPanel::StoredGroupsPanel(const FinderPanel& finder, Connection& connection, const Context& context)
    : m_finder(finder),
      m_connection(connection),
      m_context(context),
      m_navigator(new RecordNavigator(u"Group record"_s)),
      m_delete(new QPushButton(u"X"_s)),
      m_stored(new CaptionedGrid(QString())) {
    m_delete->setToolTip(u"Delete this group"_s);
    m_delete->setMaximumWidth(40);
    m_stored->layout()->setContentsMargins(0, 0, 0, 0);

    auto* record = new QHBoxLayout;
    record->addWidget(m_navigator, 1);
    record->addWidget(m_delete);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addLayout(record);
    layout->addWidget(m_stored, 1);

    connect(m_navigator, &RecordNavigator::arrived, this, &StoredGroupsPanel::onArrived);
    connect(m_delete, &QPushButton::clicked, this, guarded(context.dialogs, [this] { onDelete(); }));
    reset();
}

void StoredGroupsPanel::refresh(int operation) {
    m_groups =
        keyed(m_connection.query(Sql("SELECT distinct groupname,groupid,totalsampling from group_main where optid =")
                                 << operation << " and groupid <> 1 order by groupid"),
              u"groupid");
    m_navigator->setRowCount(m_groups.rowCount());
    if (m_groups.isEmpty()) {
        m_navigator->setCaption(u"No Group Data"_s);
    }
}

void StoredGroupsPanel::reset() {
    m_groups = {};
    m_navigator->setRowCount(0);
}

void StoredGroupsPanel::showNone() {
    m_navigator->setCaption({});
    m_delete->setEnabled(false);
    m_stored->setCaption(u"Total catch in weight of sampling group"_s);
    m_stored->grid()->show(std::make_unique<TextTable>(3), groupColumns());
}

void StoredGroupsPanel::showGroup(int operation, int row) {
    const int group = m_groups.integer(row, u"groupid").value_or(0);
    auto species = m_connection.model(
        Sql("SELECT fish.genus & ' ' & fish.fishname AS Species, group_composition.totalweight,"
            " group_composition.estotal FROM (group_main INNER JOIN group_composition ON"
            " (group_main.optid = group_composition.optid) AND (group_main.groupid = group_composition.groupid))"
            " INNER JOIN fish ON group_composition.spid = fish.fishno Where (((group_composition.groupid) = ")
        << group << ") And ((group_composition.optid) = " << operation << "))"
        << " ORDER BY fish.genus & ' ' & fish.fishname");
    const QString name = m_groups.text(row, u"groupname");
    m_navigator->setCaption(u"Record %1/%2 "_s.arg(row + 1).arg(m_groups.rowCount()) + name + u" [Total weight "_s +
                            m_groups.text(row, u"totalsampling") + u" kg.]"_s);
    m_delete->setEnabled(true);
    m_stored->setCaption(u"Total catch in weight of "_s + name + u" (kg.)"_s);
    m_stored->grid()->show(std::move(species), groupColumns());
}

void StoredGroupsPanel::onArrived(int row) {
    const auto& operation = m_finder.operation();
    const bool shown =
        row >= 0 && operation && runGuarded(m_context.dialogs, [&] { showGroup(operation->number, row); });
    if (!shown) {
        showNone();
    }
}

void StoredGroupsPanel::onDelete() {
    const auto& operation = m_finder.operation();
    if (!operation ||
        !m_context.dialogs.confirm(u"Are you sure to delete this group?"_s, Dialogs::Question::Deleting)) {
        return;
    }
    deleteGroup(m_connection, *operation, m_groups.integer(m_navigator->row(), u"groupid").value());
    refresh(operation->number);
    Q_EMIT changed();
}

}  // namespace kelvora
