#pragma once

#include "data/connection.h"

#include <QString>

namespace kelvora {

/// Where the data file of this user is: kelvora_db.sqlite in the application's data folder.
QString defaultStorePath();

/// What came of the data file at the start.
struct StoreState {
    QString line;  ///< what the sampler has to know of it before signing in, with its path; empty if nothing
    bool usable = true;
};

/// Makes sure that a usable data file is at the path. A missing one is created with its tables, maturity stages and
/// first account. An existing one is checked; a file that is foreign, newer than this program, truncated, damaged or
/// not a database throws DataError with its path and the reason, and is not written to. A place that cannot be written
/// to is no fault of the file: the line says so, and where the file cannot be read without writing it is not usable
/// yet.
///
/// A file that another program holds is waited for as a connection does; then it is not usable yet.
StoreState prepareStore(const QString& path, const Connection::Waiting& waiting = {});

}  // namespace kelvora
