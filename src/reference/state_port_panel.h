#pragma once

#include "reference/reference_panel.h"

#include <optional>

class QLineEdit;

namespace kelvora {

class BoundList;
class RecordGrid;

/// States/provinces and the sampling ports that lie in them.
class StatePortPanel : public ReferencePanel {
    Q_OBJECT

public:
    StatePortPanel(Connection& connection, Dialogs& dialogs);

    void RefreshStatePortGrid();
    void RefreshStateList();

    /// The key of the port with these names; shows "No Record" and gives nothing when there is none.
    std::optional<int> getsamplingid(const QString& stateName, const QString& portName);

private:
    void followRow(bool onRow);
    void add();
    int InsertState(const QString& name);
    void AddSamplingPort(const QString& portName, int stateid);
    void DeleteSamplingPort(int samplingid);
    void PurgeStatesWithoutPorts();
    [[nodiscard]] std::optional<int> samplingid(const QString& stateName, const QString& portName) const;

    BoundList* m_state;
    QLineEdit* m_port;
    RecordGrid* m_ports;
    int m_selectedPort = 0;  ///< 0 if there is none
};

}  // namespace kelvora
