#pragma once

#include "records/operation_store.h"

#include <QString>

#include <functional>
#include <vector>

namespace kelvora {

/// The shown name of a species, genus and epithet, of a row of the table fish; it compares and sorts as the text
/// columns do.
inline constexpr Literal kSpeciesName = "(ifnull(fish.genus,'') || ' ' || ifnull(fish.fishname,'')) COLLATE NOCASE";

/// A species as the sampler chose it.
struct ChosenSpecies {
    int number = 0;
    QString name;  ///< as a list shows it, however it was typed
};

/// All species of the catalogue by their shown names: fishno, sp.
Sql catalogueSpecies();

/// The species of an operation's composition by their shown names: spid, Species. Only what was in the catch can have
/// been measured.
Sql caughtSpecies(int operation);

/// The species of a result, which has their numbers as "fishno" and their shown names as "Species".
std::vector<ChosenSpecies> speciesIn(const ResultSet& found);

/// To be called inside the transaction that stores for a species. Throws OriginLost unless the catalogue still has it
/// under this number with this name: the number of a deleted species is given anew.
void requireSpecies(Connection& connection, const ChosenSpecies& species);
/// The same for the operation and the species that were in its catch.
void requireCatch(Connection& connection, const StoredOperation& operation, const ChosenSpecies& species);

/// A species of the catalogue as it is entered or imported.
struct SpeciesEntry {
    QString family, genus, epithet, commonName;
};

/// The catalogue as it was entered: fishno, family, genus, fishname, common_name. The row 0 is reserved for no species.
Sql speciesAsEntered();
/// Stores a species under the next number, unless one of this family, genus and epithet is stored already. Returns
/// its number, nothing if it was stored already. The last number is given where it is known.
std::optional<int> AddSpecies(Connection& connection, const SpeciesEntry& species, std::optional<int> last = {});
/// Whether a sample has the species.
bool isSpeciesUsed(Connection& connection, int species);
/// Deletes a species, asks, and leaves it deleted on Yes; returns the answer.
bool deleteSpecies(Connection& connection, int species, const std::function<bool()>& ask);

}  // namespace kelvora
