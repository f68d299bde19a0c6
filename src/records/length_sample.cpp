#include "records/length_sample.h"

#include "data/numbers.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <span>

using namespace Qt::StringLiterals;

namespace kelvora {
namespace {

struct LengthCheck {
    bool (*passes)(const LengthStart& start);
    QString message;
};

bool isInterval(const LengthStart& start) {
    const double interval = toNumber(start.interval).value_or(0);
    return interval > 0 && std::isfinite(interval * kTableClasses);
}

bool isNotBelowZero(const QString& text) {
    return toNumber(text).value_or(-1) >= 0;
}

bool startsInTable(const LengthStart& start) {
    const std::optional<double> limit = toNumber(start.lowerLimit);
    return limit && classHolding(*limit, leadingNumber(start.interval));
}

/// The checks of the fields, in their order.
const std::array<LengthCheck, 5>& lengthChecks() {
    static const std::array<LengthCheck, 5> all = {{
        {[](const LengthStart& start) { return start.species; }, u"Please select species"_s},
        {[](const LengthStart& start) { return start.operation; }, u"Please select fishing operation"_s},
        {isInterval, u"Please input class interval: a number greater than 0 (decimal point, no comma)"_s},
        {[](const LengthStart& start) { return isNotBelowZero(start.weight); },
         u"Please input sampling weight: a number not below 0 (decimal point, no comma)"_s},
        {startsInTable, u"Please input lower limit: a number from 0 to below %1 (decimal point, no comma)"_s},
    }};
    return all;
}

std::optional<Refusal> lengthRefusal(const LengthStart& start, int first, int end) {
    for (int field = first; field < end; ++field) {
        const LengthCheck& check = lengthChecks().at(static_cast<std::size_t>(field));
        if (check.passes(start)) {
            continue;
        }
        const QString tableEnd =
            field == LengthLowerLimit ? plainText(classTable(leadingNumber(start.interval)).back().upper) : QString();
        return Refusal{u"ERROR"_s, tableEnd.isEmpty() ? check.message : check.message.arg(tableEnd), field};
    }
    return std::nullopt;
}

}  // namespace

double LengthClass::middle() const {
    return readable((upper + lower) / 2);
}

std::vector<LengthClass> classTable(double interval) {
    std::vector<LengthClass> table;
    double lower = 0;
    for (int i = 0; i < kTableClasses; ++i) {
        table.push_back(nextClass(lower, interval));
        lower = table.back().upper;
    }
    return table;
}

std::optional<LengthClass> classHolding(double length, double interval) {
    const double read = readable(length);
    const std::vector<LengthClass> table = classTable(interval);
    const auto found =
        std::ranges::find_if(table, [read](const LengthClass& c) { return c.lower <= read && read < c.upper; });
    return found == table.end() ? std::nullopt : std::optional(*found);
}

LengthClass nextClass(double previousUpper, double interval) {
    return {previousUpper, readable(previousUpper + interval)};
}

std::optional<Refusal> startRefusal(const LengthStart& start) {
    return lengthRefusal(start, LengthSpecies, LengthLowerLimit + 1);
}

std::optional<Refusal> saveRefusal(const LengthStart& start) {
    return lengthRefusal(start, LengthSpecies, LengthLowerLimit);
}

std::optional<Refusal> intervalRefusal(const QString& interval) {
    return lengthRefusal({false, false, interval, {}, {}}, LengthInterval, LengthInterval + 1);
}

std::optional<Refusal> sampleWeightRefusal(const QString& weight) {
    return isNotBelowZero(weight)
               ? std::nullopt
               : std::optional(Refusal{
                     u"ERROR"_s, u"Please input sample weight: a number not below 0 (decimal point, no comma)"_s});
}

std::optional<Refusal> frequencyRefusal(const QString& frequency) {
    return isNotBelowZero(frequency) ? std::nullopt : std::optional(Refusal{u"ERROR"_s, u"Numeric Only"_s});
}

}  // namespace kelvora
