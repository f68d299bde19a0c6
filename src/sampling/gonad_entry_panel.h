#pragma once

#include "controls/screen.h"
#include "records/gonad_store.h"

#include <QWidget>

#include <optional>

class QLabel;
class QLineEdit;
class QPushButton;

namespace kelvora {

class BoundList;
class CsvReader;
class FinderPanel;
class FishFields;
class MeasuredFishGrid;

/// The entry of one gonad sample: fish are typed or imported into a grid, and stored together. What is typed lives here
/// alone until SAVE.
class GonadEntryPanel : public QWidget {
    Q_OBJECT

public:
    /// The finder says which operation is current; it and the connection are the screen's and outlive the panel.
    GonadEntryPanel(const FinderPanel& finder, Connection& connection, const Context& context);

    /// No operation is current any more: what was measured of its catch is given up.
    void reset();
    /// An operation is current: offers the species of its composition.
    void refresh();
    /// Fills the list of species again, which another screen may have changed.
    void refillLists();

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
    void store(const GonadSample& sample);
    void showWeight();

    const FinderPanel& m_finder;
    Connection& m_connection;
    Dialogs& m_dialogs;

    BoundList* m_species;
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
