#pragma once

#include "records/length_sample.h"
#include "records/operation_store.h"
#include "records/species.h"

namespace kelvora {

/// A length-frequency sample of a species in an operation.
struct LengthSample {
    StoredOperation operation;
    ChosenSpecies species;
    double weight = 0;    ///< sampling weight in kg
    double interval = 0;  ///< class interval in cm
    std::vector<CountedClass> classes;
};

/// The class interval (cm) of a species as it is stored; null or 0 while it has none.
QVariant classIntervalOf(Connection& connection, int species);
/// The class interval (cm) remembered for a species; nothing while it has none.
std::optional<double> storedInterval(Connection& connection, int species);

/// The species of which an operation has a length sample, by their numbers.
std::vector<ChosenSpecies> lengthSpecies(Connection& connection, int operation);

/// The sampling weight (kg) of an operation's length sample of a species, as it is stored; nothing without a sample.
std::optional<QVariant> lengthSampleWeight(Connection& connection, int operation, int species);
/// Its classes (cm) from the shortest to the longest: lower1, upper1, midlength1, frequency1.
ResultSet lengthClassesOf(Connection& connection, int operation, int species);

/// Deletes an operation's length sample of a species with its classes. All or nothing. This and what else stores or
/// deletes for an operation throws OriginLost if the operation or the species is not stored any more as the screen read
/// it.
void deleteLengthSample(Connection& connection, const StoredOperation& operation, const ChosenSpecies& species);

/// Stores a sample with its classes in their order, and its interval if the species has none yet. All or nothing.
void storeLengthSample(Connection& connection, const LengthSample& sample);

/// Corrects the sampling weight (kg) of a stored sample.
void correctWeight(Connection& connection, const StoredOperation& operation, int species, double weight);

/// Adds a class to a stored sample.
void addLengthClass(Connection& connection, const StoredOperation& operation, const ChosenSpecies& species,
                    const CountedClass& counted);

}  // namespace kelvora
