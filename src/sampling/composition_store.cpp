#include "sampling/composition_store.h"

#include "data/keys.h"
#include "data/transaction.h"
#include "sampling/raising.h"

namespace kelvora {
namespace {

/// Group 1 after one of its species is gone.
void settleSingleSpeciesGroup(Connection& connection, int operation) {
    const ResultSet sum =
        connection.query(Sql("select sum(totalweight)as sumtotal from group_composition where optid = ")
                         << operation << " and groupid = 1");
    if (const std::optional<double> total = sum.number(0, u"sumtotal")) {
        connection.execute(Sql("update group_main set totalsampling = ")
                           << *total << " where groupid = 1 and optid = " << operation);
    }
    const ResultSet left =
        connection.query(Sql("select * from group_composition where optid = ") << operation << " and groupid = 1");
    if (left.isEmpty()) {
        connection.execute(Sql("delete from group_main where optid = ") << operation << " and groupid = 1");
    }
}

}  // namespace

bool hasSingleSpecies(Connection& connection, int operation, int species) {
    return !connection
                .query(Sql("select * from group_composition where optid = ")
                       << operation << " and groupid = 1 and spid = " << species)
                .isEmpty();
}

void storeSingleSpecies(Connection& connection, int operation, int species, double weight) {
    Transaction transaction(connection);
    const ResultSet group = connection.query(Sql("select groupid from group_main where optid = ")
                                             << operation << " and groupname = 'Single species'");
    if (group.isEmpty()) {
        connection.execute(Sql("insert into group_main(optid,groupid,groupname,totalsampling) values(")
                           << operation << "," << 1 << ",'Single species',0)");
    }
    connection.execute(Sql("insert into group_composition values(")
                       << operation << "," << species << "," << 1 << "," << weight << "," << weight << ")");
    connection.execute(Sql("update group_main set totalsampling = totalsampling + ")
                       << weight << " where groupid = 1 and optid = " << operation);
    transaction.commit();
}

void deleteSingleSpecies(Connection& connection, int operation, const QString& shownName) {
    Transaction transaction(connection);
    const ResultSet found =
        connection.query(Sql("select fishno from fish where fish.genus & ' ' & fish.fishname  = ") << shownName);
    for (int row = 0; row < found.rowCount(); ++row) {
        // Of several species with this name the one that stands in the group is meant.
        if (connection.execute(Sql("delete from group_composition where optid = ")
                               << operation
                               << " and groupid = 1 and spid = " << found.integer(row, u"fishno").value_or(0)) > 0) {
            break;
        }
    }
    settleSingleSpeciesGroup(connection, operation);
    transaction.commit();
}

bool hasGroup(Connection& connection, int operation, const QString& name) {
    return !connection.query(Sql("select * from group_main where groupname = ") << name << " and optid = " << operation)
                .isEmpty();
}

void storeGroup(Connection& connection, int operation, const SamplingGroup& group) {
    Transaction transaction(connection);
    const int number = nextGroup(connection, operation);
    connection.execute(Sql("insert into group_main values(")
                       << number << "," << operation << "," << group.name << "," << group.total << ")");
    const double factor = raisingFactor(group.total, group.sample);
    for (const SampledSpecies& sampled : group.species) {
        connection.execute(Sql("insert into group_composition values (")
                           << operation << "," << sampled.species << "," << number << "," << sampled.weight << ","
                           << sampled.weight * factor << ")");
    }
    transaction.commit();
}

void deleteGroup(Connection& connection, int operation, int group) {
    Transaction transaction(connection);
    connection.execute(Sql("delete from group_main where optid = ") << operation << " and groupid = " << group);
    connection.execute(Sql("delete from group_composition where optid = ") << operation << " and groupid = " << group);
    transaction.commit();
}

}  // namespace kelvora
