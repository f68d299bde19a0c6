#include "sampling/species_list.h"

#include "controls/bound_list.h"

using namespace Qt::StringLiterals;

namespace kelvora {

void fillSpecies(BoundList& list, Connection& connection) {
    list.refill(connection.model(catalogueSpecies()), u"sp"_s, u"fishno"_s);
}

void fillCaughtSpecies(BoundList& list, Connection& connection, int operation) {
    list.setSource(connection.model(caughtSpecies(operation)), u"Species"_s, u"spid"_s);
}

void refillCaughtSpecies(BoundList& list, Connection& connection, int operation) {
    list.refill(connection.model(caughtSpecies(operation)), u"Species"_s, u"spid"_s);
}

std::optional<ChosenSpecies> chosenSpecies(const BoundList& list) {
    const QVariant key = list.key();
    if (!key.isValid()) {
        return std::nullopt;
    }
    return ChosenSpecies{key.toInt(), list.row() < 0 ? list.text() : list.itemText(list.row())};
}

}  // namespace kelvora
