#pragma once

namespace SQLite {
class Database;
}

namespace kelvora {

/// Makes known to a connection what its statements ask for and the engine does not have:
///
///  - two_decimals(value): a number as text with two decimals, half away from zero on the decimal value; null for null,
///    a text that is no number as it is;
///  - year_number(date), month_number(date): whole numbers; null for a null and for a text that is no ISO date;
///  - month_name(date): the full name of the month in the system's language; null as above.
void registerFunctions(SQLite::Database& database);

}  // namespace kelvora
