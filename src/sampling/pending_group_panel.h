#pragma once

#include "controls/screen.h"
#include "controls/text_table.h"

#include <QWidget>

class QLineEdit;
class QPushButton;

namespace kelvora {

class BoundList;
class Connection;
class FinderPanel;
class Grid;
class ValueLabel;

/// A sampling group while its sample is sorted: it lives only here until it is saved.
class PendingGroupPanel : public QWidget {
    Q_OBJECT

public:
    /// Works on the finder's current operation; finder and connection outlive the panel.
    PendingGroupPanel(const FinderPanel& finder, Connection& connection, const Context& context);

    /// Fills the list of species again, which another screen may have changed.
    void refillLists();

Q_SIGNALS:
    /// The group was stored.
    void saved();

private:
    void onAdd();
    void onSave();
    void onClear();
    bool askName();
    bool askTotal();
    bool chooseFreeName(int operation);
    void refuse(const QString& title, const QString& text, QWidget* field) const;
    [[nodiscard]] int listed() const;
    [[nodiscard]] bool isListed(const QString& species) const;
    [[nodiscard]] double total() const;
    [[nodiscard]] double sample() const;

    const FinderPanel& m_finder;
    Connection& m_connection;
    Context m_context;
    QLineEdit* m_group;
    QLineEdit* m_total;
    ValueLabel* m_sample;
    BoundList* m_species;
    QLineEdit* m_weight;
    Grid* m_list;
    TextTable m_rows;  ///< species, weight as typed, key of the species; the last row is always blank
    QPushButton* m_save;
    QPushButton* m_clear;
};

}  // namespace kelvora
