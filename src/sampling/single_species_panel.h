#pragma once

#include "controls/screen.h"

#include <QGroupBox>

class QLineEdit;
class QPushButton;

namespace kelvora {

class BoundList;
class CaptionedGrid;
class Connection;
class FinderPanel;
class RecordNavigator;

/// The species of an operation that were weighed whole.
class SingleSpeciesPanel : public QGroupBox {
    Q_OBJECT

public:
    /// Works on the finder's current operation; finder and connection outlive the panel.
    SingleSpeciesPanel(const FinderPanel& finder, Connection& connection, const Context& context);

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
    void refuse(const QString& title, const QString& text, QWidget* field) const;

    const FinderPanel& m_finder;
    Connection& m_connection;
    Context m_context;
    BoundList* m_species;
    QLineEdit* m_weight;
    CaptionedGrid* m_stored;
    RecordNavigator* m_navigator;
    QPushButton* m_delete;
};

}  // namespace kelvora
