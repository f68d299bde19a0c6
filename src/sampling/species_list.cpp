#include "sampling/species_list.h"

#include "controls/bound_list.h"
#include "operations/stored_operation.h"

using namespace Qt::StringLiterals;

namespace kelvora {

namespace {

std::unique_ptr<ResultModel> caughtSpecies(Connection& connection, int operation) {
    return connection.model(Sql("SELECT distinct spid,fish.genus & ' ' & fish.fishname AS Species"
                                " FROM fish INNER JOIN group_composition ON fish.fishno ="
                                " group_composition.spid where optid = ")
                            << operation << " order by fish.genus & ' ' & fish.fishname");
}

}  // namespace

void fillSpecies(BoundList& list, Connection& connection) {
    list.refill(
        connection.model(Sql("select  fishno,genus &  ' ' & fishname as sp  from fish where fishno <> 0 order by sp")),
        u"sp"_s, u"fishno"_s);
}

void fillCaughtSpecies(BoundList& list, Connection& connection, int operation) {
    list.setSource(caughtSpecies(connection, operation), u"Species"_s, u"spid"_s);
}

void refillCaughtSpecies(BoundList& list, Connection& connection, int operation) {
    list.refill(caughtSpecies(connection, operation), u"Species"_s, u"spid"_s);
}

void requireSpecies(Connection& connection, const ChosenSpecies& species) {
    const ResultSet found =
        connection.query(Sql("select genus & ' ' & fishname as sp from fish where fishno = ") << species.number);
    if (found.isEmpty() || found.text(0, u"sp") != species.name) {
        const QString reason = u"the species %1 was deleted or renamed since it was chosen here"_s.arg(species.name);
        throw OriginLost(u"Nothing was stored: %1. What was entered is still on the screen."_s.arg(reason), reason);
    }
}

std::optional<ChosenSpecies> chosenSpecies(const BoundList& list) {
    const QVariant key = list.key();
    if (!key.isValid()) {
        return std::nullopt;
    }
    return ChosenSpecies{key.toInt(), list.row() < 0 ? list.text() : list.itemText(list.row())};
}

}  // namespace kelvora
