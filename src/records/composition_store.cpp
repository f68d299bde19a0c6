#include "records/composition_store.h"

#include "data/names.h"
#include "data/transaction.h"
#include "records/keys.h"

namespace kelvora {
namespace {

/// All single species of an operation, or those that a further condition picks.
Sql singleSpeciesRows(int operation) {
    return Sql(" from group_composition where optid = ") << operation << " and groupid = 1";
}

/// Group 1 after one of its species is gone.
void settleSingleSpeciesGroup(Connection& connection, int operation) {
    const ResultSet sum = connection.query(Sql("select sum(totalweight)as sumtotal") << singleSpeciesRows(operation));
    if (const std::optional<double> total = sum.number(0, u"sumtotal")) {
        connection.execute(Sql("update group_main set totalsampling = ")
                           << *total << " where groupid = 1 and optid = " << operation);
    }
    if (connection.query(Sql("select *") << singleSpeciesRows(operation)).isEmpty()) {
        connection.execute(Sql("delete from group_main where optid = ") << operation << " and groupid = 1");
    }
}

}  // namespace

bool hasSingleSpecies(Connection& connection, int operation, int species) {
    return !connection.query(Sql("select *") << singleSpeciesRows(operation) << " and spid = " << species).isEmpty();
}

void storeSingleSpecies(Connection& connection, const StoredOperation& operation, const ChosenSpecies& species,
                        double weight) {
    Transaction transaction(connection);
    requireCatch(connection, operation, species);
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

void deleteSingleSpecies(Connection& connection, const StoredOperation& operation, const ChosenSpecies& species) {
    Transaction transaction(connection);
    requireOperation(connection, operation);
    connection.execute(Sql("delete") << singleSpeciesRows(operation.number) << " and spid = " << species.number
                                     << " and exists (select 1 from fish where fishno = spid and " << kSpeciesName
                                     << " = " << species.name << ")");
    settleSingleSpeciesGroup(connection, operation.number);
    transaction.commit();
}

ResultSet groupsOf(Connection& connection, int operation, bool withSingleSpecies) {
    return keyed(connection.query(Sql("SELECT distinct groupname,groupid,totalsampling from group_main where optid =")
                                  << operation << (withSingleSpecies ? Literal("") : Literal(" and groupid <> 1"))
                                  << " order by groupid"),
                 u"groupid");
}

ResultSet speciesOfGroup(Connection& connection, int operation, int group) {
    const Sql ofGroup = Sql("optid = ") << operation << " and groupid = " << group;
    return connection.query(Sql("SELECT ")
                            << kSpeciesName
                            << " AS Species, totalweight, estotal, fishno FROM fish INNER JOIN group_composition ON"
                            << " fishno = spid WHERE " << ofGroup << " AND EXISTS (SELECT 1 FROM group_main WHERE "
                            << ofGroup << ") ORDER BY Species, fishno");
}

bool hasGroup(Connection& connection, int operation, const QString& name) {
    const Sql groups = Sql("select * from group_main where optid = ") << operation << " and ";
    return !rowsNamed(connection, groups, {{"groupname", name}}).isEmpty();
}

bool hasGroup(Connection& connection, int operation, int group) {
    return !connection
                .query(Sql("select groupid from group_main where optid = ") << operation << " and groupid = " << group)
                .isEmpty();
}

void storeGroup(Connection& connection, const StoredOperation& operation, const SamplingGroup& group) {
    Transaction transaction(connection);
    requireOperation(connection, operation);
    const int number = nextGroup(connection, operation.number);
    connection.execute(Sql("insert into group_main values(")
                       << number << "," << operation.number << "," << group.name << "," << group.total << ")");
    const double factor = raisingFactor(group.total, group.sample());
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
    for (const Literal& rows :
         {Literal("delete from group_main where optid = "), Literal("delete from group_composition where optid = ")}) {
        connection.execute(Sql(rows) << operation.number << " and groupid = " << group);
    }
    transaction.commit();
}

ResultSet compositionOf(Connection& connection, int operation) {
    const Sql from = Sql(" FROM fish INNER JOIN group_composition ON fish.fishno = group_composition.spid")
                     << " where optid = " << operation;
    const ResultSet sum = connection.query(Sql("SELECT sum(group_composition.estotal) as sc") << from);
    const double total = sum.number(0, u"sc").value_or(0);
    return connection.query(Sql("SELECT ")
                            << kSpeciesName << " AS Species, two_decimals(sum(estotal)), two_decimals(sum(estotal)*100/"
                            << total << ")" << from << " GROUP BY fish.fishno ORDER BY Species, fish.fishno");
}

}  // namespace kelvora
