#pragma once

#include <QString>

namespace kelvora {

/// Where a file really is, all links followed; also for one that is not there yet.
QString placeOf(const QString& path);

/// Whether a path leads, by any name or link, to the data file or to something beside it that bears its name (journal,
/// lock, copies), or to any other database: nothing may be written there but by the engine.
bool belongsToDataFile(const QString& path, const QString& databasePath);

}  // namespace kelvora
