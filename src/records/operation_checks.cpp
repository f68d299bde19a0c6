#include "records/operation_checks.h"

#include "data/numbers.h"

#include <algorithm>
#include <array>

namespace kelvora {
namespace {

using Entry = OperationEntry;
using Field = OperationField;

constexpr QStringView kError = u"ERROR";
constexpr QStringView kPlain;

/// Whether the number at the start of a text lies between two limits, both included.
bool within(const QString& text, double lowest, double highest) {
    const double value = leadingNumber(text);
    return value >= lowest && value <= highest;
}

/// A longitude of exactly 0 stands for "not recorded" and is in no range.
bool isZero(const QString& text) {
    return leadingNumber(text) == 0;
}

constexpr std::array kChecks = {
    OperationCheck{[](const Entry& e) { return !isBlank(e.state); }, u"please select state  first!", kError,
                   Field::State, Reaction::Focus},
    OperationCheck{[](const Entry& e) { return !isBlank(e.port); }, u"please select sammpling port!", kError,
                   Field::Port, Reaction::Focus},
    OperationCheck{[](const Entry& e) { return !isBlank(e.area) && !e.chosenArea.isEmpty(); },
                   u"please select fishing area", kError, Field::Area, Reaction::Focus},
    OperationCheck{[](const Entry& e) { return !isBlank(e.registerId); }, u"please select vessel", kError,
                   Field::RegisterId, Reaction::Focus},
    OperationCheck{[](const Entry& e) { return isNumeric(e.latitudeDec) && isNumeric(e.latitudeMin); },
                   u"Please input latitude in number", kPlain, Field::LatitudeDec, Reaction::Nothing},
    OperationCheck{[](const Entry& e) { return within(e.latitudeDec, 0, 25); }, u"Dec of Latitude between 0-25", kError,
                   Field::LatitudeDec, Reaction::EmptyAndFocus},
    OperationCheck{[](const Entry& e) { return within(e.latitudeMin, 0, 60); }, u"Min of Latitude between 0-60", kError,
                   Field::LatitudeMin, Reaction::EmptyAndFocus},
    OperationCheck{[](const Entry& e) { return isZero(e.longitudeDec) || leadingNumber(e.longitudeDec) >= 92; },
                   u"Dec of Longtitude between 92-125", kError, Field::LongitudeDec, Reaction::EmptyAndFocus},
    OperationCheck{[](const Entry& e) { return isZero(e.longitudeDec) || leadingNumber(e.longitudeDec) <= 125; },
                   u"Dec of Longtitude between 92-125", kError, Field::LongitudeDec, Reaction::EmptyAndFocus},
    OperationCheck{[](const Entry& e) { return within(e.longitudeMin, 0, 60); }, u"Min of Longtitude between 0-60",
                   kError, Field::LongitudeMin, Reaction::EmptyAndFocus},
    OperationCheck{[](const Entry& e) { return isNumeric(e.longitudeDec) && isNumeric(e.longitudeMin); },
                   u"Please input longtitude in number", kPlain, Field::LongitudeDec, Reaction::Nothing},
    OperationCheck{[](const Entry& e) { return isNumeric(e.bottomDepth); },
                   u"Please input bottom depth (Meter) in number", kPlain, Field::BottomDepth, Reaction::SetToZero},
    OperationCheck{[](const Entry& e) { return isNumeric(e.fishingDepth); },
                   u"Please input depth of water (Meter) in number", kPlain, Field::FishingDepth, Reaction::SetToZero},
    OperationCheck{[](const Entry& e) { return isNumeric(e.hauls); }, u"Please input number of haul/trip  in number",
                   kPlain, Field::Hauls, Reaction::SetToZero},
    OperationCheck{[](const Entry& e) { return isNumeric(e.duration); }, u"Please input dulation of trip  in number",
                   kPlain, Field::Duration, Reaction::SetToZero},
    OperationCheck{[](const Entry& e) { return toNumber(e.totalCatch).value_or(0) > 0; },
                   u"Please input Estimate Total Catch(kg/trip)", kPlain, Field::TotalCatch, Reaction::EmptyAndFocus},
    OperationCheck{[](const Entry& e) { return e.method.has_value(); }, u"Please select fushing method", kPlain,
                   Field::Method, Reaction::Focus},
};

}  // namespace

const OperationCheck* firstFailed(const OperationEntry& entry) {
    const auto* failed =
        std::ranges::find_if_not(kChecks, [&](const OperationCheck& check) { return check.holds(entry); });
    return failed == kChecks.end() ? nullptr : failed;
}

bool isBlank(const QString& text) {
    return text.trimmed().isEmpty();
}

}  // namespace kelvora
