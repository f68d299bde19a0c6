#include "sampling/length_frequency_screen.h"

#include "operations/finder_panel.h"
#include "sampling/length_entry_panel.h"

#include <QTabWidget>
#include <QVBoxLayout>

namespace kelvora {

LengthFrequencyScreen::LengthFrequencyScreen(const Context& context)
    : Screen(tr("Length Frequency"), context),
      m_connection(context.databasePath),
      m_finder(new FinderPanel(tr("Fishing Information No."), m_connection, context)),
      m_entry(new LengthEntryPanel(*m_finder, m_connection, context)) {
    auto* tabs = new QTabWidget;
    tabs->addTab(m_finder, tr("Fishing Operation"));
    tabs->addTab(m_entry, tr("Length Frequency"));
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(tabs);

    connect(m_finder, &FinderPanel::cleared, m_entry, &LengthEntryPanel::reset);
    connect(m_finder, &FinderPanel::loaded, m_entry, &LengthEntryPanel::refresh);
    m_finder->open(false);
}

}  // namespace kelvora
