#pragma once

#include "data/connection.h"
#include "sampling/length_classes.h"

#include <optional>
#include <vector>

namespace kelvora {

/// A length class and the fish counted in it.
struct CountedClass {
    LengthClass limits;
    double middle = 0;
    double frequency = 0;
};

/// A length-frequency sample of a species in an operation.
struct LengthSample {
    int operation = 0;
    int species = 0;
    double weight = 0;    ///< sampling weight in kg
    double interval = 0;  ///< class interval in cm
    std::vector<CountedClass> classes;
};

/// The class interval (cm) remembered for a species; nothing while it has none.
std::optional<double> storedInterval(Connection& connection, int species);

/// Whether an operation has a length sample of a species.
bool hasLengthSample(Connection& connection, int operation, int species);

/// Deletes an operation's length sample of a species with its classes. All or nothing.
void deleteLengthSample(Connection& connection, int operation, int species);

/// Stores a sample with its classes in their order, and its interval if the species has none yet. All or nothing.
void storeLengthSample(Connection& connection, const LengthSample& sample);

}  // namespace kelvora
