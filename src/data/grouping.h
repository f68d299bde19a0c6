#pragma once

#include "data/tokens.h"

namespace kelvora::dialect {

/// "SELECT …, Sum(x), … GROUP BY t.a & t.b": groups that are texts of one table's rows, as the names of species are.
/// The rows are summed by the table's key first, which is a number, and the sums by the text: tens of thousands of
/// weights are then sorted by numbers, and a name is made once for each species. Nothing is done to another statement.
void sumByKey(Tokens& tokens);

}  // namespace kelvora::dialect
