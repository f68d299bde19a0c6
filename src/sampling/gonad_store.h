#pragma once

#include "data/connection.h"
#include "sampling/gonad_fish.h"

#include <functional>
#include <vector>

namespace kelvora {

/// The measured fish of a species in an operation that are still to be stored.
struct GonadSample {
    int operation = 0;
    int species = 0;
    double samplingWeight = 0;  ///< kg; of the whole sample, fish that are stored already included
    std::vector<GonadFish> fish;
};

/// What of a sample has reached the data file. A save that was interrupted goes on from here, so that no fish is stored
/// twice and no weight added twice.
struct StoredPart {
    int fish = 0;
    double bodyWeights = 0;     ///< g, of these fish
    double samplingWeight = 0;  ///< kg
    bool begun = false;         ///< whether the sample itself is there

    [[nodiscard]] bool isEmpty() const { return !begun; }
};

/// Stores a sample: its weight first, which is added to that of a sample stored earlier, then one fish after the other,
/// numbered behind those stored earlier. Each is stored for good on its own, and the part keeps the count of it.
/// Throws DataError when one of them fails; what stands in the part is stored then, nothing else is.
void storeGonadSample(Connection& connection, const GonadSample& sample, StoredPart& part,
                      const std::function<void()>& fishStored);

}  // namespace kelvora
