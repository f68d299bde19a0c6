#include "records/length_classes.h"

#include "data/numbers.h"

#include <algorithm>

namespace kelvora {

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

}  // namespace kelvora
