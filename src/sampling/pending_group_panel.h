#pragma once

#include "controls/text_table.h"
#include "records/composition.h"
#include "sampling/entry_panel.h"

class QPushButton;

namespace kelvora {

class Grid;
class ValueLabel;

/// A sampling group while its sample is sorted: it lives only here until it is saved.
class PendingGroupPanel : public EntryPanel {
    Q_OBJECT

public:
    PendingGroupPanel(const FinderPanel& finder, Connection& connection, Dialogs& dialogs);

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
    /// The pending group with its name and total as they stand in their boxes.
    [[nodiscard]] SamplingGroup typedGroup() const;

    QLineEdit* m_group;
    QLineEdit* m_total;
    ValueLabel* m_sample;
    QLineEdit* m_weight;
    Grid* m_list;
    TextTable m_rows;  ///< species, weight as typed; the last row is always blank
    QPushButton* m_save;
    QPushButton* m_clear;
    std::vector<SampledSpecies> m_listed;  ///< the sample so far
};

}  // namespace kelvora
