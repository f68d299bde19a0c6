#pragma once

#include "reference/reference_panel.h"

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

private:
    void add();
    void AddSamplingPort(const QString& portName, int state);
    [[nodiscard]] bool remove(int port);
    void purgeStates();

    BoundList* m_state;
    QLineEdit* m_port;
    RecordGrid* m_ports;
    int m_selectedPort = 0;  ///< 0 if there is none
};

}  // namespace kelvora
