#include "search/composition_tab.h"

#include "records/composition_store.h"
#include "sampling/stored_composition.h"

#include <QGroupBox>
#include <QHBoxLayout>

using namespace Qt::StringLiterals;

namespace kelvora {

CompositionTab::CompositionTab(Connection& connection, Dialogs& dialogs)
    : SampleTab(connection, dialogs),
      m_summary(new CaptionedGrid(u"Composition"_s)),
      m_groups(new GroupsPanel(connection, dialogs, GroupsPanel::Use::Correction,
                               [this](int group) { onDeleteGroup(group); })) {
    auto* group = new QGroupBox(u"Group"_s);
    (new QVBoxLayout(group))->addWidget(m_groups);
    auto* layout = new QHBoxLayout(this);
    layout->addWidget(m_summary, 1);
    layout->addWidget(group, 1);
}

void CompositionTab::reload() {
    if (operation()) {
        showComposition(*m_summary, compositionOf(connection(), operation()->number));
        m_groups->refresh(operation()->number);
    } else {
        showComposition(*m_summary, {});
        m_groups->reset();
    }
}

void CompositionTab::onDeleteGroup(int group) {
    if (mayChange(hasGroup(connection(), operation().value().number, group))) {
        deleteGroup(connection(), *operation(), group);
        reload();
    }
}

}  // namespace kelvora
