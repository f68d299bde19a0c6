#pragma once

#include "records/species.h"

#include <optional>

namespace kelvora {

class BoundList;

/// Fills a list with all species of the catalogue, shown as genus and species. A chosen one stays chosen.
void fillSpecies(BoundList& list, Connection& connection);

/// Fills a list with the species of an operation's composition: only what was in the catch can have been measured.
void fillCaughtSpecies(BoundList& list, Connection& connection, int operation);
/// The same for the operation that the list was filled for: a chosen species stays chosen.
void refillCaughtSpecies(BoundList& list, Connection& connection, int operation);

/// The species that a list stands on; nothing if none is chosen or the typed text is none.
std::optional<ChosenSpecies> chosenSpecies(const BoundList& list);

}  // namespace kelvora
