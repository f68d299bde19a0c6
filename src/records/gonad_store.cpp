#include "records/gonad_store.h"

#include "data/numbers.h"
#include "data/transaction.h"
#include "records/keys.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace kelvora {
namespace {

void requireOrigin(Connection& connection, const GonadSample& sample) {
    requireOperation(connection, sample.operation);
    requireSpecies(connection, sample.species);
}

/// Throws DataError if the fish of a sample cannot all be numbered.
void requireNumbers(Connection& connection, const GonadSample& sample) {
    const int stored = nextFish(connection, sample.operation.number, sample.species.number) - 1;
    if (static_cast<int>(sample.fish.size()) > kLargestKey - stored) {
        const QString reason =
            u"a species has at most %1 fish in an operation, and %2 are stored already"_s.arg(kLargestKey).arg(stored);
        throw DataError(reason, reason);
    }
}

/// What a fish counts for among those of its sample; a text that is no weight counts for nothing.
double bodyWeight(const GonadFish& fish) {
    return std::max(0.0, bodyWeightSum({fish}));
}

/// Makes the stored sample weigh a share (kg) more than it did before its first fish.
void storeWeight(Connection& connection, const GonadSample& sample, StoredPart& part, double share) {
    const Sql where = Sql(" where spid = ") << sample.species.number << " and optid = " << sample.operation.number;
    const ResultSet stored = connection.query(Sql("select * from gonad") << where);
    if (!part.begun || stored.isEmpty()) {
        part.before = stored.isEmpty() ? 0 : stored.number(0, u"samplingw").value_or(0);
    }
    part.begun = true;
    if (stored.isEmpty()) {
        connection.execute(Sql("insert into gonad values(")
                           << sample.operation.number << "," << sample.species.number << "," << share << ")");
    } else {
        connection.execute(Sql("update gonad set samplingw = ") << readable(part.before + share) << where);
    }
}

}  // namespace

void storeGonadSample(Connection& connection, const GonadSample& sample, StoredPart& part,
                      const std::function<void()>& fishStored) {
    // What can be refused is refused before anything is stored.
    requireOrigin(connection, sample);
    requireNumbers(connection, sample);
    if (sample.fish.empty()) {
        // The fish that were not stored yet have been taken out of the grid: what is stored weighs what the box says.
        Transaction transaction(connection);
        StoredPart next = part;
        storeWeight(connection, sample, next, sample.samplingWeight);
        transaction.commit();
        part = next;
    }
    double all = part.bodyWeights;
    for (const GonadFish& fish : sample.fish) {
        all += bodyWeight(fish);
    }
    for (const GonadFish& fish : sample.fish) {
        Transaction transaction(connection);
        requireOrigin(connection, sample);
        StoredPart next = part;
        ++next.fish;
        next.bodyWeights += bodyWeight(fish);
        const double share = &fish == &sample.fish.back() ? sample.samplingWeight
                             : all > 0                    ? readable(sample.samplingWeight * (next.bodyWeights / all))
                                                          : 0;
        storeWeight(connection, sample, next, share);
        const int number = nextFish(connection, sample.operation.number, sample.species.number);
        connection.execute(insertFish(sample.operation.number, sample.species.number, number, fish));
        transaction.commit();
        part = next;
        fishStored();
    }
}

void addFish(Connection& connection, const StoredOperation& operation, const ChosenSpecies& species,
             const GonadFish& fish) {
    Transaction transaction(connection);
    requireOperation(connection, operation);
    requireSpecies(connection, species);
    const int number = nextFish(connection, operation.number, species.number);
    connection.execute(insertFish(operation.number, species.number, number, fish));
    transaction.commit();
}

void deleteGonadSample(Connection& connection, const StoredOperation& operation, int species) {
    Transaction transaction(connection);
    requireOperation(connection, operation);
    connection.execute(Sql("delete from gonad where optid = ") << operation.number << " and spid = " << species);
    connection.execute(Sql("delete from gonad_detail where optid = ") << operation.number << " and spid = " << species);
    transaction.commit();
}

}  // namespace kelvora
