#include "records/length_store.h"

#include "data/transaction.h"

namespace kelvora {
namespace {

void insertClass(Connection& connection, int operation, int species, const CountedClass& counted) {
    connection.execute(Sql("insert into length_detail values(")
                       << operation << "," << species << "," << counted.limits.lower << "," << counted.limits.upper
                       << "," << counted.middle << "," << counted.frequency << ")");
}

}  // namespace

std::optional<double> storedInterval(Connection& connection, int species) {
    const ResultSet fish = connection.query(Sql("select classinterval from fish where fishno = ") << species);
    const std::optional<double> interval = fish.isEmpty() ? std::nullopt : fish.number(0, u"classinterval");
    return interval.value_or(0) != 0 ? interval : std::nullopt;
}

bool hasLengthSample(Connection& connection, int operation, int species) {
    return !connection.query(Sql("select * from length where optid = ") << operation << " and spid = " << species)
                .isEmpty();
}

void deleteLengthSample(Connection& connection, const StoredOperation& operation, const ChosenSpecies& species) {
    Transaction transaction(connection);
    requireOperation(connection, operation);
    requireSpecies(connection, species);
    for (const Literal& sample : {Literal("delete from length"), Literal("delete from length_detail")}) {
        connection.execute(Sql(sample) << " where optid = " << operation.number << " and spid = " << species.number);
    }
    transaction.commit();
}

void storeLengthSample(Connection& connection, const LengthSample& sample) {
    Transaction transaction(connection);
    requireOperation(connection, sample.operation);
    requireSpecies(connection, sample.species);
    const int species = sample.species.number;
    if (!storedInterval(connection, species)) {
        connection.execute(Sql("update fish set classinterval = ") << sample.interval << " where fishno = " << species);
    }
    connection.execute(Sql("insert into length values(")
                       << sample.operation.number << "," << species << "," << sample.weight << ")");
    for (const CountedClass& counted : sample.classes) {
        insertClass(connection, sample.operation.number, species, counted);
    }
    transaction.commit();
}

void correctWeight(Connection& connection, const StoredOperation& operation, int species, double weight) {
    Transaction transaction(connection);
    requireOperation(connection, operation);
    connection.execute(Sql("update length set weight = ")
                       << weight << " where optid = " << operation.number << " and spid = " << species);
    transaction.commit();
}

void addLengthClass(Connection& connection, const StoredOperation& operation, const ChosenSpecies& species,
                    const CountedClass& counted) {
    Transaction transaction(connection);
    requireOperation(connection, operation);
    requireSpecies(connection, species);
    insertClass(connection, operation.number, species.number, counted);
    transaction.commit();
}

}  // namespace kelvora
