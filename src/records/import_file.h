#pragma once

#include "data/csv_reader.h"

#include <QString>
#include <QStringList>

#include <optional>
#include <vector>

namespace kelvora {

/// A field of an import file: its name in the header, its caption in the preview, its width there in pixels.
struct ImportColumn {
    QString header;
    QString caption;
    int width = 66;
};

/// What a file has to look like. The header is compared group by group, each group so many columns further to the
/// right; a group fails only when all of its names differ.
struct ImportLayout {
    std::vector<ImportColumn> columns;
    std::vector<int> headerGroups;

    [[nodiscard]] int width() const { return static_cast<int>(columns.size()); }
};

/// Why a record is not the header of such a file; nothing if it is. Names are compared with regard to letter case.
std::optional<FormatFault> headerFault(const ImportLayout& layout, const CsvRecord& header);

/// Names the line of a record with too few or too many fields; empty if it has as many as columns.
QString unevenRecord(const ImportLayout& layout, const CsvRecord& record);

/// Records as the text of such a file, which an import can read again.
QByteArray importFileOf(const ImportLayout& layout, const std::vector<CsvRecord>& records);

/// A record that cannot be stored, and the captions of the columns that are the reason.
struct RefusedRecord {
    CsvRecord record;
    QStringList columns;
};

/// What became of the records of one save.
struct ImportOutcome {
    int stored = 0;
    int known = 0;                  ///< left out, since the same species is stored already
    int repeated = 0;               ///< left out, since the same vessel is stored already
    std::vector<CsvRecord> others;  ///< left out, since another boat of the name is stored already
    std::vector<RefusedRecord> refused;
};

/// The outcome in one line: "stored 1,065, already known 214, refused 0"; of vessels with what is known about them.
QString outcomeLine(const ImportOutcome& outcome);

/// Names the first ten refused records by their line, first field and columns.
QString refusalText(const std::vector<RefusedRecord>& refused);

/// The line under the rows of a file: how many there are, and how many empty ones were passed over.
QString countLine(qsizetype rows, int passedOver);

/// A whole number with its thousands set off by commas.
QString counted(qsizetype number);

}  // namespace kelvora
