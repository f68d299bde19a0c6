#pragma once

#include <QDate>
#include <QString>
#include <QStringList>

class QAbstractItemModel;

namespace kelvora {

/// The lines of a table's rows as they are shown: every value is followed by a comma, the last one too. Texts are
/// written bare: without quotes around them and with their own commas as they are.
QStringList csvRows(const QAbstractItemModel& table);

/// The same, behind a line of the table's captions.
QStringList csvTable(const QAbstractItemModel& table);

/// The title line that says on which day an export was made, the date in the system's short form.
QString exportDateLine(const QDate& day);

/// Writes the lines of an export, each ended by carriage return and line feed, in the system's 8-bit encoding, in which
/// a character that it lacks becomes "?". A file that was there is replaced only when the new one is complete; throws
/// std::runtime_error in plain words when it cannot be written.
void saveCsv(const QString& path, const QStringList& lines, const QString& databasePath);

}  // namespace kelvora
