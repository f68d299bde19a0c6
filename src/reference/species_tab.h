#pragma once

#include "reference/reference_panel.h"

class QLineEdit;

namespace kelvora {

class ImportPreview;
class RecordGrid;

/// The "Target Species" tab: the species catalogue.
class SpeciesTab : public ReferencePanel {
    Q_OBJECT

public:
    /// Throws DataError if the catalogue cannot be read.
    SpeciesTab(Connection& connection, Dialogs& dialogs);

private:
    [[nodiscard]] ImportPreview* newImport();
    void add();
    [[nodiscard]] bool remove(int species);

    QLineEdit* m_family;
    QLineEdit* m_genus;
    QLineEdit* m_species;
    QLineEdit* m_commonName;
    RecordGrid* m_catalogue;
};

}  // namespace kelvora
