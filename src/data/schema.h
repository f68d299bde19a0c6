#pragma once

#include <string>
#include <vector>

namespace kelvora {

/// Marks a file as one of this program ("KELV").
inline constexpr unsigned kApplicationId = 0x4B454C56;

/// Counts up whenever the tables change.
inline constexpr unsigned kSchemaVersion = 1;

struct Table {
    const char* name;
    std::vector<const char*> columns;  ///< each as declared, in stored order
    const char* key;                   ///< declared key over several columns, or empty
};

/// The sixteen tables.
const std::vector<Table>& tables();

/// The statements that make an empty file a data file: tables, indexes, maturity stages, the first account.
std::vector<std::string> schemaStatements();

}  // namespace kelvora
