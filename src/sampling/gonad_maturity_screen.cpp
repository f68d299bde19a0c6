#include "sampling/gonad_maturity_screen.h"

#include "operations/finder_panel.h"
#include "sampling/gonad_entry_panel.h"

#include <QTabWidget>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace kelvora {

GonadMaturityScreen::GonadMaturityScreen(const Context& context)
    : Screen(u"Gonad Matuarity Detail"_s, context),
      m_connection(context.databasePath, context.waiting()),
      m_finder(new FinderPanel(u"Fishing Information No."_s, m_connection, context)),
      m_entry(new GonadEntryPanel(*m_finder, m_connection, context)) {
    auto* tabs = new QTabWidget;
    tabs->addTab(m_finder, u"Fishing Operation"_s);
    tabs->addTab(m_entry, u"Gonad Maturity Detail"_s);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(tabs);

    connect(m_finder, &FinderPanel::cleared, m_entry, &GonadEntryPanel::reset);
    connect(m_finder, &FinderPanel::loaded, m_entry, &GonadEntryPanel::refresh);
    m_finder->open(false);
    // Where there is nothing to find, the sampler goes on with the sample.
    tabs->setCurrentIndex(m_finder->isLocked() ? 1 : 0);
}

void GonadMaturityScreen::refillLists() {
    if (m_connection.changedElsewhere()) {
        m_finder->refillLists();
        m_entry->refillLists();
    }
}

}  // namespace kelvora
