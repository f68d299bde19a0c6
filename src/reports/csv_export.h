#pragma once

#include <QDate>
#include <QString>
#include <QStringList>

class QAbstractItemModel;

namespace kelvora {

/// The lines of an export, each ended by carriage return and line feed. Texts are written bare: without quotes around
/// them and with their own commas as they are.
class CsvText {
public:
    /// A title or header line; without a text an empty line.
    void addLine(const QString& text = {});
    /// A data line: every value is followed by a comma, the last one too.
    void addValues(const QStringList& values);
    /// A grid as it is shown: a data line of its captions and one of each row.
    void addGrid(const QAbstractItemModel& grid);

    [[nodiscard]] const QString& text() const { return m_text; }

private:
    QString m_text;
};

/// The title line that says on which day an export was made, the date in the system's short form.
QString exportDateLine(const QDate& day);

/// Writes an export in the system's 8-bit encoding, in which a character that it lacks becomes "?". A file that was
/// there is replaced only when the new one is complete; throws std::runtime_error in plain words when it cannot be
/// written.
void saveCsv(const QString& path, const CsvText& csv, const QString& databasePath);

}  // namespace kelvora
