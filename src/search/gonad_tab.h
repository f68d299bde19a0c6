#pragma once

#include "data/result_set.h"
#include "search/sample_tab.h"

class QPushButton;

namespace kelvora {

class FishFields;
class Grid;
class RecordNavigator;
class ValueLabel;

/// The gonad samples of an operation, species by species: their measured fish, and the fields of a further one.
class GonadTab : public SampleTab {
    Q_OBJECT

public:
    /// Reads the maturity stages; throws DataError.
    GonadTab(Connection& connection, Dialogs& dialogs);

protected:
    void reload() override;

private:
    void onArrived(int row);
    void showSample(int row);
    void showFish();
    void showNone();
    void setUsable(bool usable);
    void onAdd();
    void onDelete();
    [[nodiscard]] int species() const;
    [[nodiscard]] Sql sample() const;

    RecordNavigator* m_navigator;
    QPushButton* m_delete;
    ValueLabel* m_weight;
    Grid* m_fish;
    FishFields* m_fields;
    QPushButton* m_add;
    ResultSet m_samples;
};

}  // namespace kelvora
