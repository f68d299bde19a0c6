#pragma once

#include "data/sql.h"

#include <optional>
#include <string>
#include <vector>

namespace kelvora {

/// The statements of this program are written in the dialect of a desktop database. This is the one place that knows
/// how they run on SQLite:
///
///  - "a & b" joins texts; a null counts as an empty text, and the joined text compares as text columns do;
///  - "year(column) = 2004", within any parentheses, becomes a range of the column's ISO text, so that the index on the
///    date serves;
///  - a grouped statement without an order of its own comes in the order of its groups, a distinct one in the order of
///    its columns;
///  - year(), month() and format() are functions of the connection (registerFunctions);
///  - "TRANSFORM … PIVOT …" is taken apart (parseCrosstab) and pivoted in code.
///
/// Texts between quotes are never touched.
std::string translate(const std::string& statement);

/// A statement as it runs.
struct RunnableSql {
    std::string text;
    std::vector<Sql::Value> values;
};

/// The translated statement. A year becomes a part of the statement itself: it has no values then.
RunnableSql translated(const Sql& sql);

/// The statement with its values written into it.
std::string written(const Sql& sql);

/// A crosstab statement taken apart.
struct Crosstab {
    enum class Aggregate { Sum, Count };

    Aggregate aggregate = Aggregate::Sum;
    std::vector<std::string> rowHeaders;  ///< caption of each row column
    std::vector<int> rowOrder;            ///< for each row column 1 (ascending) or -1
    int columnOrder = 1;                  ///< the same for the pivoted columns
    std::string statement;                ///< rows to pivot: the row columns, the pivot value, the aggregated value
};

/// Nothing for a statement that is not a crosstab; throws std::invalid_argument for a malformed one.
std::optional<Crosstab> parseCrosstab(const std::string& statement);

}  // namespace kelvora
