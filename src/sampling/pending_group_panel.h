#pragma once

#include "controls/text_table.h"
#include "records/composition.h"

#include <QWidget>

#include <array>

class QLineEdit;
class QPushButton;

namespace kelvora {

class BoundList;
class Dialogs;
class FinderPanel;
class Grid;
class ValueLabel;

/// A sampling group while its sample is sorted: it lives only here until it is saved.
class PendingGroupPanel : public QWidget {
    Q_OBJECT

public:
    /// Works on the finder's current operation; finder and connection outlive the panel.
    PendingGroupPanel(const FinderPanel& finder, Connection& connection, Dialogs& dialogs);

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
    /// Says what is wrong, if anything is.
    bool isRefused(const std::optional<Refusal>& refusal);
    /// The pending group with its name and total as they stand in their boxes.
    [[nodiscard]] SamplingGroup typedGroup() const;

    const FinderPanel& m_finder;
    Connection& m_connection;
    Dialogs& m_dialogs;
    QLineEdit* m_group;
    QLineEdit* m_total;
    ValueLabel* m_sample;
    BoundList* m_species;
    QLineEdit* m_weight;
    Grid* m_list;
    TextTable m_rows;  ///< species, weight as typed; the last row is always blank
    QPushButton* m_save;
    QPushButton* m_clear;
    std::array<QWidget*, 4> m_fields;      ///< in the order of CompositionField
    std::vector<SampledSpecies> m_listed;  ///< the sample so far
};

}  // namespace kelvora
