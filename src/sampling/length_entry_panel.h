#pragma once

#include "records/length_store.h"
#include "sampling/entry_panel.h"

class QFrame;
class QLabel;
class QPushButton;

namespace kelvora {

class Grid;
class TextTable;
class ValueLabel;

/// The entry of one length-frequency sample: the classes follow from an interval and a lower limit, and the sampler
/// types the counts, one class after the other.
class LengthEntryPanel : public EntryPanel {
    Q_OBJECT

public:
    LengthEntryPanel(const FinderPanel& finder, Connection& connection, Dialogs& dialogs);

    void reset() override;
    void refresh() override;

private:
    QWidget* createForm();
    QFrame* createFrequencyFrame();
    QWidget* createButtons();
    void connectFields();
    void highlight(int row);

    void onSpeciesChosen();
    void onIntervalChanged();
    void onStart();
    void onFrequency();
    void onFinish();
    void onSave();
    void clear();
    bool fitsTheCount(const ChosenSpecies& chosen, const std::optional<double>& interval);

    [[nodiscard]] LengthStart typedStart() const;
    bool replacesStored(const StoredOperation& operation, const ChosenSpecies& species);
    void startAt(const LengthClass& first);
    bool mayBeSaved();

    QLineEdit* m_interval;
    QLineEdit* m_weight;
    QLineEdit* m_lowerLimit;
    QPushButton* m_start;
    QFrame* m_frame;
    ValueLabel* m_currentClass;
    QLineEdit* m_frequency;
    QPushButton* m_finish;
    QPushButton* m_save;
    QPushButton* m_clear;
    Grid* m_grid;
    TextTable* m_rows;  ///< of the grid; once an entry is started, the last one waits for its count

    QLabel* m_notice;  ///< what became of the last entry, where it ended without SAVE or CLEAR

    std::optional<ChosenSpecies> m_shownSpecies;  ///< the species whose interval is in its box
    std::optional<StoredOperation> m_started;     ///< the operation whose catch is being measured; nothing while idle
    std::vector<CountedClass> m_counted;          ///< the classes that have a count, from top to bottom
    LengthClass m_current;                        ///< the class that waits for its count
};

}  // namespace kelvora
