#pragma once

#include "records/species.h"

#include <QGroupBox>

class QLineEdit;
class QPushButton;

namespace kelvora {

class BoundList;
class CaptionedGrid;
class Dialogs;
class FinderPanel;
class RecordNavigator;

/// The species of an operation that were weighed whole.
class SingleSpeciesPanel : public QGroupBox {
    Q_OBJECT

public:
    /// Works on the finder's current operation; finder and connection outlive the panel.
    SingleSpeciesPanel(const FinderPanel& finder, Connection& connection, Dialogs& dialogs);

    /// Shows the single species of an operation.
    void refresh(int operation);
    void reset();
    /// Fills the list of species again, which another screen may have changed.
    void refillLists();

Q_SIGNALS:
    /// A species was stored or deleted.
    void changed();

private:
    void onAdd();
    void onArrived(int row);
    void onDelete();

    const FinderPanel& m_finder;
    Connection& m_connection;
    Dialogs& m_dialogs;
    BoundList* m_species;
    QLineEdit* m_weight;
    CaptionedGrid* m_stored;
    RecordNavigator* m_navigator;
    QPushButton* m_delete;
    std::vector<ChosenSpecies> m_shown;  ///< in the order of the grid
};

}  // namespace kelvora
