#pragma once

#include "data/connection.h"

#include <vector>

namespace kelvora {

/// The years in which gonads were examined, in the column gyear.
Sql gonadYears();

/// Four tables of the fish of a species in a year: how many were of each sex in each month, and how many females, males
/// and fish of unidentified sex were in each maturity stage. Months come by their names from A to Z, those of the
/// females from Z to A; columns by their texts. A month without such fish is empty there. Stages are named by number
/// and name ("1-Immature"); fish of a stage that is not registered are in the first table only.
std::vector<ResultSet> gonadTables(Connection& connection, int year, int fishno);

}  // namespace kelvora
