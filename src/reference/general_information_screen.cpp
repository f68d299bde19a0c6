#include "reference/general_information_screen.h"

#include "controls/dialogs.h"
#include "controls/screen.h"
#include "records/places.h"
#include "reference/general_tab.h"
#include "reference/species_tab.h"
#include "reference/vessel_tab.h"

#include <QTabWidget>
#include <QVBoxLayout>

namespace kelvora {

GeneralInformationScreen::GeneralInformationScreen(const Context& context)
    : Screen(u"General Information"_s, context), m_connection(context.databasePath) {
    auto* layout = new QVBoxLayout(this);
    auto* tabs = new QTabWidget;
    layout->addWidget(tabs);
    m_general = new GeneralTab(m_connection, dialogs());
    tabs->addTab(m_general, u"General"_s);
    tabs->addTab(new SpeciesTab(m_connection, dialogs()), u"Target Species"_s);
    m_vessels = new VesselTab(m_connection, dialogs());
    tabs->addTab(m_vessels, u"Fishing Vessel"_s);

    // A gear that was named on one tab can be chosen on the other at once.
    connect(m_general, &GeneralTab::gearAdded, this,
            guarded(dialogs(), [this] { m_vessels->RefreshVesselGearList(); }));
    connect(m_vessels, &VesselTab::gearAdded, this, guarded(dialogs(), [this] { m_general->RefreshMethodGearList(); }));
}

void GeneralInformationScreen::refillLists() {
    if (m_connection.changedElsewhere()) {
        m_general->RefreshStateList();
        m_general->RefreshMethodGearList();
        m_vessels->RefreshVesselGearList();
    }
}

std::optional<int> GeneralInformationScreen::getsamplingid(const QString& stateName, const QString& portName) {
    const std::optional<int> port = kelvora::getsamplingid(m_connection, stateName, portName);
    if (!port) {
        dialogs().message(u"No Record"_s);
    }
    return port;
}

}  // namespace kelvora
