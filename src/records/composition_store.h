#pragma once

#include "records/composition.h"
#include "records/operation_store.h"

namespace kelvora {

/// Whether a species stands among the single species of an operation.
bool hasSingleSpecies(Connection& connection, int operation, int species);

/// Stores a species weighed whole (kg) and adds it to the total of group 1, which comes into being with the first one.
/// All or nothing. This and what else stores or deletes for an operation throws OriginLost if the operation or the
/// species is not stored any more as the screen read it.
void storeSingleSpecies(Connection& connection, const StoredOperation& operation, const ChosenSpecies& species,
                        double weight);

/// Takes a single species out of an operation, unless it has another name by now. Group 1 keeps the sum of what is
/// left, and goes with its last species. All or nothing.
void deleteSingleSpecies(Connection& connection, const StoredOperation& operation, const ChosenSpecies& species);

/// The groups of an operation by their numbers: groupname, groupid, totalsampling (kg). Group 1 holds the single
/// species.
ResultSet groupsOf(Connection& connection, int operation, bool withSingleSpecies);

/// The species of a group by their shown names: Species, totalweight in the sample and estotal in the whole catch (kg),
/// fishno. None of a group that is not stored itself.
ResultSet speciesOfGroup(Connection& connection, int operation, int group);

/// Whether an operation has a group with a name, or a number.
bool hasGroup(Connection& connection, int operation, const QString& name);
bool hasGroup(Connection& connection, int operation, int group);

/// Stores a sampling group under the next number of the operation, each weight raised to the whole group. All or
/// nothing.
void storeGroup(Connection& connection, const StoredOperation& operation, const SamplingGroup& group);

/// Deletes a sampling group with its species. All or nothing.
void deleteGroup(Connection& connection, const StoredOperation& operation, int group);

/// For each species of an operation its estimated catch (kg) over all groups and its share of the operation's estimated
/// catch (%), both with two decimals, in the order of the shown names. The share is null if the catch sums to 0.
ResultSet compositionOf(Connection& connection, int operation);

}  // namespace kelvora
