#pragma once

#include <QString>

#include <optional>

namespace kelvora {

/// What stands on the length-frequency screen when an entry is to be started.
struct LengthStart {
    std::optional<int> species;    ///< number of the chosen species
    std::optional<int> operation;  ///< the current fishing operation
    QString interval;              ///< the boxes as typed; lengths in cm, weight in kg
    QString weight;
    QString lowerLimit;
};

/// Why an entry cannot go on, and where the sampler can put it right.
struct LengthRefusal {
    enum class Field { Species, Operation, Interval, Weight, LowerLimit };

    Field field = Field::Species;
    QString message;
};

/// The first thing that is wrong with a start, in the order of the screen; nothing if the entry can start. Whatever is
/// started can later be saved, so a stored sample is never given up for one that cannot take its place.
std::optional<LengthRefusal> startRefusal(const LengthStart& start);

/// The same when the sample is to be saved: its lower limit has done its work.
std::optional<LengthRefusal> saveRefusal(const LengthStart& start);

/// Whether the class interval (cm) is a number to build classes with.
std::optional<LengthRefusal> intervalRefusal(const QString& interval);

/// Whether a count is a number of fish; 0 is one.
bool isFrequency(const QString& text);

}  // namespace kelvora
