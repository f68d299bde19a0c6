#pragma once

#include <optional>
#include <vector>

namespace kelvora {

/// A class table covers this many classes, the first of which begins at 0.
inline constexpr int kTableClasses = 48;

/// A length class in cm; it holds its lower limit, but not its upper one.
struct LengthClass {
    double lower = 0;
    double upper = 0;

    [[nodiscard]] double middle() const;
};

/// The class table of an interval (cm). Limits are summed up class by class, each as a person reads it: the third class
/// of the interval 0.1 ends at 0.3.
std::vector<LengthClass> classTable(double interval);

/// The class of an interval's table that holds a length (cm); nothing if the length lies outside of the table.
std::optional<LengthClass> classHolding(double length, double interval);

/// The class that follows on an upper limit (cm).
LengthClass nextClass(double previousUpper, double interval);

}  // namespace kelvora
