#pragma once

#include "data/connection.h"
#include "records/import_file.h"

#include <functional>

namespace kelvora {

/// The columns of a species file.
const ImportLayout& speciesLayout();

/// Stores the species that are new, in one transaction; counts every one of them.
ImportOutcome storeSpecies(Connection& connection, const std::vector<CsvRecord>& species,
                           const std::function<void()>& count);

}  // namespace kelvora
