#include "search/composition_tab.h"

#include "controls/captioned_grid.h"
#include "controls/dialogs.h"
#include "controls/record_navigator.h"
#include "controls/screen.h"
#include "data/connection.h"
#include "records/composition_store.h"
#include "sampling/composition_summary.h"

#include <QGroupBox>
#include <QHBoxLayout>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace kelvora {
namespace {

GridColumns groupColumns() {
    return {{u"Species"_s, 173},
            {u"Total weight(kg.)"_s, 133, Qt::AlignHCenter},
            {u"Estimate total catch(kg.)"_s, 140, Qt::AlignHCenter}};
}

GridColumns noGroupColumns() {
    return {{u"Species"_s, 173},
            {u"Sampling weight(kg.)"_s, 133, Qt::AlignHCenter},
            {u"Estimate total catch(kg.)"_s, 140, Qt::AlignHCenter}};
}

}  // namespace

CompositionTab::CompositionTab(Connection& connection, Dialogs& dialogs)
    : SampleTab(connection, dialogs),
      m_summary(new CompositionSummary),
      m_navigator(new RecordNavigator(u"Group record"_s)),
      m_delete(deleteButton(u"Delete group"_s)),
      m_group(new Grid(u"Group"_s)) {
    auto* record = new QHBoxLayout;
    record->addWidget(m_navigator, 1);
    record->addWidget(m_delete);
    auto* group = new QGroupBox(u"Group"_s);
    auto* groupLayout = new QVBoxLayout(group);
    groupLayout->setSpacing(8);
    groupLayout->addLayout(record);
    groupLayout->addWidget(m_group, 1);

    auto* layout = new QHBoxLayout(this);
    layout->addWidget(m_summary, 1);
    layout->addWidget(group, 1);

    connect(m_navigator, &RecordNavigator::arrived, this, &CompositionTab::onArrived);
    onClick(m_delete, [this] { onDelete(); });
}

void CompositionTab::reload() {
    m_groups = {};
    if (!operation()) {
        m_summary->reset();
        m_navigator->setRowCount(0);
        return;
    }
    m_summary->refresh(connection(), operation()->number);
    m_groups =
        keyed(connection().query(Sql("SELECT distinct groupname,groupid,totalsampling from group_main where optid =")
                                 << operation()->number << " order by groupid"),
              u"groupid");
    m_navigator->setRowCount(m_groups.rowCount());
}

void CompositionTab::onArrived(int row) {
    if (row < 0) {
        showNone(operation() ? u"No data"_s : QString());
    } else if (!runGuarded(dialogs(), [&] { showGroup(row); })) {
        showNone({});
    }
}

void CompositionTab::showGroup(int row) {
    auto species = connection().model(
        Sql("SELECT fish.genus & ' ' & fish.fishname AS Species,format(group_composition.totalweight,'#0.00'),"
            " format(group_composition.estotal,'#0.00') FROM fish INNER JOIN group_composition ON"
            " fish.fishno = group_composition.spid Where group_composition.groupid = ")
        << currentGroup() << " And group_composition.optid = " << operation()->number
        << " ORDER BY fish.genus & ' ' & fish.fishname");
    m_navigator->setCaption(u"Record %1/%2 "_s.arg(row + 1).arg(m_groups.rowCount()) +
                            m_groups.text(row, u"groupname") + u" [Total weight "_s +
                            m_groups.text(row, u"totalsampling") + u" kg.]"_s);
    m_group->show(std::move(species), groupColumns());
    m_delete->setEnabled(true);
}

void CompositionTab::showNone(const QString& caption) {
    m_navigator->setCaption(caption);
    m_group->showBlank(noGroupColumns());
    m_delete->setEnabled(false);
}

void CompositionTab::onDelete() {
    if (!dialogs().confirm(u"Are you sure to delete this group?"_s, Dialogs::Question::Deleting)) {
        return;
    }
    const int group = currentGroup();
    if (isStored(Sql("select groupid from group_main where optid = ")
                 << operation()->number << " and groupid = " << group)) {
        deleteGroup(connection(), *operation(), group);
        reload();
    }
}

int CompositionTab::currentGroup() const {
    return m_groups.integer(m_navigator->row(), u"groupid").value();
}

}  // namespace kelvora
