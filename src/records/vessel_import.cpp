#include "records/vessel_import.h"

#include "data/numbers.h"
#include "data/result_set.h"

#include <map>

using namespace Qt::StringLiterals;

namespace kelvora {
namespace {

enum Column { Name, RegisterId, EngineType, Power, Length, State, Size, Gear, NetLength, NetWidth, MeshSize };
static_assert(Gear == kGearColumn);

auto numberOf(const QStringList& fields) {
    return [&fields](Column column) { return toNumber(fields[column]).value_or(0); };
}

/// The gear for a name that is not stored yet.
QString newGear(const QString& name, const GearQuestions& questions) {
    QString answer = questions.ask(name);
    if (answer.trimmed().isEmpty()) {
        return {};
    }
    if (const auto stored = questions.stored(answer)) {
        return *stored;
    }
    if (!questions.confirm(answer)) {
        return {};
    }
    questions.add(answer);
    return answer;
}

}  // namespace

const ImportLayout& vesselLayout() {
    static const ImportLayout layout = {{{u"vessel name"_s, u"Vessel name"_s, 133},
                                         {u"vessel register id"_s, u"Vessel id"_s, 100},
                                         {u"engine type"_s, u"Engine type"_s, 73},
                                         {u"engine power"_s, u"Engine power"_s, 86},
                                         {u"length(m)"_s, u"Vessel length"_s, 86},
                                         {u"state/province"_s, u"State/Province"_s, 86},
                                         {u"size(GRT)"_s, u"Size(GRT)"_s, 66},
                                         {u"type of gear"_s, u"Type of gear"_s, 86},
                                         {u"net length(m)"_s, u"Net length"_s, 66},
                                         {u"net width(m)"_s, u"Net width"_s, 66},
                                         {u"mesh size(cm)"_s, u"Mesh size"_s, 66}},
                                        {4, 3, 1, 1, 1, 1}};
    return layout;
}

QStringList unusableNumbers(const QStringList& fields) {
    QStringList captions;
    for (const int column : {Power, Length, Size}) {
        if (!isNumeric(fields[column])) {
            captions.append(vesselLayout().columns[static_cast<std::size_t>(column)].caption);
        }
    }
    return captions;
}

Sql vesselsKnownAs(const QStringList& fields) {
    Sql named = Sql("select * from vessel where vesselname = ") << fields[Name];
    return fields[Name].isEmpty() ? std::move(named) << " and vesselid = " << fields[RegisterId] : std::move(named);
}

Sql vesselsLike(const QStringList& fields, int gear) {
    const auto number = numberOf(fields);
    return Sql("select * from vessel where vesselname = ")
           << fields[Name] << " and vesselid = " << fields[RegisterId] << " and flagstate = " << fields[State]
           << " and enginetype = " << fields[EngineType] << " and enginepower = " << number(Power)
           << " and vesselsize = " << number(Size) << " and vessellength = " << number(Length) << " and gear = " << gear
           << " and meshsize = " << fields[MeshSize] << " and netlength = " << fields[NetLength]
           << " and netwidth = " << fields[NetWidth];
}

Sql vesselInsert(const QStringList& fields, int gear) {
    const auto number = numberOf(fields);
    return Sql("insert into vessel values(")
           << fields[Name] << "," << fields[RegisterId] << "," << fields[State] << "," << fields[EngineType] << ","
           << number(Power) << "," << number(Size) << "," << number(Length) << "," << gear << "," << fields[MeshSize]
           << "," << fields[NetLength] << "," << fields[NetWidth] << ")";
}

void settleGears(std::vector<CsvRecord>& vessels, const GearQuestions& questions) {
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
        const bool stored = questions.stored(name).has_value();
        if (!stored) {
            gear = newGear(name, questions);
        }
        settled.emplace(name, Settled{stored || compareText(name, gear) == 0, gear});
    }
}

}  // namespace kelvora
