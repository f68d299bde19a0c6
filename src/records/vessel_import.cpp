#include "records/vessel_import.h"

#include "data/numbers.h"
#include "data/transaction.h"
#include "records/gears.h"

#include <map>
#include <set>

using namespace Qt::StringLiterals;

namespace kelvora {
namespace {

/// The gear for a name that is not stored yet.
QString newGear(Connection& connection, const QString& name, const GearQuestions& questions) {
    QString answer = questions.ask(name);
    if (answer.trimmed().isEmpty()) {
        return {};
    }
    const ResultSet stored = gearsNamed(connection, answer);
    if (!stored.isEmpty()) {
        return stored.text(0, u"guname");
    }
    if (!questions.confirm(answer)) {
        return {};
    }
    AddGearCounted(connection, answer);
    questions.added();
    return answer;
}

struct ByVesselName {
    bool operator()(QStringView left, QStringView right) const { return left.compare(right, Qt::CaseInsensitive) < 0; }
};

/// The names of the stored vessels as persons read them: the data file compares A to Z only.
using VesselNames = std::set<QString, ByVesselName>;

VesselNames storedVesselNames(Connection& connection) {
    VesselNames names;
    const ResultSet stored = connection.query(Sql("select vesselname from vessel"));
    for (const std::vector<QVariant>& row : stored.rows) {
        names.insert(displayText(row.front()));
    }
    return names;
}

}  // namespace

const ImportLayout& vesselLayout() {
    static const ImportLayout layout = [] {
        ImportLayout all{{}, {4, 3, 1, 1, 1, 1}};
        for (const VesselField& field : vesselFields()) {
            all.columns.push_back({field.header, field.previewCaption, field.previewWidth});
        }
        return all;
    }();
    return layout;
}

QStringList unusableNumbers(const Vessel& vessel) {
    QStringList captions;
    for (const VesselField& field : vesselFields()) {
        if (field.isNumber && !isNumeric(vessel.*field.text)) {
            captions.append(field.previewCaption);
        }
    }
    return captions;
}

void settleGears(Connection& connection, std::vector<CsvRecord>& vessels, const GearQuestions& questions) {
    const auto before = [](const QString& left, const QString& right) { return compareText(left, right) < 0; };
    // Thousands of vessels share a few gears: what was found or answered for a name holds for the whole file.
    struct Settled {
        bool stored;  // the vessel keeps the name as its file writes it
        QString answer = {};
    };
    std::map<QString, Settled, decltype(before)> settled(before);
    for (CsvRecord& vessel : vessels) {
        QString& gear = vessel.fields[kGearColumn];
        const auto known = settled.find(gear);
        if (known != settled.end()) {
            gear = known->second.stored ? gear : known->second.answer;
            continue;
        }
        const QString name = gear;
        const bool stored = !gearsNamed(connection, name).isEmpty();
        if (!stored) {
            gear = newGear(connection, name, questions);
        }
        settled.emplace(name, Settled{stored || compareText(name, gear) == 0, gear});
    }
}

ImportOutcome storeVessels(Connection& connection, const std::vector<CsvRecord>& vessels,
                           const std::function<void()>& count) {
    ImportOutcome outcome;
    Transaction transaction(connection);
    // Both are read once: thousands of vessels share a few gears, and few of them are stored already.
    VesselNames names = storedVesselNames(connection);
    std::map<QString, int> gears;
    for (const CsvRecord& record : vessels) {
        Vessel vessel = vesselOf(record.fields);
        const auto [gear, isNew] = gears.try_emplace(vessel.gearName, 0);
        if (isNew) {
            const ResultSet found = gearsNamed(connection, vessel.gearName);
            gear->second = found.isEmpty() ? 0 : found.integer(0, u"gearid").value_or(0);
        }
        vessel.gear = gear->second;
        const QStringList unusable = unusableNumbers(vessel);
        const auto name = names.find(vessel.name);
        if (vessel.name.isEmpty() ? isVesselKnown(connection, vessel) : name != names.end()) {
            if (!isVesselKnown(connection, vessel)) {
                vessel.name = *name;
            }
            if (unusable.isEmpty() && isVesselRepeated(connection, vessel)) {
                ++outcome.repeated;
            } else {
                outcome.others.push_back(record);
            }
        } else if (!unusable.isEmpty()) {
            outcome.refused.push_back({record, unusable});
        } else {
            addvessel2(connection, vessel);
            names.insert(vessel.name);
            ++outcome.stored;
        }
        count();
    }
    transaction.commit();
    return outcome;
}

}  // namespace kelvora
