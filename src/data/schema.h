#pragma once

#include <vector>

namespace kelvora {

struct Table {
    const char* name;
    std::vector<const char*> columns;  ///< each as declared, in stored order
    const char* key;                   ///< declared key over several columns, or empty
};

/// The sixteen tables, for the dialect layer alone.
const std::vector<Table>& tables();

}  // namespace kelvora
