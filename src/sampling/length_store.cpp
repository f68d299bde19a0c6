#include "sampling/length_store.h"

#include "data/transaction.h"

namespace kelvora {

std::optional<double> storedInterval(Connection& connection, int species) {
    const ResultSet fish = connection.query(Sql("select classinterval from fish where fishno = ") << species);
    const std::optional<double> interval = fish.isEmpty() ? std::nullopt : fish.number(0, u"classinterval");
    return interval.value_or(0) != 0 ? interval : std::nullopt;
}

bool hasLengthSample(Connection& connection, int operation, int species) {
    return !connection.query(Sql("select * from length where optid = ") << operation << " and spid = " << species)
                .isEmpty();
}

void deleteLengthSample(Connection& connection, int operation, int species) {
    Transaction transaction(connection);
    connection.execute(Sql("delete from length where optid = ") << operation << " and spid = " << species);
    connection.execute(Sql("delete from length_detail where optid = ") << operation << " and spid = " << species);
    transaction.commit();
}

void storeLengthSample(Connection& connection, const LengthSample& sample) {
    Transaction transaction(connection);
    if (!storedInterval(connection, sample.species)) {
        connection.execute(Sql("update fish set classinterval = ")
                           << sample.interval << " where fishno = " << sample.species);
    }
    connection.execute(Sql("insert into length values(")
                       << sample.operation << "," << sample.species << "," << sample.weight << ")");
    for (const CountedClass& c : sample.classes) {
        connection.execute(Sql("insert into length_detail values(")
                           << sample.operation << "," << sample.species << "," << c.limits.lower << ","
                           << c.limits.upper << "," << c.middle << "," << c.frequency << ")");
    }
    transaction.commit();
}

}  // namespace kelvora
