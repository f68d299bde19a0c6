#pragma once

#include "reference/import_preview.h"

#include <set>

namespace kelvora {

class VesselTab;

/// The import of a vessel file into the register.
class VesselImportPanel : public ImportPreview {
    Q_OBJECT

public:
    VesselImportPanel(VesselTab& tab, Connection& connection, Dialogs& dialogs);

protected:
    void complete(std::vector<CsvRecord>& records) override;
    void beginStoring() override;
    void store(const CsvRecord& record, ImportOutcome& outcome) override;
    void refreshStored() override;

private:
    [[nodiscard]] ResultSet gearsNamed(const QString& name) const;

    /// A vessel as the data file has its name: it compares A to Z only.
    [[nodiscard]] QStringList asStored(QStringList fields) const;

    struct ByName {
        bool operator()(QStringView left, QStringView right) const {
            return left.compare(right, Qt::CaseInsensitive) < 0;
        }
    };

    VesselTab& m_tab;
    std::set<QString, ByName> m_names;  ///< of the stored vessels: a register of thousands is not read for each one
};

}  // namespace kelvora
