#pragma once

#include "data/connection.h"

namespace kelvora {

/// The next free key, read immediately before its row is inserted: the largest stored one + 1, and 1 in an empty
/// table. Each throws DataError in plain words when the key would be larger than kLargestKey.
int nextState(Connection& connection);
int nextSamplingPort(Connection& connection);
int nextGear(Connection& connection);
int nextMethod(Connection& connection);
int nextSpecies(Connection& connection);
int nextOperation(Connection& connection);

/// The number of gears + 1: the key of a gear that a vessel file names.
int nextGearByCount(Connection& connection);

/// The next sampling group of an operation: the largest + 1, and 2 in an operation without groups, since 1 is the group
/// of the single species.
int nextGroup(Connection& connection, int operation);

/// The number of the next fish of an operation and species: the count of those stored + 1.
int nextFish(Connection& connection, int operation, int species);

}  // namespace kelvora
