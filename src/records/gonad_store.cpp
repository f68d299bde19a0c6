#include "records/gonad_store.h"

#include "data/numbers.h"
#include "data/transaction.h"
#include "records/keys.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace kelvora {
namespace {

/// Stores a fish under the next number of its operation and species.
void insertFish(Connection& connection, int operation, int species, const GonadFish& fish) {
    const int number = nextFish(connection, operation, species);
    Sql insert = Sql("Insert into gonad_detail(optid,spid,samplingno,tl,bl,fl,sl,bw,sex,stage,gw,gsi) values(")
                 << operation << "," << species << "," << number;
    for (const FishColumn& column : kFishFields) {
        insert = std::move(insert) << ",";
        insert = column.field == &GonadFish::sex ? std::move(insert) << fish.sex
                                                 : std::move(insert) << storedNumber(fish, column.field);
    }
    const std::optional<double> index =
        gonadoSomaticIndex(storedNumber(fish, &GonadFish::gw), storedNumber(fish, &GonadFish::bw));
    insert = index ? std::move(insert) << "," << *index : std::move(insert) << ",null";
    connection.execute(std::move(insert) << ")");
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
    const std::optional<QVariant> stored =
        gonadSampleWeight(connection, sample.operation.number, sample.species.number);
    if (!part.begun || !stored) {
        part.before = stored ? toNumber(displayText(*stored)).value_or(0) : 0;
    }
    part.begun = true;
    if (!stored) {
        connection.execute(Sql("insert into gonad values(")
                           << sample.operation.number << "," << sample.species.number << "," << share << ")");
    } else {
        connection.execute(Sql("update gonad set samplingw = ")
                           << readable(part.before + share) << " where spid = " << sample.species.number
                           << " and optid = " << sample.operation.number);
    }
}

}  // namespace

void storeGonadSample(Connection& connection, const GonadSample& sample, StoredPart& part,
                      const std::function<void()>& fishStored) {
    // What can be refused is refused before anything is stored.
    requireCatch(connection, sample.operation, sample.species);
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
        requireCatch(connection, sample.operation, sample.species);
        StoredPart next = part;
        ++next.fish;
        next.bodyWeights += bodyWeight(fish);
        const double share = &fish == &sample.fish.back() ? sample.samplingWeight
                             : all > 0                    ? readable(sample.samplingWeight * (next.bodyWeights / all))
                                                          : 0;
        storeWeight(connection, sample, next, share);
        insertFish(connection, sample.operation.number, sample.species.number, fish);
        transaction.commit();
        part = next;
        fishStored();
    }
}

std::vector<ChosenSpecies> gonadSpecies(Connection& connection, int operation) {
    return speciesIn(connection.query(
        Sql("SELECT ") << kSpeciesName
                       << " AS Species, fishno FROM fish INNER JOIN gonad ON fishno = spid WHERE optid = " << operation
                       << " ORDER BY spid"));
}

std::optional<QVariant> gonadSampleWeight(Connection& connection, int operation, int species) {
    const ResultSet stored =
        connection.query(Sql("select * from gonad where spid = ") << species << " and optid = " << operation);
    return stored.isEmpty() ? std::nullopt : std::optional(stored.value(0, u"samplingw"));
}

ResultSet fishOf(Connection& connection, int operation, int species) {
    return connection.query(Sql("select samplingno,tl,bl,fl,sl,two_decimals(bw),sex,stage,gw,two_decimals(gsi)"
                                " from gonad_detail where optid = ")
                            << operation << " and spid = " << species << " order by samplingno");
}

Sql maturityStages() {
    return Sql("SELECT stageid,stageid || '-' || ifnull(stagename,'') as stname FROM gonad_stage order by stageid");
}

void addFish(Connection& connection, const StoredOperation& operation, const ChosenSpecies& species,
             const GonadFish& fish) {
    Transaction transaction(connection);
    requireCatch(connection, operation, species);
    insertFish(connection, operation.number, species.number, fish);
    transaction.commit();
}

void deleteGonadSample(Connection& connection, const StoredOperation& operation, const ChosenSpecies& species) {
    Transaction transaction(connection);
    requireOperation(connection, operation);
    for (const Literal& rows : {Literal("delete from gonad"), Literal("delete from gonad_detail")}) {
        connection.execute(Sql(rows) << " where optid = " << operation.number << " and spid = " << species.number);
    }
    transaction.commit();
}

}  // namespace kelvora
