#include "sampling/sampling_screens.h"

#include "operations/finder_panel.h"
#include "sampling/composition_entry_panel.h"
#include "sampling/gonad_entry_panel.h"
#include "sampling/length_entry_panel.h"

#include <QTabWidget>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace kelvora {

SamplingScreen::SamplingScreen(const QString& caption, const QString& numberCaption, const Context& context)
    : Screen(caption, context),
      m_connection(context.databasePath, context.waiting()),
      m_finder(new FinderPanel(numberCaption, m_connection, context)) {}

void SamplingScreen::open(EntryPanel* entry, const QString& tabCaption, bool selectFirstCriterion) {
    m_entry = entry;
    auto* tabs = new QTabWidget;
    tabs->addTab(m_finder, u"Fishing Operation"_s);
    tabs->addTab(entry, tabCaption);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(tabs);

    connect(m_finder, &FinderPanel::cleared, entry, &EntryPanel::reset);
    connect(m_finder, &FinderPanel::loaded, entry, &EntryPanel::refresh);
    m_finder->open(selectFirstCriterion);
    // Where there is nothing to find, the sampler goes on with the sample.
    tabs->setCurrentIndex(m_finder->isLocked() ? 1 : 0);
}

void SamplingScreen::refillLists() {
    if (m_connection.changedElsewhere()) {
        m_finder->refillLists();
        m_entry->refillLists();
    }
}

SpeciesCompositionScreen::SpeciesCompositionScreen(const Context& context)
    : SamplingScreen(u"Species Composition"_s, u"Fishing operation no."_s, context) {
    open(new CompositionEntryPanel(*m_finder, m_connection, dialogs()), u"Species Composition"_s, true);
}

LengthFrequencyScreen::LengthFrequencyScreen(const Context& context)
    : SamplingScreen(u"Length Frequency"_s, u"Fishing Information No."_s, context) {
    open(new LengthEntryPanel(*m_finder, m_connection, dialogs()), u"Length Frequency"_s, false);
}

GonadMaturityScreen::GonadMaturityScreen(const Context& context)
    : SamplingScreen(u"Gonad Matuarity Detail"_s, u"Fishing Information No."_s, context) {
    open(new GonadEntryPanel(*m_finder, m_connection, dialogs()), u"Gonad Maturity Detail"_s, false);
}

}  // namespace kelvora
