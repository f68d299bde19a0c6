#include "records/operation.h"

#include "data/numbers.h"

#include <algorithm>
#include <array>
#include <vector>

namespace kelvora {
namespace {

using Entry = OperationEntry;
using Field = OperationField;
using enum OperationField::Column;
using enum OperationField::FinderColumn;

constexpr bool kNumber = true;

constexpr Field::Captions everywhere(QStringView caption) {
    return {caption, caption, caption};
}

// clang-format off
constexpr auto kFields = std::to_array<OperationField>({
    {{u"No.", u"No.", u""}, Catch, None, u"optid"},
    {{u"Landing State/Province", u"State/Province", u"Landing State/Province"}, Landing, Location, u"statename",
     "", &Entry::state},
    {{u"Landing Port", u"Sampling Port", u"Sampling Port"}, Landing, Location, u"samplingname", "", &Entry::port},
    {{u"Sampling Date", u"Date", u"Date"}, Landing, Left, u"optdate"},
    {{u"Vessel Name", u"Vessel Name", u"Vessel"}, Catch, Left, u"vesselname", "vesselid", &Entry::vesselName},
    {{u"Vessel Register id", u"Vessel Register id", u""}, Catch, None, u"vid", "", &Entry::registerId},
    {everywhere(u"Fishing Gear"), Catch, Left, u"guname"},
    {everywhere(u"Fishing Method"), Catch, Left, u"methodname", "fishing_method", &Entry::method, kNumber},
    {{u"Fishing Area", u"Fishing Area", u"Fishing area"}, Catch, Left, u"aname", "areaid", &Entry::area},
    {{u"Latitude", u"Fishing Ground Latitude", u"Latitude"}, Landing, Left, u"lat_dec",
     "lat_dec", &Entry::latitudeDec, kNumber, {}, u"Dec", u"", u"lat_min"},
    {everywhere(u"Latitude"), Landing, None, u"lat_min", "lat_min", &Entry::latitudeMin, kNumber, {}, u"Min", u"N"},
    {{u"Longtitude", u"Fishing Ground Longtitude", u"Longtitude"}, Landing, Left, u"lon_dec",
     "lon_dec", &Entry::longitudeDec, kNumber, {}, u"Dec", u"", u"lon_min"},
    {everywhere(u"Longtitude"), Landing, None, u"lon_min", "lon_min", &Entry::longitudeMin, kNumber, {}, u"Min", u"E"},
    {everywhere(u"Fishing time"), Landing, Right, u"fishingtime", "fishingtime", &Entry::fishingTime},
    {everywhere(u"Bottom Depth(Meter)"), Trip, Right, u"bdepth", "bdepth", &Entry::bottomDepth, kNumber,
     u"Please input bottom depth (Meter) in number"},
    {everywhere(u"Fishing Depth(Meter)"), Trip, Right, u"fdepth", "fdepth", &Entry::fishingDepth, kNumber,
     u"Please input depth of water (Meter) in number"},
    {{u"No of haul per Trip(haul)", u"No of haul per Trip(haul)", u"No of haul/Trip"}, Trip, Right, u"nohaul",
     "nohaul", &Entry::hauls, kNumber, u"Please input number of haul/trip  in number"},
    {everywhere(u"Duration of Trip(days)"), Trip, Right, u"dulation", "dulation", &Entry::duration, kNumber,
     u"Please input dulation of trip  in number"},
    {{u"Total Catch (kg/trip)", u"Estimate Total Catch(kg/trip)", u"Estimate Total Catch(kg)"}, Trip, Right, u"estotal",
     "estotal", &Entry::totalCatch, kNumber},
    {everywhere(u"Recorder"), Trip, Left, u"interviewer", "interviewer", &Entry::recorder},
    {everywhere(u"Note"), Note, None, u"note", "note", &Entry::note},
});
// clang-format on

/// One thing that must hold, and what the sampler is told if it does not.
struct OperationCheck {
    QString Entry::*member;
    bool (*holds)(QStringView text);
    QStringView message;
    QStringView title;
    Reaction reaction;
};

constexpr QStringView kError = u"ERROR";
constexpr QStringView kPlain;
using enum Reaction;

bool isFilled(QStringView text) {
    return !isBlank(text);
}

bool isLatitude(QStringView text) {
    return leadingNumber(text) >= 0 && leadingNumber(text) <= 25;
}

bool isMinutes(QStringView text) {
    return leadingNumber(text) >= 0 && leadingNumber(text) <= 60;
}

/// A longitude of exactly 0 stands for "not recorded".
bool isLongitude(QStringView text) {
    const double degrees = leadingNumber(text);
    return degrees == 0 || (degrees >= 92 && degrees <= 125);
}

bool isAboveZero(QStringView text) {
    return toNumber(text).value_or(0) > 0;
}

constexpr auto kChecksBefore = std::to_array<OperationCheck>({
    {&Entry::state, isFilled, u"please select state  first!", kError, Focus},
    {&Entry::port, isFilled, u"please select sammpling port!", kError, Focus},
    {&Entry::area, isFilled, u"please select fishing area", kError, Focus},
    {&Entry::registerId, isFilled, u"please select vessel", kError, Focus},
    {&Entry::latitudeDec, isNumeric, u"Please input latitude in number", kPlain, Nothing},
    {&Entry::latitudeMin, isNumeric, u"Please input latitude in number", kPlain, Nothing},
    {&Entry::latitudeDec, isLatitude, u"Dec of Latitude between 0-25", kError, EmptyAndFocus},
    {&Entry::latitudeMin, isMinutes, u"Min of Latitude between 0-60", kError, EmptyAndFocus},
    {&Entry::longitudeDec, isLongitude, u"Dec of Longtitude between 92-125", kError, EmptyAndFocus},
    {&Entry::longitudeMin, isMinutes, u"Min of Longtitude between 0-60", kError, EmptyAndFocus},
    {&Entry::longitudeDec, isNumeric, u"Please input longtitude in number", kPlain, Nothing},
    {&Entry::longitudeMin, isNumeric, u"Please input longtitude in number", kPlain, Nothing},
});

constexpr auto kChecksBehind = std::to_array<OperationCheck>({
    {&Entry::totalCatch, isAboveZero, u"Please input Estimate Total Catch(kg/trip)", kPlain, EmptyAndFocus},
    {&Entry::method, isFilled, u"Please select fushing method", kPlain, Focus},
});

/// All checks in the order in which they are made: those of the numbers that are free stand in the table of the fields.
std::vector<OperationCheck> operationChecks() {
    std::vector<OperationCheck> checks(kChecksBefore.begin(), kChecksBefore.end());
    for (const Field& field : kFields) {
        if (!field.notNumeric.isEmpty()) {
            checks.push_back({field.member, isNumeric, field.notNumeric, kPlain, SetToZero});
        }
    }
    checks.insert(checks.end(), kChecksBehind.begin(), kChecksBehind.end());
    return checks;
}

}  // namespace

std::span<const OperationField> operationFields() {
    return kFields;
}

std::optional<OperationRefusal> refusalOf(const OperationEntry& entry) {
    for (const OperationCheck& check : operationChecks()) {
        if (!check.holds(entry.*check.member)) {
            const auto* field = std::ranges::find(kFields, check.member, &Field::member);
            return OperationRefusal{
                {check.title.toString(), check.message.toString(), static_cast<int>(field - kFields.begin())},
                check.reaction};
        }
    }
    return std::nullopt;
}

bool isBlank(QStringView text) {
    return text.trimmed().isEmpty();
}

}  // namespace kelvora
