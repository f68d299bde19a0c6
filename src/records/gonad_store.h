#pragma once

#include "records/gonad_fish.h"
#include "records/operation_store.h"
#include "records/species.h"

#include <functional>
#include <vector>

namespace kelvora {

/// The measured fish of a species in an operation that are still to be stored.
struct GonadSample {
    StoredOperation operation;
    ChosenSpecies species;
    double samplingWeight = 0;  ///< kg; of the whole sample, fish that are stored already included
    std::vector<GonadFish> fish;
};

/// What of a sample has reached the data file. A save that was interrupted goes on from here, so that no fish is stored
/// twice and no weight added twice.
struct StoredPart {
    int fish = 0;
    double bodyWeights = 0;  ///< g, of these fish
    double before = 0;       ///< kg, of the sample as it was before its first fish
    bool begun = false;      ///< whether the sample itself is there
};

/// Stores a sample one fish after the other, numbered behind those stored earlier. Each is stored for good on its own,
/// together with its part of the sampling weight, by body weight: what is stored weighs what its fish weigh, and with
/// the last one exactly the weight before and the sampling weight. Where no fish has a body weight, the sampling weight
/// comes with the last one. The part keeps the count of what is stored. Throws DataError when a fish fails; what stands
/// in the part is stored then, nothing else is. OriginLost: see storeSingleSpecies.
void storeGonadSample(Connection& connection, const GonadSample& sample, StoredPart& part,
                      const std::function<void()>& fishStored);

/// The species of which an operation has a gonad sample, by their numbers.
std::vector<ChosenSpecies> gonadSpecies(Connection& connection, int operation);

/// The sampling weight (kg) of an operation's gonad sample of a species, as it is stored; nothing without a sample.
std::optional<QVariant> gonadSampleWeight(Connection& connection, int operation, int species);
/// Its fish by their numbers: number, four lengths, body weight (g) with two decimals, sex, stage, gonad weight (g),
/// index
/// (%) with two decimals.
ResultSet fishOf(Connection& connection, int operation, int species);

/// The maturity stages by their numbers: stageid, stname.
Sql maturityStages();

/// Adds a fish to a stored sample, whose weight stays as it is. OriginLost as well.
void addFish(Connection& connection, const StoredOperation& operation, const ChosenSpecies& species,
             const GonadFish& fish);

/// Deletes an operation's gonad sample of a species, whatever its name is by now, with its fish. All or nothing.
/// OriginLost if the operation is lost.
void deleteGonadSample(Connection& connection, const StoredOperation& operation, const ChosenSpecies& species);

}  // namespace kelvora
