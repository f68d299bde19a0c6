#pragma once

#include <QByteArray>
#include <QString>

namespace kelvora {

// What stands behind the name of a data file in the names of the files beside it.
inline constexpr QLatin1String kJournal("-journal");  ///< the engine's own record of an unfinished save
inline constexpr QLatin1String kLog("-wal");          ///< saves that another tool's mode keeps out of the file
inline constexpr QLatin1String kLogIndex("-shm");

/// Where a file really is, all links followed; also for one that is not there yet.
QString placeOf(const QString& path);

/// Whether a path leads, by any name or link, to the data file or to something beside it that bears its name (journal,
/// lock, copies), or to any other database: nothing may be written there but by the engine.
bool belongsToDataFile(const QString& path, const QString& databasePath);

/// Renames files that were left beside a data file that is gone, or was replaced: the date is put behind their names.
/// Returns false if one cannot be renamed. Those that are not there are passed over.
bool setAside(const QString& path, const QStringList& endings);

/// Copies a data file, with its journal and log, to another name, over what was copied there before. Returns why that
/// is not possible; nothing if it was.
QString copyAside(const QString& path, const QString& copy);
void removeCopy(const QString& copy);

/// A path as typed, with ".csv" behind it where no ending was typed.
QString withCsvEnding(const QString& path);

/// Writes a file. A file that was there is replaced only when the new one is complete. When it cannot be written,
/// throws std::runtime_error with the refusal, the reason and the path; so it does for what belongs to the data file,
/// which is named because nothing that the sampler writes may replace it.
void writeWholeFile(const QString& path, const QByteArray& bytes, const QString& refusal, const QString& databasePath);

}  // namespace kelvora
