#pragma once

#include <QString>

namespace kelvora {

/// Where the data file of this user is: kelvora_db.sqlite in the application's data folder.
QString defaultStorePath();

/// Makes sure that a usable data file is at the path. A missing one is created with its tables, maturity stages and
/// first account. An existing one is checked; a file that is foreign, newer than this program, truncated, damaged or
/// not a database throws DataError with its path and the reason, and is not written to.
void prepareStore(const QString& path);

}  // namespace kelvora
