#include "records/composition_store.h"

#include "data/names.h"
#include "data/transaction.h"
#include "records/keys.h"
#include "records/raising.h"

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

void storeSingleSpecies(Connection& connection, const StoredOperation& operation, const ChosenSpecies& species,
                        double weight) {
    Transaction transaction(connection);
    requireOperation(connection, operation);
    requireSpecies(connection, species);
    const ResultSet group = connection.query(Sql("select groupid from group_main where optid = ")
                                             << operation.number << " and groupname = 'Single species'");
    if (group.isEmpty()) {
        connection.execute(Sql("insert into group_main(optid,groupid,groupname,totalsampling) values(")
                           << operation.number << "," << 1 << ",'Single species',0)");
    }
    connection.execute(Sql("insert into group_composition values(") << operation.number << "," << species.number << ","
                                                                    << 1 << "," << weight << "," << weight << ")");
    connection.execute(Sql("update group_main set totalsampling = totalsampling + ")
                       << weight << " where groupid = 1 and optid = " << operation.number);
    transaction.commit();
}

void deleteSingleSpecies(Connection& connection, const StoredOperation& operation, const QString& shownName) {
    Transaction transaction(connection);
    requireOperation(connection, operation);
    const ResultSet found =
        connection.query(Sql("select fishno from fish where fish.genus & ' ' & fish.fishname  = ") << shownName);
    for (int row = 0; row < found.rowCount(); ++row) {
        // Of several species with this name the one that stands in the group is meant.
        if (connection.execute(Sql("delete from group_composition where optid = ")
                               << operation.number
                               << " and groupid = 1 and spid = " << found.integer(row, u"fishno").value_or(0)) > 0) {
            break;
        }
    }
    settleSingleSpeciesGroup(connection, operation.number);
    transaction.commit();
}

bool hasGroup(Connection& connection, int operation, const QString& name) {
    const Sql groups = Sql("select * from group_main where optid = ") << operation << " and ";
    return !rowsNamed(connection, groups, {{"groupname", name}}).isEmpty();
}

void storeGroup(Connection& connection, const StoredOperation& operation, const SamplingGroup& group) {
    Transaction transaction(connection);
    requireOperation(connection, operation);
    const int number = nextGroup(connection, operation.number);
    connection.execute(Sql("insert into group_main values(")
                       << number << "," << operation.number << "," << group.name << "," << group.total << ")");
    const double factor = raisingFactor(group.total, group.sample);
    for (const SampledSpecies& sampled : group.species) {
        requireSpecies(connection, sampled.species);
        connection.execute(Sql("insert into group_composition values (")
                           << operation.number << "," << sampled.species.number << "," << number << ","
                           << sampled.weight << "," << sampled.weight * factor << ")");
    }
    transaction.commit();
}

void deleteGroup(Connection& connection, const StoredOperation& operation, int group) {
    Transaction transaction(connection);
    requireOperation(connection, operation);
    connection.execute(Sql("delete from group_main where optid = ") << operation.number << " and groupid = " << group);
    connection.execute(Sql("delete from group_composition where optid = ")
                       << operation.number << " and groupid = " << group);
    transaction.commit();
}

ResultSet compositionOf(Connection& connection, int operation) {
    const Sql from = Sql(" FROM fish INNER JOIN group_composition ON fish.fishno = group_composition.spid")
                     << " where optid = " << operation;
    const ResultSet sum = connection.query(Sql("SELECT sum(group_composition.estotal) as sc") << from);
    const double total = sum.number(0, u"sc").value_or(0);
    return connection.query(
        Sql("SELECT    fish.genus & ' ' & fish.fishname,format(sum(group_composition.estotal),'#0.00'),"
            "format((sum(group_composition.estotal)*100 )/")
        << total << ",'#0.00')" << from
        << " group by   fish.fishno,fish.genus & ' ' & fish.fishname  order by fish.genus & ' ' & fish.fishname ASC");
}

}  // namespace kelvora
