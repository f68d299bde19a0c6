#pragma once

#include "search/sample_tab.h"

namespace kelvora {

class FishFields;
class Grid;
class ValueLabel;

/// The gonad samples of an operation, species by species: their measured fish, and the fields of a further one.
class GonadTab : public SpeciesSampleTab {
    Q_OBJECT

public:
    /// Reads the maturity stages; throws DataError.
    GonadTab(Connection& connection, Dialogs& dialogs);

protected:
    void showSample(const QString& weight) override;
    void showNone() override;
    void setUsable(bool usable) override;

private:
    void showFish();
    void onAdd();

    ValueLabel* m_weight;
    Grid* m_fish;
    FishFields* m_fields;
    QPushButton* m_add;
};

}  // namespace kelvora
