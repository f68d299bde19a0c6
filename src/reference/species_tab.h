#pragma once

#include "reference/reference_panel.h"

class QLineEdit;

namespace kelvora {

class RecordGrid;

/// The "Target Species" tab: the species catalogue.
class SpeciesTab : public ReferencePanel {
    Q_OBJECT

public:
    SpeciesTab(Connection& connection, Dialogs& dialogs);

    void RefreshSpeciesGrid();

    /// Stores a species under the next number, unless the same one (family, genus and species) is stored already.
    /// Returns whether it was stored.
    bool AddSpecies(const QString& species, const QString& genus, const QString& family, const QString& commonName);

private:
    void add();
    void deleteSpecies();
    [[nodiscard]] bool isStored(const QString& family, const QString& genus, const QString& species) const;

    QLineEdit* m_family;
    QLineEdit* m_genus;
    QLineEdit* m_species;
    QLineEdit* m_commonName;
    RecordGrid* m_catalogue;
    int m_selectedSpecies = 0;  ///< 0 if there is none
};

}  // namespace kelvora
