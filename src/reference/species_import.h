#pragma once

#include "reference/import_file.h"

namespace kelvora {

/// The columns of a species file.
const ImportLayout& speciesLayout();

}  // namespace kelvora
