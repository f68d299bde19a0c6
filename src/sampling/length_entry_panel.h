#pragma once

#include "controls/screen.h"
#include "records/length_checks.h"
#include "records/length_store.h"

#include <QWidget>

#include <optional>

class QFrame;
class QLabel;
class QLineEdit;
class QPushButton;

namespace kelvora {

class BoundList;
class FinderPanel;
class LengthClassGrid;
class ValueLabel;

/// The entry of one length-frequency sample: the classes follow from an interval and a lower limit, and the sampler
/// types the counts, one class after the other. What is typed lives here alone until SAVE.
class LengthEntryPanel : public QWidget {
    Q_OBJECT

public:
    /// The finder says which operation is current; it and the connection are the screen's and outlive the panel.
    LengthEntryPanel(const FinderPanel& finder, Connection& connection, const Context& context);

    /// No operation is current any more: an entry that runs ends, as with CLEAR.
    void reset();
    /// Another operation is current: offers the species of its composition.
    void refresh();
    /// Fills the list of species again, which another screen may have changed.
    void refillLists();

private:
    QWidget* createForm();
    QFrame* createFrequencyFrame();
    QWidget* createButtons();
    void connectFields();

    void onSpeciesChosen();
    void onIntervalChanged();
    void onStart();
    void onFrequency();
    void onFinish();
    void onSave();
    void clear();
    bool fitsTheCount(const ChosenSpecies& chosen, const std::optional<double>& interval);

    [[nodiscard]] LengthStart typedStart() const;
    bool giveWay(const StoredOperation& operation, const ChosenSpecies& species);
    void startAt(const LengthClass& first);
    [[nodiscard]] QLineEdit* boxOf(LengthRefusal::Field field) const;
    void refuse(const LengthRefusal& refusal);
    bool mayBeSaved(const std::vector<CountedClass>& classes);

    const FinderPanel& m_finder;
    Connection& m_connection;
    Context m_context;

    BoundList* m_species;
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
    LengthClassGrid* m_grid;

    QLabel* m_notice;  ///< what became of the last entry, where it ended without SAVE or CLEAR

    std::optional<ChosenSpecies> m_shownSpecies;  ///< the species whose interval is in its box
    std::optional<StoredOperation> m_started;     ///< the operation whose catch is being measured; nothing while idle
    LengthClass m_current;                        ///< the class that waits for its count
};

}  // namespace kelvora
