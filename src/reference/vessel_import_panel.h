#pragma once

#include "reference/import_preview.h"

namespace kelvora {

class VesselTab;

/// The import of a vessel file into the register.
class VesselImportPanel : public ImportPreview {
    Q_OBJECT

public:
    VesselImportPanel(VesselTab& tab, Connection& connection, Dialogs& dialogs);

protected:
    void complete(std::vector<CsvRecord>& records) override;
    void store(const CsvRecord& record, ImportOutcome& outcome) override;
    void refreshStored() override;

private:
    [[nodiscard]] ResultSet gearsNamed(const QString& name) const;

    VesselTab& m_tab;
};

}  // namespace kelvora
