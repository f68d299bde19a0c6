#pragma once

#include <QString>
#include <QStringList>

#include <vector>

namespace kelvora {

/// One line of a comma-separated file. A quoted field may hold line ends, so it can span several lines of the file.
struct CsvRecord {
    int line = 1;  ///< where it begins, counted from 1
    QStringList fields;
};

/// Takes a comma-separated text apart. Fields are separated by commas, records by CR, LF or CR LF. Blanks in front of a
/// field are left out; a field in double quotes loses them, keeps commas and line ends inside, and has its doubled
/// quotes undoubled. An empty line is a record with one empty field, but empty lines at the end are no record.
std::vector<CsvRecord> parseCsv(QStringView text);

/// The text of a file's bytes: UTF-8 if they are (a byte-order mark is skipped), otherwise the system's 8-bit encoding,
/// and Latin-1 where that is UTF-8 too.
QString decodedText(const QByteArray& bytes);

/// The bytes of an import file. Throws DataError if it cannot be read, or is larger than 64 MB and so no import file.
QByteArray readImportFile(const QString& path);

}  // namespace kelvora
