#include "reference/general_information_screen.h"

#include "controls/screen.h"
#include "reference/area_panel.h"
#include "reference/gear_method_panel.h"
#include "reference/species_tab.h"
#include "reference/state_port_panel.h"
#include "reference/vessel_tab.h"

#include <QGridLayout>
#include <QTabWidget>

using namespace Qt::StringLiterals;

namespace kelvora {

GeneralInformationScreen::GeneralInformationScreen(const Context& context)
    : Screen(u"General Information"_s, context),
      m_connection(context.databasePath),
      m_methods(new GearMethodPanel(m_connection, dialogs())),
      m_areas(new AreaPanel(m_connection, dialogs())),
      m_ports(new StatePortPanel(m_connection, dialogs())),
      m_species(new SpeciesTab(m_connection, dialogs())),
      m_vessels(new VesselTab(m_connection, dialogs())) {
    auto* layout = new QVBoxLayout(this);
    auto* tabs = new QTabWidget;
    layout->addWidget(tabs);
    tabs->addTab(generalTab(), u"General"_s);
    tabs->addTab(m_species, u"Target Species"_s);
    tabs->addTab(m_vessels, u"Fishing Vessel"_s);

    // A gear that was named on one tab can be chosen on the other at once.
    connect(m_methods, &GearMethodPanel::gearAdded, this,
            guarded(dialogs(), [this] { m_vessels->RefreshVesselGearList(); }));
    connect(m_vessels, &VesselTab::gearAdded, this, guarded(dialogs(), [this] { m_methods->RefreshMethodGearList(); }));

    LoadScreen();
}

QWidget* GeneralInformationScreen::generalTab() {
    auto* tab = new QWidget;
    auto* layout = new QHBoxLayout(tab);
    for (QWidget* panel : std::initializer_list<QWidget*>{m_ports, m_methods, m_areas}) {
        layout->addWidget(panel, 1);
    }
    return tab;
}

void GeneralInformationScreen::LoadScreen() {
    m_ports->RefreshStatePortGrid();
    m_species->RefreshSpeciesGrid();
    m_methods->RefreshGearMethodGrid();
    m_areas->RefreshAreaGrid();
    m_vessels->RefreshVesselGrid();
    m_ports->RefreshStateList();
    m_methods->RefreshMethodGearList();
    m_vessels->RefreshVesselGearList();
}

void GeneralInformationScreen::refillLists() {
    if (m_connection.changedElsewhere()) {
        m_ports->RefreshStateList();
        m_methods->RefreshMethodGearList();
        m_vessels->RefreshVesselGearList();
    }
}

std::optional<int> GeneralInformationScreen::getsamplingid(const QString& stateName, const QString& portName) {
    return m_ports->getsamplingid(stateName, portName);
}

}  // namespace kelvora
