#pragma once

#include "data/connection.h"

#include <initializer_list>

namespace kelvora {

/// A column and the name that is looked for in it.
struct Named {
    Literal column;
    QString text;
};

/// The rows of a query that have the names, for a look-up before a name is added:
///
///     rowsNamed(connection, Sql("select * from state where "), {{"statename", name}})
///
/// The data file compares A to Z only, so that every program can open it; where it finds nothing, the names are
/// compared here. The query ends in "where " or "and " and selects the columns.
ResultSet rowsNamed(Connection& connection, const Sql& query, std::initializer_list<Named> names);

/// Whether a query finds a row.
bool finds(Connection& connection, const Sql& query);

/// Whether a query finds a row that has the names.
bool findsNamed(Connection& connection, const Sql& query, std::initializer_list<Named> names);

}  // namespace kelvora
