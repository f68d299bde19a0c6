#pragma once

#include "data/connection.h"

namespace kelvora {

/// The years in which lengths were measured, in the column gyear.
Sql lengthYears();

/// How many columns describe a length class, in front of its months.
constexpr int kClassColumns = 3;

/// How many fish of a species were measured in a year: one row a length class (lower and upper limit and middle in cm),
/// ascending, and behind these one column a month that has any, by the month's name from Z to A. A class without a fish
/// in a month is empty there.
ResultSet lengthsByMonth(Connection& connection, int year, int fishno);

}  // namespace kelvora
