#pragma once

#include "data/connection.h"

#include <QString>

#include <optional>

namespace kelvora {

class BoundList;

/// Fills a list with all species of the catalogue, shown as genus and species. A chosen one stays chosen.
void fillSpecies(BoundList& list, Connection& connection);

/// Fills a list with the species of an operation's composition: only what was in the catch can have been measured.
void fillCaughtSpecies(BoundList& list, Connection& connection, int operation);
/// The same for the operation that the list was filled for: a chosen species stays chosen.
void refillCaughtSpecies(BoundList& list, Connection& connection, int operation);

/// A species chosen in a list.
struct ChosenSpecies {
    int number = 0;
    QString name;  ///< as the list shows it, however it was typed
};

/// To be called inside the transaction that stores for a species. Throws OriginLost unless the catalogue still has it
/// under this number with this name: the number of a deleted species is given anew.
void requireSpecies(Connection& connection, const ChosenSpecies& species);

/// The species that a list stands on; nothing if none is chosen or the typed text is none.
std::optional<ChosenSpecies> chosenSpecies(const BoundList& list);

}  // namespace kelvora
