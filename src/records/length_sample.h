#pragma once

#include "records/refusal.h"

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

/// A length class and the fish counted in it.
struct CountedClass {
    LengthClass limits;
    double frequency = 0;
};

/// The class table of an interval (cm). Limits are summed up class by class, each as a person reads it: the third class
/// of the interval 0.1 ends at 0.3.
std::vector<LengthClass> classTable(double interval);

/// The class of an interval's table that holds a length (cm); nothing if the length lies outside of the table.
std::optional<LengthClass> classHolding(double length, double interval);

/// The class that follows on an upper limit (cm).
LengthClass nextClass(double previousUpper, double interval);

/// What stands on the length-frequency screen when an entry is to be started.
struct LengthStart {
    bool species = false;    ///< whether one is chosen
    bool operation = false;  ///< whether a fishing operation is current
    QString interval;        ///< the boxes as typed; lengths in cm, weight in kg
    QString weight;
    QString lowerLimit;
};

/// The fields of a start in the order of the screen, which is that of their checks.
enum LengthField { LengthSpecies, LengthOperation, LengthInterval, LengthWeight, LengthLowerLimit };

/// The first thing that is wrong with a start, in the order of the screen; nothing if the entry can start. Whatever is
/// started can later be saved, so a stored sample is never given up for one that cannot take its place.
std::optional<Refusal> startRefusal(const LengthStart& start);

/// The same when the sample is to be saved: its lower limit has done its work.
std::optional<Refusal> saveRefusal(const LengthStart& start);

/// What is wrong with a class interval (cm); nothing for a number to build classes with.
std::optional<Refusal> intervalRefusal(const QString& interval);

/// What is wrong with the corrected weight (kg) of a stored sample; nothing for a number of 0 or more.
std::optional<Refusal> sampleWeightRefusal(const QString& weight);

/// What is wrong with a count; nothing for a number of fish, and 0 is one.
std::optional<Refusal> frequencyRefusal(const QString& frequency);

}  // namespace kelvora
