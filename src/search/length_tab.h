#pragma once

#include "data/result_set.h"
#include "records/length_classes.h"
#include "sampling/species_list.h"
#include "search/sample_tab.h"

#include <optional>

class QGroupBox;
class QLineEdit;
class QPushButton;

namespace kelvora {

class Grid;
class RecordNavigator;
class ValueLabel;

/// The length samples of an operation, species by species: their weight, their classes, and the class that follows.
class LengthTab : public SampleTab {
    Q_OBJECT

public:
    LengthTab(Connection& connection, Dialogs& dialogs);

protected:
    void reload() override;

private:
    QLayout* sampleForm();
    void onArrived(int row);
    void showSample(int row);
    void showWeight();
    void showClasses();
    void showNextClass(const ResultSet& classes);
    void showNone();
    void setUsable(bool usable);
    void onUpdate();
    void onAdd();
    void onDelete();
    [[nodiscard]] int species() const;
    [[nodiscard]] ChosenSpecies shownSpecies() const;
    [[nodiscard]] Sql sample() const;

    RecordNavigator* m_navigator;
    QPushButton* m_delete;
    Grid* m_classes;
    QLineEdit* m_weight;
    QPushButton* m_update;
    ValueLabel* m_interval;
    QGroupBox* m_addFrame;
    ValueLabel* m_nextLabel;
    QLineEdit* m_frequency;
    QPushButton* m_add;

    ResultSet m_samples;
    std::optional<LengthClass> m_next;  ///< the class that "ADD" stores
};

}  // namespace kelvora
