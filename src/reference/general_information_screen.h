#pragma once

#include "controls/screen.h"
#include "data/connection.h"

namespace kelvora {

class GeneralTab;
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
    Connection m_connection;
    GeneralTab* m_general = nullptr;
    VesselTab* m_vessels = nullptr;
};

}  // namespace kelvora
