#include "records/species.h"

#include "data/names.h"
#include "data/numbers.h"
#include "data/transaction.h"
#include "records/keys.h"
#include "records/operation_store.h"

using namespace Qt::StringLiterals;

namespace kelvora {

Sql catalogueSpecies() {
    return Sql("SELECT fishno, ") << kSpeciesName << " AS sp FROM fish WHERE fishno <> 0 ORDER BY sp";
}

Sql caughtSpecies(int operation) {
    return Sql("SELECT DISTINCT spid, ")
           << kSpeciesName
           << " AS Species FROM group_composition INNER JOIN fish ON fish.fishno = group_composition.spid"
           << " WHERE optid = " << operation << " ORDER BY Species";
}

std::vector<ChosenSpecies> speciesIn(const ResultSet& found) {
    std::vector<ChosenSpecies> species;
    species.reserve(found.rows.size());
    for (int row = 0; row < found.rowCount(); ++row) {
        species.push_back({found.integer(row, u"fishno").value(), found.text(row, u"Species")});
    }
    return species;
}

void requireSpecies(Connection& connection, const ChosenSpecies& species) {
    const ResultSet found =
        connection.query(Sql("SELECT ") << kSpeciesName << " AS sp FROM fish WHERE fishno = " << species.number);
    if (found.isEmpty() || found.text(0, u"sp") != species.name) {
        const QString reason = u"the species %1 was deleted or renamed since it was chosen here"_s.arg(species.name);
        throw OriginLost(u"Nothing was stored: %1. What was entered is still on the screen."_s.arg(reason), reason);
    }
}

void requireCatch(Connection& connection, const StoredOperation& operation, const ChosenSpecies& species) {
    requireOperation(connection, operation);
    requireSpecies(connection, species);
}

Sql speciesAsEntered() {
    return Sql(
        "SELECT fish.fishno,fish.family, fish.genus, fish.fishname, fish.common_name FROM fish"
        " where fishno <> 0 order by fish.fishno");
}

std::optional<int> AddSpecies(Connection& connection, const SpeciesEntry& species, std::optional<int> last) {
    if (findsNamed(connection, Sql("select family, genus, fishname from fish where "),
                   {{"family", species.family}, {"genus", species.genus}, {"fishname", species.epithet}})) {
        return std::nullopt;
    }
    const int number = last && *last < kLargestKey ? *last + 1 : nextSpecies(connection);
    connection.execute(Sql("insert into fish(fishno,fishname,genus,family,common_name) values(")
                       << number << "," << species.epithet << "," << species.genus << "," << species.family << ","
                       << species.commonName << ")");
    return number;
}

bool isSpeciesUsed(Connection& connection, int species) {
    return finds(connection, Sql("select * from group_composition where spid = ") << species) ||
           finds(connection, Sql("select * from length where spid = ") << species) ||
           finds(connection, Sql("select * from gonad where spid = ") << species);
}

bool deleteSpecies(Connection& connection, int species, const std::function<bool()>& ask) {
    return executeThenAsk(connection, Sql("delete from fish where fishno = ") << species, ask);
}

}  // namespace kelvora
