#pragma once

#include "reference/reference_panel.h"

class QLineEdit;

namespace kelvora {

class BoundList;
class RecordGrid;

/// Fishing gears and the fishing methods under each of them.
class GearMethodPanel : public ReferencePanel {
    Q_OBJECT

public:
    GearMethodPanel(Connection& connection, Dialogs& dialogs);

    void RefreshGearMethodGrid();
    void RefreshMethodGearList();

Q_SIGNALS:
    /// A gear was added: other lists of gears lack it.
    void gearAdded();

private:
    void add();
    void AddGear(const QString& name);
    void AddMethod(const QString& name, int gearid);
    void deleteMethod();

    BoundList* m_gear;
    QLineEdit* m_method;
    RecordGrid* m_methods;
    int m_selectedMethod = 0;  ///< 0 if there is none
};

}  // namespace kelvora
