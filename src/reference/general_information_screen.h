#pragma once

#include "controls/screen.h"
#include "data/connection.h"

#include <optional>

class QWidget;

namespace kelvora {

class AreaPanel;
class GearMethodPanel;
class SpeciesTab;
class StatePortPanel;
class VesselTab;

/// "General Information": the reference lists that every operation and sample refers to.
class GeneralInformationScreen : public Screen {
    Q_OBJECT

public:
    /// Throws DataError when the data file cannot be opened or read.
    explicit GeneralInformationScreen(const Context& context);

    /// The key of the sampling port with this name in the state with this name; shows "No Record" and gives nothing
    /// when there is none.
    std::optional<int> getsamplingid(const QString& stateName, const QString& portName);

protected:
    void refillLists() override;

private:
    [[nodiscard]] QWidget* generalTab();
    void LoadScreen();

    Connection m_connection;
    GearMethodPanel* m_methods;
    AreaPanel* m_areas;
    StatePortPanel* m_ports;
    SpeciesTab* m_species;
    VesselTab* m_vessels;
};

}  // namespace kelvora
