#pragma once

#include "records/operation_store.h"
#include "records/species.h"

#include <vector>

namespace kelvora {

/// A species of a sampling group and its weight in the sample (kg).
struct SampledSpecies {
    ChosenSpecies species;
    double weight = 0;
};

/// A sampling group as it was sorted and weighed (kg).
struct SamplingGroup {
    QString name;
    double total = 0;
    double sample = 0;
    std::vector<SampledSpecies> species;
};

/// Whether a species stands among the single species of an operation.
bool hasSingleSpecies(Connection& connection, int operation, int species);

/// Stores a species weighed whole (kg) and adds it to the total of group 1, which comes into being with the first one.
/// All or nothing. This and what else stores or deletes for an operation throws OriginLost if the operation or the
/// species is not stored any more as the screen read it.
void storeSingleSpecies(Connection& connection, const StoredOperation& operation, const ChosenSpecies& species,
                        double weight);

/// Takes the single species with a shown name out of an operation. Group 1 keeps the sum of what is left, and goes with
/// its last species. All or nothing.
void deleteSingleSpecies(Connection& connection, const StoredOperation& operation, const QString& shownName);

/// Whether an operation has a group with a name.
bool hasGroup(Connection& connection, int operation, const QString& name);

/// Stores a sampling group under the next number of the operation, each weight raised to the whole group. All or
/// nothing.
void storeGroup(Connection& connection, const StoredOperation& operation, const SamplingGroup& group);

/// Deletes a sampling group with its species. All or nothing.
void deleteGroup(Connection& connection, const StoredOperation& operation, int group);

/// For each species of an operation its estimated catch (kg) over all groups and its share of the operation's estimated
/// catch (%), both with two decimals, in the order of the shown names. The share is null if the catch sums to 0.
ResultSet compositionOf(Connection& connection, int operation);

}  // namespace kelvora
