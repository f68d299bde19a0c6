#pragma once

#include "reference/reference_panel.h"

class QLineEdit;

namespace kelvora {

class RecordGrid;

/// Fishing areas, each known by its name.
class AreaPanel : public ReferencePanel {
    Q_OBJECT

public:
    AreaPanel(Connection& connection, Dialogs& dialogs);

    void RefreshAreaGrid();

private:
    void add();
    [[nodiscard]] bool remove(const QString& name);
    void clearEntry();

    QLineEdit* m_name;
    QLineEdit* m_description;
    RecordGrid* m_areas;
};

}  // namespace kelvora
