#include "records/length_checks.h"

#include "data/numbers.h"
#include "records/length_classes.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <span>

using namespace Qt::StringLiterals;

namespace kelvora {
namespace {

using Field = LengthRefusal::Field;

struct StartCheck {
    Field field;
    bool (*passes)(const LengthStart& start);
    QString (*message)(const LengthStart& start);
};

bool isInterval(const QString& text) {
    const double interval = toNumber(text).value_or(0);
    return interval > 0 && std::isfinite(interval * kTableClasses);
}

bool isNotNegative(const QString& text) {
    return toNumber(text).value_or(-1) >= 0;
}

bool startsInTable(const LengthStart& start) {
    const std::optional<double> limit = toNumber(start.lowerLimit);
    return limit && classHolding(*limit, leadingNumber(start.interval));
}

QString intervalMessage(const LengthStart& /*start*/) {
    return u"Please input class interval: a number greater than 0 (decimal point, no comma)"_s;
}

const std::array<StartCheck, 5>& checks() {
    static const std::array<StartCheck, 5> all = {{
        {Field::Species, [](const LengthStart& start) { return start.species.has_value(); },
         [](const LengthStart&) { return u"Please select species"_s; }},
        {Field::Operation, [](const LengthStart& start) { return start.operation.has_value(); },
         [](const LengthStart&) { return u"Please select fishing operation"_s; }},
        {Field::Interval, [](const LengthStart& start) { return isInterval(start.interval); }, intervalMessage},
        {Field::Weight, [](const LengthStart& start) { return isNotNegative(start.weight); },
         [](const LengthStart&) {
             return u"Please input sampling weight: a number not below 0 (decimal point, no comma)"_s;
         }},
        {Field::LowerLimit, startsInTable,
         [](const LengthStart& start) {
             return u"Please input lower limit: a number from 0 to below %1 (decimal point, no comma)"_s.arg(
                 plainText(classTable(leadingNumber(start.interval)).back().upper));
         }},
    }};
    return all;
}

std::optional<LengthRefusal> firstRefusal(std::span<const StartCheck> all, const LengthStart& start) {
    const auto failed = std::ranges::find_if(all, [&](const StartCheck& check) { return !check.passes(start); });
    return failed == all.end() ? std::nullopt : std::optional(LengthRefusal{failed->field, failed->message(start)});
}

}  // namespace

std::optional<LengthRefusal> startRefusal(const LengthStart& start) {
    return firstRefusal(checks(), start);
}

std::optional<LengthRefusal> saveRefusal(const LengthStart& start) {
    return firstRefusal(std::span(checks()).first<4>(), start);
}

std::optional<LengthRefusal> intervalRefusal(const QString& interval) {
    return isInterval(interval) ? std::nullopt : std::optional(LengthRefusal{Field::Interval, intervalMessage({})});
}

bool isFrequency(const QString& text) {
    return isNotNegative(text);
}

}  // namespace kelvora
