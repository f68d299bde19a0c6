#pragma once

#include "records/gonad_store.h"
#include "sampling/entry_panel.h"

#include <optional>

class QPushButton;

namespace kelvora {

class CsvReader;
class FishFields;
class MeasuredFishGrid;

/// The entry of one gonad sample: fish are typed or imported into a grid, and stored together.
class GonadEntryPanel : public EntryPanel {
    Q_OBJECT

public:
    GonadEntryPanel(const FinderPanel& finder, Connection& connection, Dialogs& dialogs);

    void reset() override;
    void refresh() override;

private:
    QWidget* createSampleLine();
    QWidget* createFishForm();
    QWidget* createGridSide();
    void connectHandlers();

    void onStart();
    void onNext();
    void onImport();
    void onSave();
    void clear();
    void endSample();

    [[nodiscard]] bool hasSpecies();
    void importFile(const QString& path);
    void importFish(CsvReader& csv);
    [[nodiscard]] std::optional<GonadSample> sampleToStore();
    void showWeight();

    QLineEdit* m_weight;
    QPushButton* m_start;
    QPushButton* m_import;
    FishFields* m_fields;
    QPushButton* m_next;
    MeasuredFishGrid* m_grid;
    QPushButton* m_save;
    QPushButton* m_clear;

    std::optional<StoredOperation> m_operation;  ///< the operation whose species are offered
    StoredPart m_stored;                         ///< of the sample on the screen, after a save that was interrupted
};

}  // namespace kelvora
