#include "sampling/gonad_store.h"

#include "data/keys.h"
#include "data/numbers.h"
#include "data/transaction.h"

using namespace Qt::StringLiterals;

namespace kelvora {
namespace {

void executeAndCommit(Connection& connection, const Sql& sql) {
    Transaction transaction(connection);
    connection.execute(sql);
    transaction.commit();
}

/// Fish of an operation that has been deleted meanwhile would turn up in the next operation that gets its number.
void requireOperation(Connection& connection, int operation) {
    if (connection.query(Sql("select optid from fishoperation where optid = ") << operation).isEmpty()) {
        const QString reason = u"fishing operation no. %1 has been deleted"_s.arg(operation);
        throw DataError(reason, reason);
    }
}

/// The number in front of the first fish of a sample. Throws DataError if its fish cannot all be numbered.
int lastNumber(Connection& connection, const GonadSample& sample) {
    const int stored = nextFish(connection, sample.operation, sample.species) - 1;
    if (static_cast<int>(sample.fish.size()) > kLargestKey - stored) {
        const QString reason = u"a species has at most %1 fish in an operation, and %2 are stored already"_s;
        throw DataError(reason.arg(kLargestKey).arg(stored), reason.arg(kLargestKey).arg(stored));
    }
    return stored;
}

void storeWeight(Connection& connection, const GonadSample& sample, StoredPart& part) {
    const bool known =
        !connection
             .query(Sql("select * from gonad where spid = ") << sample.species << " and optid = " << sample.operation)
             .isEmpty();
    const double further = asRead(sample.samplingWeight - part.samplingWeight);
    if (!known) {
        executeAndCommit(connection, Sql("insert into gonad values(") << sample.operation << "," << sample.species
                                                                      << "," << sample.samplingWeight << ")");
    } else if (!part.begun || further != 0) {
        executeAndCommit(connection, Sql("update gonad set samplingw = samplingw + ")
                                         << further << " where spid = " << sample.species
                                         << " and optid = " << sample.operation);
    }
    part.begun = true;
    part.samplingWeight = sample.samplingWeight;
}

}  // namespace

void storeGonadSample(Connection& connection, const GonadSample& sample, StoredPart& part,
                      const std::function<void()>& fishStored) {
    // What can be refused is refused before anything is stored.
    requireOperation(connection, sample.operation);
    int number = lastNumber(connection, sample);
    storeWeight(connection, sample, part);
    for (const GonadFish& fish : sample.fish) {
        executeAndCommit(connection, insertFish(sample.operation, sample.species, ++number, fish));
        ++part.fish;
        part.bodyWeights = asRead(part.bodyWeights + bodyWeightSum({fish}));
        fishStored();
    }
}

}  // namespace kelvora
