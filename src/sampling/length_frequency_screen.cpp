#include "sampling/length_frequency_screen.h"

#include "operations/finder_panel.h"
#include "sampling/length_entry_panel.h"

#include <QTabWidget>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace kelvora {

LengthFrequencyScreen::LengthFrequencyScreen(const Context& context)
    : Screen(u"Length Frequency"_s, context),
      m_connection(context.databasePath, context.waiting()),
      m_finder(new FinderPanel(u"Fishing Information No."_s, m_connection, context)),
      m_entry(new LengthEntryPanel(*m_finder, m_connection, context)) {
    auto* tabs = new QTabWidget;
    tabs->addTab(m_finder, u"Fishing Operation"_s);
    tabs->addTab(m_entry, u"Length Frequency"_s);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(tabs);

    connect(m_finder, &FinderPanel::cleared, m_entry, &LengthEntryPanel::reset);
    connect(m_finder, &FinderPanel::loaded, m_entry, &LengthEntryPanel::refresh);
    m_finder->open(false);
    // Where there is nothing to find, the sampler goes on with the sample.
    tabs->setCurrentIndex(m_finder->isLocked() ? 1 : 0);
}

void LengthFrequencyScreen::refillLists() {
    if (m_connection.changedElsewhere()) {
        m_finder->refillLists();
        m_entry->refillLists();
    }
}

}  // namespace kelvora
