#include "reference/vessel_import_panel.h"

#include "controls/dialogs.h"
#include "data/names.h"
#include "records/vessel_import.h"
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
    questions.ask = [this, noMore = false](const QString& proposed) mutable {
        if (noMore) {
            return QString();
        }
        const Dialogs::Answer answer =
            dialogs().inputOrNoMore(u"New Fishing Gear"_s, u"You have to insert new fishing gear"_s, proposed);
        noMore = answer.noMore;
        return answer.text.value_or(QString());
    };
    questions.confirm = [this](const QString& name) {
        return dialogs().confirm(u"Are you sure to insert '%1'? "_s.arg(name));
    };
    questions.add = [this](const QString& name) { m_tab.AddGearCounted(name); };
    settleGears(records, questions);
    for (CsvRecord& record : records) {
        // A name of blanks is none.
        if (record.fields.first().trimmed().isEmpty()) {
            record.fields.first().clear();
        }
    }
}

void VesselImportPanel::beginStoring() {
    m_names.clear();
    const ResultSet stored = connection().query(Sql("select vesselname from vessel"));
    for (int row = 0; row < stored.rowCount(); ++row) {
        m_names.insert(stored.text(row, u"vesselname"));
    }
}

QStringList VesselImportPanel::asStored(QStringList fields) const {
    const auto name = m_names.find(fields.first());
    if (name != m_names.end() && !finds(vesselsKnownAs(fields))) {
        fields.first() = *name;
    }
    return fields;
}

void VesselImportPanel::store(const CsvRecord& record, ImportOutcome& outcome) {
    const QStringList& fields = record.fields;
    const QStringList unusable = unusableNumbers(fields);
    const ResultSet gears = gearsNamed(fields[kGearColumn]);
    const int gear = gears.isEmpty() ? 0 : gears.integer(0, u"gearid").value_or(0);
    const QStringList sought = asStored(fields);
    if (finds(vesselsKnownAs(sought))) {
        if (unusable.isEmpty() && finds(vesselsLike(sought, gear))) {
            ++outcome.repeated;
        } else {
            outcome.others.push_back(record);
        }
    } else if (!unusable.isEmpty()) {
        outcome.refused.push_back({record, unusable});
    } else {
        m_tab.addvessel2(vesselInsert(fields, gear));
        m_names.insert(fields.first());
        ++outcome.stored;
    }
}

void VesselImportPanel::refreshStored() {
    m_tab.RefreshVesselGrid();
}

}  // namespace kelvora
