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
    void addGear(const QString& name);
    void addMethod(const QString& name, int gear);
    [[nodiscard]] bool remove(int method);

    BoundList* m_gear;
    QLineEdit* m_method;
    RecordGrid* m_methods;
};

}  // namespace kelvora
