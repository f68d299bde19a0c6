#include "records/operation.h"

#include "data/numbers.h"

#include <algorithm>
#include <array>
#include <vector>

namespace kelvora {
namespace {

constexpr OperationField::Captions everywhere(QStringView caption) {
    return {caption, caption, caption};
}

/// One thing that must hold, and what the sampler is told if it does not.
struct OperationCheck {
    QString OperationEntry::*member;
    bool (*holds)(QStringView text);
    QStringView message;
    QStringView title;
    Reaction reaction;
};

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

bool isCatch(QStringView text) {
    return toNumber(text).value_or(0) > 0;
}

/// All checks in the order in which they are made.
std::vector<OperationCheck> operationChecks() {
    using Entry = OperationEntry;
    using enum Reaction;
    constexpr QStringView error = u"ERROR";
    constexpr QStringView plain;
    std::vector<OperationCheck> checks = {
        {&Entry::state, isFilled, u"please select state  first!", error, Focus},
        {&Entry::port, isFilled, u"please select sammpling port!", error, Focus},
        {&Entry::area, isFilled, u"please select fishing area", error, Focus},
        {&Entry::registerId, isFilled, u"please select vessel", error, Focus},
        {&Entry::latitudeDec, isNumeric, u"Please input latitude in number", plain, Nothing},
        {&Entry::latitudeMin, isNumeric, u"Please input latitude in number", plain, Nothing},
        {&Entry::latitudeDec, isLatitude, u"Dec of Latitude between 0-25", error, EmptyAndFocus},
        {&Entry::latitudeMin, isMinutes, u"Min of Latitude between 0-60", error, EmptyAndFocus},
        {&Entry::longitudeDec, isLongitude, u"Dec of Longtitude between 92-125", error, EmptyAndFocus},
        {&Entry::longitudeMin, isMinutes, u"Min of Longtitude between 0-60", error, EmptyAndFocus},
        {&Entry::longitudeDec, isNumeric, u"Please input longtitude in number", plain, Nothing},
        {&Entry::longitudeMin, isNumeric, u"Please input longtitude in number", plain, Nothing},
    };
    for (const OperationField& field : operationFields()) {
        if (!field.notNumeric.isEmpty()) {
            checks.push_back({field.member, isNumeric, field.notNumeric, plain, SetToZero});
        }
    }
    checks.push_back(
        {&Entry::totalCatch, isCatch, u"Please input Estimate Total Catch(kg/trip)", plain, EmptyAndFocus});
    checks.push_back({&Entry::method, isFilled, u"Please select fushing method", plain, Focus});
    return checks;
}

}  // namespace

std::span<const OperationField> operationFields() {
    using Entry = OperationEntry;
    using enum OperationField::Column;
    using enum OperationField::FinderColumn;
    constexpr bool number = true;
    // clang-format off
    static constexpr auto fields = std::to_array<OperationField>({
        {{u"No.", u"No.", u""}, Catch, None, u"optid"},
        {{u"Landing State/Province", u"State/Province", u"Landing State/Province"}, Landing, Location, u"statename",
         "", &Entry::state},
        {{u"Landing Port", u"Sampling Port", u"Sampling Port"}, Landing, Location, u"samplingname", "", &Entry::port},
        {{u"Sampling Date", u"Date", u"Date"}, Landing, Left, u"optdate"},
        {{u"Vessel Name", u"Vessel Name", u"Vessel"}, Catch, Left, u"vesselname", "vesselid", &Entry::vesselName},
        {{u"Vessel Register id", u"Vessel Register id", u""}, Catch, None, u"vid", "", &Entry::registerId},
        {everywhere(u"Fishing Gear"), Catch, Left, u"guname"},
        {everywhere(u"Fishing Method"), Catch, Left, u"methodname", "fishing_method", &Entry::method, number},
        {{u"Fishing Area", u"Fishing Area", u"Fishing area"}, Catch, Left, u"aname", "areaid", &Entry::area},
        {{u"Latitude", u"Fishing Ground Latitude", u"Latitude"}, Landing, Left, u"lat_dec",
         "lat_dec", &Entry::latitudeDec, number, {}, u"Dec", u"", u"lat_min"},
        {everywhere(u"Latitude"), Landing, None, u"lat_min", "lat_min", &Entry::latitudeMin, number, {}, u"Min", u"N"},
        {{u"Longtitude", u"Fishing Ground Longtitude", u"Longtitude"}, Landing, Left, u"lon_dec",
         "lon_dec", &Entry::longitudeDec, number, {}, u"Dec", u"", u"lon_min"},
        {everywhere(u"Longtitude"), Landing, None, u"lon_min", "lon_min", &Entry::longitudeMin, number, {},
         u"Min", u"E"},
        {everywhere(u"Fishing time"), Landing, Right, u"fishingtime", "fishingtime", &Entry::fishingTime},
        {everywhere(u"Bottom Depth(Meter)"), Trip, Right, u"bdepth", "bdepth", &Entry::bottomDepth, number,
         u"Please input bottom depth (Meter) in number"},
        {everywhere(u"Fishing Depth(Meter)"), Trip, Right, u"fdepth", "fdepth", &Entry::fishingDepth, number,
         u"Please input depth of water (Meter) in number"},
        {{u"No of haul per Trip(haul)", u"No of haul per Trip(haul)", u"No of haul/Trip"}, Trip, Right, u"nohaul",
         "nohaul", &Entry::hauls, number, u"Please input number of haul/trip  in number"},
        {everywhere(u"Duration of Trip(days)"), Trip, Right, u"dulation", "dulation", &Entry::duration, number,
         u"Please input dulation of trip  in number"},
        {{u"Total Catch (kg/trip)", u"Estimate Total Catch(kg/trip)", u"Estimate Total Catch(kg)"}, Trip, Right,
         u"estotal", "estotal", &Entry::totalCatch, number},
        {everywhere(u"Recorder"), Trip, Left, u"interviewer", "interviewer", &Entry::recorder},
        {everywhere(u"Note"), Note, None, u"note", "note", &Entry::note},
    });
    // clang-format on
    return fields;
}

std::optional<OperationRefusal> refusalOf(const OperationEntry& entry) {
    const auto checks = operationChecks();
    const auto failed =
        std::ranges::find_if_not(checks, [&](const OperationCheck& check) { return check.holds(entry.*check.member); });
    if (failed == checks.end()) {
        return std::nullopt;
    }
    const auto fields = operationFields();
    const auto place = std::ranges::find(fields, failed->member, &OperationField::member) - fields.begin();
    return OperationRefusal{{failed->title.toString(), failed->message.toString(), static_cast<int>(place)},
                            failed->reaction};
}

bool isBlank(QStringView text) {
    return text.trimmed().isEmpty();
}

}  // namespace kelvora
