#pragma once

#include "data/csv_reader.h"
#include "records/vessels.h"
#include "reference/reference_panel.h"

class QGridLayout;
class QLineEdit;

namespace kelvora {

class BoundList;
class FixedList;
class ImportPreview;
class RecordGrid;

/// The "Fishing Vessel" tab: the vessel register.
class VesselTab : public ReferencePanel {
    Q_OBJECT

public:
    /// Throws DataError if a list cannot be read.
    VesselTab(Connection& connection, Dialogs& dialogs);

    void RefreshVesselGearList();

Q_SIGNALS:
    /// A gear was added: other lists of gears lack it.
    void gearAdded();

private:
    struct TextField {
        QString Vessel::*text;
        QLineEdit* field;
        bool isNumber;
    };

    void fillForm(QGridLayout* form);
    [[nodiscard]] ImportPreview* newImport();
    void complete(std::vector<CsvRecord>& records);
    void add();
    [[nodiscard]] bool isRefused(const Vessel& vessel);
    [[nodiscard]] Vessel entry() const;
    void ClearVesselFields();
    [[nodiscard]] bool remove(const QString& name, const QString& registerId);

    std::vector<TextField> m_texts;  ///< in the order of the form
    BoundList* m_gear;
    FixedList* m_engineType;
    RecordGrid* m_register;
};

}  // namespace kelvora
