#include "records/length_store.h"

#include "data/numbers.h"
#include "data/transaction.h"

namespace kelvora {
namespace {

void insertLengthClass(Connection& connection, int operation, int species, const CountedClass& counted) {
    const LengthClass& limits = counted.limits;
    connection.execute(Sql("insert into length_detail values(")
                       << operation << "," << species << "," << limits.lower << "," << limits.upper << ","
                       << limits.middle() << "," << counted.frequency << ")");
}

}  // namespace

QVariant classIntervalOf(Connection& connection, int species) {
    const ResultSet fish = connection.query(Sql("select classinterval from fish where fishno = ") << species);
    return fish.isEmpty() ? QVariant() : fish.value(0, u"classinterval");
}

std::optional<double> storedInterval(Connection& connection, int species) {
    const std::optional<double> interval = toNumber(displayText(classIntervalOf(connection, species)));
    return interval.value_or(0) != 0 ? interval : std::nullopt;
}

std::vector<ChosenSpecies> lengthSpecies(Connection& connection, int operation) {
    return speciesIn(connection.query(
        Sql("SELECT ") << kSpeciesName
                       << " AS Species, fishno FROM fish INNER JOIN length ON fishno = spid where optid = " << operation
                       << " ORDER BY spid"));
}

std::optional<QVariant> lengthSampleWeight(Connection& connection, int operation, int species) {
    const ResultSet stored =
        connection.query(Sql("select * from length where optid = ") << operation << " and spid = " << species);
    return stored.isEmpty() ? std::nullopt : std::optional(stored.value(0, u"weight"));
}

ResultSet lengthClassesOf(Connection& connection, int operation, int species) {
    return connection.query(Sql("select lower1,upper1,midlength1,frequency1 from length_detail where optid = ")
                            << operation << " and spid = " << species << " order by lower1");
}

void deleteLengthSample(Connection& connection, const StoredOperation& operation, const ChosenSpecies& species) {
    Transaction transaction(connection);
    requireCatch(connection, operation, species);
    for (const Literal& sample : {Literal("delete from length"), Literal("delete from length_detail")}) {
        connection.execute(Sql(sample) << " where optid = " << operation.number << " and spid = " << species.number);
    }
    transaction.commit();
}

void storeLengthSample(Connection& connection, const LengthSample& sample) {
    Transaction transaction(connection);
    requireCatch(connection, sample.operation, sample.species);
    const int species = sample.species.number;
    if (!storedInterval(connection, species)) {
        connection.execute(Sql("update fish set classinterval = ") << sample.interval << " where fishno = " << species);
    }
    connection.execute(Sql("insert into length values(")
                       << sample.operation.number << "," << species << "," << sample.weight << ")");
    for (const CountedClass& counted : sample.classes) {
        insertLengthClass(connection, sample.operation.number, species, counted);
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
    requireCatch(connection, operation, species);
    insertLengthClass(connection, operation.number, species.number, counted);
    transaction.commit();
}

}  // namespace kelvora
