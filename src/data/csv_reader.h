#pragma once

#include <QString>
#include <QStringDecoder>
#include <QStringList>

#include <memory>
#include <optional>
#include <stdexcept>
#include <vector>

class QIODevice;

namespace kelvora {

/// One line of a comma-separated file. A quoted field may hold line ends, so it can span several lines of the file.
struct CsvRecord {
    int line = 1;  ///< where it begins, counted from 1
    QStringList fields;

    /// Whether none of its fields holds more than blanks.
    [[nodiscard]] bool isBlank() const;
    /// Whether nothing stands on its line.
    [[nodiscard]] bool isEmptyLine() const { return fields.size() == 1 && fields.first().isEmpty(); }
};

/// What is wrong with an import file, and in which line: "Line 3: a quote is never closed. Nothing was loaded."
class FormatFault : public std::runtime_error {
public:
    FormatFault(int line, const QString& what);
};

/// Why a record does not hold so many fields; names the sign that parts them where it is no comma.
FormatFault fieldCountFault(const CsvRecord& record, qsizetype wanted);

/// Takes a comma-separated file apart, record by record. Fields are separated by commas, records by CR, LF or CR LF.
/// Blanks in front of a field are left out; a field in double quotes loses them, keeps commas and line ends inside, and
/// has its doubled quotes undoubled. An empty line is a record with one empty field, but empty lines at the end are no
/// record. The bytes are UTF-8 if all of them are (a byte-order mark is skipped), otherwise code page 1252.
class CsvReader {
public:
    /// Throws DataError if the file cannot be read, is no ordinary file, or is larger than an import file may be.
    explicit CsvReader(const QString& path);
    /// Reads the bytes of a file.
    explicit CsvReader(const QByteArray& bytes);
    ~CsvReader();
    CsvReader(const CsvReader&) = delete;
    CsvReader& operator=(const CsvReader&) = delete;

    /// The next record, nothing behind the last one. Throws FormatFault for a quote that is never closed, a character
    /// U+0000 and UTF-16, DataError for a file of more lines than an import may have.
    std::optional<CsvRecord> next();

    /// How many bytes the file has, and how many of them are read.
    [[nodiscard]] int size() const { return m_size; }
    [[nodiscard]] int done() const { return m_done; }

private:
    explicit CsvReader(std::unique_ptr<QIODevice> source);
    void findEncoding();
    bool fill();
    [[nodiscard]] bool atEnd() { return m_at == m_text.size() && !fill(); }
    [[nodiscard]] QChar here() const { return m_text[m_at]; }
    void take(int startLine);
    void passLineEnd();
    bool passComma();
    void readField();
    void readQuoted();
    void readPlain();
    CsvRecord record();

    std::unique_ptr<QIODevice> m_source;
    std::optional<QStringDecoder> m_utf8;  ///< none for code page 1252
    QString m_text;                        ///< the piece of the file that is being read
    qsizetype m_at = 0;
    QString m_field;  ///< the field that is being read
    int m_size = 0;
    int m_done = 0;
    int m_line = 1;
    int m_emptyLines = 0;  ///< to be returned before the record behind them
    std::optional<CsvRecord> m_behind;
    QStringList m_before;  ///< the fields of the record before
};

/// All records that a reader has still to read.
std::vector<CsvRecord> readCsv(CsvReader&& reader);

}  // namespace kelvora
