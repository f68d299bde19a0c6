#pragma once

#include "reference/import_preview.h"

namespace kelvora {

class SpeciesTab;

/// The import of a species file into the catalogue.
class SpeciesImportPanel : public ImportPreview {
    Q_OBJECT

public:
    SpeciesImportPanel(SpeciesTab& tab, Connection& connection, Dialogs& dialogs);

protected:
    void store(const CsvRecord& record, ImportOutcome& outcome) override;
    void refreshStored() override;
    [[nodiscard]] bool mayRemove(const CsvRecord& record) const override;
    void loaded() override;

private:
    SpeciesTab& m_tab;
};

}  // namespace kelvora
