#include "records/species.h"

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

}  // namespace kelvora
