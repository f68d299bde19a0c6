#pragma once

#include "data/dialect.h"
#include "data/result_set.h"

namespace kelvora {

/// Pivots the rows of a crosstab's statement: one row for each distinct set of row values, one column for each distinct
/// pivot value (headed by it, "<>" for null), and in each cell the sum or count of the values that are not null; an
/// empty cell where there is none. Rows and columns come in the crosstab's order, numbers by size, texts without regard
/// to letter case.
ResultSet pivoted(const Crosstab& crosstab, const ResultSet& rows);

}  // namespace kelvora
