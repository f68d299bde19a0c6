#pragma once

#include <string>

namespace kelvora {

/// The statements of this program are written in the dialect of a desktop database. This is the one place that knows
/// how they run on SQLite:
///
///  - "a & b" joins texts; a null counts as an empty text, and the joined text compares as text columns do;
///  - "year(column) = 2004", within any parentheses, becomes a range of the column's ISO text, so that the index on the
///    date serves;
///  - a grouped statement without an order of its own comes in the order of its groups, a distinct one in the order of
///    its columns;
///  - year(), month() and format() are functions of the connection (registerFunctions).
///
/// Texts between quotes are never touched.
std::string translate(const std::string& statement);

}  // namespace kelvora
