#pragma once

#include "data/result_set.h"
#include "records/length_sample.h"
#include "search/sample_tab.h"

#include <optional>

class QGroupBox;
class QLineEdit;
class QPushButton;

namespace kelvora {

class Grid;
class ValueLabel;

/// The length samples of an operation, species by species: their weight, their classes, and the class that follows.
class LengthTab : public SpeciesSampleTab {
    Q_OBJECT

public:
    LengthTab(Connection& connection, Dialogs& dialogs);

protected:
    void showSample(const QString& weight) override;
    void showNone() override;
    void setUsable(bool usable) override;

private:
    QLayout* sampleForm();
    void showClasses();
    void showNextClass(const ResultSet& classes);
    void onUpdate();
    void onAdd();

    Grid* m_classes;
    QLineEdit* m_weight;
    QPushButton* m_update;
    ValueLabel* m_intervalLabel;
    QGroupBox* m_addFrame;
    ValueLabel* m_nextLabel;
    QLineEdit* m_frequency;
    QPushButton* m_add;

    double m_interval = 0;              ///< class interval of the species (cm); 0 if it has none
    std::optional<LengthClass> m_next;  ///< the class that "ADD" stores
};

}  // namespace kelvora
