#include "reference/vessel_import_panel.h"

#include "controls/dialogs.h"
#include "data/names.h"
#include "reference/vessel_import.h"
#include "reference/vessel_tab.h"

using namespace Qt::StringLiterals;

namespace kelvora {

VesselImportPanel::VesselImportPanel(VesselTab& tab, Connection& connection, Dialogs& dialogs)
    : ImportPreview(vesselLayout(),
                    {u"Vessel import"_s, u"Vessel file"_s, u"Vessel import"_s, u"Save"_s, u"Delete"_s, u"Clear"_s},
                    connection, dialogs),
      m_tab(tab) {
    leaveFrame();
}

ResultSet VesselImportPanel::gearsNamed(const QString& name) const {
    return rowsNamed(connection(), Sql("select * from Fishing_gear where "), {{"guname", name}});
}

void VesselImportPanel::complete(std::vector<CsvRecord>& records) {
    GearQuestions questions;
    questions.stored = [this](const QString& name) {
        const ResultSet found = gearsNamed(name);
        return found.isEmpty() ? std::nullopt : std::optional(found.text(0, u"guname"));
    };
    questions.ask = [this](const QString& proposed) {
        return dialogs()
            .input(u"New Fishing Gear"_s, u"You have to insert new fishing gear"_s, proposed)
            .value_or(QString());
    };
    questions.confirm = [this](const QString& name) {
        return dialogs().confirm(u"Are you sure to insert '%1'? "_s.arg(name));
    };
    questions.add = [this](const QString& name) { m_tab.AddGearCounted(name); };
    settleGears(records, questions);
}

void VesselImportPanel::store(const CsvRecord& record, ImportOutcome& outcome) {
    const QStringList& fields = record.fields;
    if (finds(Sql("select * from vessel where vesselname = ") << fields.first())) {
        ++outcome.known;
        return;
    }
    const QStringList unusable = unusableNumbers(fields);
    if (!unusable.isEmpty()) {
        outcome.refused.push_back({record, unusable});
        return;
    }
    const ResultSet gears = gearsNamed(fields[kGearColumn]);
    m_tab.addvessel2(vesselInsert(fields, gears.isEmpty() ? 0 : gears.integer(0, u"gearid").value_or(0)));
    ++outcome.stored;
}

void VesselImportPanel::refreshStored() {
    m_tab.RefreshVesselGrid();
}

}  // namespace kelvora
