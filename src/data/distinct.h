#pragma once

#include "data/tokens.h"

#include <string>

/// How lists of distinct rows are asked for: by looking up what is on them instead of reading everything that is behind
/// them. The rows are the same.
namespace kelvora::dialect {

/// Behind the number of a year: the end of its last day, behind whatever time of day another tool wrote there.
inline constexpr const char* kEndOfYear = "-12-31~";

/// "SELECT DISTINCT … FROM a INNER JOIN b ON a.x = b.y …", nothing else of a being used: a row of b needs one row of a,
/// whichever, so the join becomes "EXISTS". An operation of twenty species is then looked at once.
void semiJoin(Tokens& tokens);

/// "SELECT DISTINCT year(date) FROM …" as one look at the index on the date for each year; empty for another statement,
/// and for one that asks for another order than that of the years.
std::string yearsSought(const Tokens& tokens, const Clauses& found);

}  // namespace kelvora::dialect
