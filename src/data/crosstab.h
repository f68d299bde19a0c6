#pragma once

#include "data/result_set.h"

namespace kelvora {

/// Spreads groups over columns. A group is its row, so many cells, then its column and a number: the table has one row
/// for each row and one column for each column ("<>" for null) with the sum of the numbers in its cells, an empty cell
/// where there is none. Both ascend, nulls before numbers before texts, texts without regard to letter case: of those
/// that differ in nothing else the first one found is shown.
ResultSet crosstab(const ResultSet& groups, int rowColumns);

}  // namespace kelvora
