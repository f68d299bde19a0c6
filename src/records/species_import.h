#pragma once

#include "records/import_file.h"

namespace kelvora {

/// The columns of a species file.
const ImportLayout& speciesLayout();

}  // namespace kelvora
