#include "data/csv_reader.h"

#include "data/errors.h"

#include <QBuffer>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <array>
#include <utility>

using namespace Qt::StringLiterals;

namespace kelvora {
namespace {

// What is read of so large a file, all its fields different, takes three times as much.
constexpr qint64 kMostBytes = 64'000'000;
constexpr int kMostLines = 100'000;
// Far more than a name or a note takes: a field that long is one that swallows the lines behind it.
constexpr qsizetype kLongestField = 32'767;
// A line may hold several fish, but not more fields than all fish of the largest sample and their header.
constexpr qsizetype kMostFields = qsizetype{8} * 32'768;
constexpr QStringView kTooLarge = u"it is too large for an import file";
constexpr qint64 kPiece = qint64{256} * 1024;

/// Code page 1252 is Latin-1 but for these.
QString fromCodePage1252(const QByteArray& bytes) {
    constexpr std::array<char16_t, 32> from0x80 = {
        0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
        0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
        0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178,
    };
    QString text = QString::fromLatin1(bytes);
    for (QChar& letter : text) {
        if (letter >= QChar(0x80) && letter < QChar(0xA0)) {
            letter = QChar(from0x80[letter.unicode() - 0x80U]);
        }
    }
    return text;
}

[[noreturn]] void refuseFile(const QString& path, const QString& reason) {
    throw DataError(u"The file cannot be read: %1.\n\n%2"_s.arg(reason, QDir::toNativeSeparators(path)), reason);
}

QString nameOf(const QIODevice& source) {
    const auto* file = qobject_cast<const QFile*>(&source);
    return file == nullptr ? QString() : file->fileName();
}

/// The file to import from, opened. A device or a pipe is not even opened: it may never end, or never begin.
std::unique_ptr<QIODevice> opened(const QString& path) {
    const QFileInfo info(path);
    if (info.exists() && !info.isFile()) {
        refuseFile(path, u"it is no ordinary file"_s);
    }
    auto file = std::make_unique<QFile>(path);
    if (!file->open(QIODevice::ReadOnly)) {
        refuseFile(path, file->errorString());
    }
    if (file->size() > kMostBytes) {
        refuseFile(path, kTooLarge.toString());
    }
    return file;
}

std::unique_ptr<QIODevice> inMemory(const QByteArray& bytes) {
    auto buffer = std::make_unique<QBuffer>();
    buffer->setData(bytes);
    buffer->open(QIODevice::ReadOnly);
    return buffer;
}

FormatFault neverClosed(int line) {
    return {line, u"a quote (\") is never closed"_s};
}

}  // namespace

bool CsvRecord::isBlank() const {
    return std::ranges::all_of(fields, [](const QString& field) { return field.trimmed().isEmpty(); });
}

FormatFault::FormatFault(int line, const QString& what)
    : std::runtime_error(u"Line %1: %2. Nothing was loaded."_s.arg(line).arg(what).toStdString()) {}

FormatFault fieldCountFault(const CsvRecord& record, qsizetype wanted) {
    for (const auto& [sign, name] : {std::pair{u';', u"semicolons"_s}, std::pair{u'\t', u"tabs"_s}}) {
        if (record.fields.first().contains(sign)) {
            return {record.line, u"the fields are parted by %1, not by commas"_s.arg(name)};
        }
    }
    return {record.line, u"%1 fields, not %2"_s.arg(record.fields.size()).arg(wanted)};
}

CsvReader::CsvReader(const QString& path) : CsvReader(opened(path)) {}

CsvReader::CsvReader(const QByteArray& bytes) : CsvReader(inMemory(bytes)) {}

CsvReader::CsvReader(std::unique_ptr<QIODevice> source)
    : m_source(std::move(source)), m_size(static_cast<int>(m_source->size())) {
    findEncoding();
}

CsvReader::~CsvReader() = default;

void CsvReader::findEncoding() {
    QStringDecoder utf8(QStringDecoder::Utf8);
    while (!utf8.hasError() && m_source->pos() <= kMostBytes) {
        const QByteArray bytes = m_source->read(kPiece);
        if (bytes.isEmpty()) {
            break;
        }
        const QString decoded = utf8(bytes);
    }
    const QString cutLetter = utf8("\n");  // an error where the file ends within a letter
    if (!utf8.hasError()) {
        m_utf8.emplace(QStringDecoder::Utf8);
    }
    m_source->seek(0);
}

bool CsvReader::fill() {
    m_text.clear();
    m_at = 0;
    // A piece may end within a letter, and then gives no text of its own.
    while (m_text.isEmpty()) {
        const QByteArray bytes = m_source->read(kPiece);
        const auto* file = qobject_cast<const QFile*>(m_source.get());
        if (file != nullptr && file->error() != QFileDevice::NoError) {
            refuseFile(file->fileName(), file->errorString());
        }
        if (bytes.isEmpty()) {
            return false;
        }
        if (m_done == 0 && (bytes.startsWith("\xFF\xFE") || bytes.startsWith("\xFE\xFF"))) {
            throw FormatFault(1, u"the file is UTF-16 text, not UTF-8"_s);
        }
        m_done += static_cast<int>(bytes.size());
        if (m_done > kMostBytes) {
            refuseFile(nameOf(*m_source), kTooLarge.toString());
        }
        m_text = m_utf8 ? (*m_utf8)(bytes) : fromCodePage1252(bytes);
    }
    return true;
}

void CsvReader::take(int startLine) {
    if (here().isNull()) {
        throw FormatFault(m_line, u"a character U+0000, as in UTF-16 text or a damaged file"_s);
    }
    if (m_field.size() == kLongestField) {
        throw FormatFault(startLine,
                          u"a field of more than 32,767 letters, perhaps a quote (\") that is never closed"_s);
    }
    m_field += here();
    ++m_at;
}

void CsvReader::passLineEnd() {
    const bool pair = here() == u'\r';
    ++m_at;
    if (pair && !atEnd() && here() == u'\n') {
        ++m_at;
    }
    ++m_line;
}

bool CsvReader::passComma() {
    if (atEnd()) {
        return false;
    }
    if (here() == u',') {
        ++m_at;
        return true;
    }
    passLineEnd();
    return false;
}

void CsvReader::readQuoted() {
    const int start = m_line;
    ++m_at;
    bool carriageReturn = false;
    for (;; take(start)) {
        if (atEnd() || m_line > kMostLines) {
            throw neverClosed(start);
        }
        if (here() == u'"') {
            ++m_at;
            if (atEnd() || here() != u'"') {
                break;
            }
        }
        m_line += here() == u'\r' || (here() == u'\n' && !carriageReturn) ? 1 : 0;
        carriageReturn = here() == u'\r';
    }
    const qsizetype quoted = m_field.size();
    readPlain();
    if (QStringView(m_field).sliced(quoted).trimmed().isEmpty()) {
        m_field.truncate(quoted);
    } else if (m_line > start) {
        // What closed it is the quote that opens a field of a later line.
        throw neverClosed(start);
    }
}

void CsvReader::readPlain() {
    while (!atEnd() && here() != u',' && here() != u'\r' && here() != u'\n') {
        take(m_line);
    }
}

void CsvReader::readField() {
    m_field.resize(0);
    while (!atEnd() && (here() == u' ' || here() == u'\t')) {
        ++m_at;
    }
    if (!atEnd() && here() == u'"') {
        readQuoted();
    } else {
        readPlain();
    }
}

CsvRecord CsvReader::record() {
    if (m_line > kMostLines) {
        refuseFile(nameOf(*m_source), u"it has more than 100,000 lines"_s);
    }
    CsvRecord record{m_line, {}};
    record.fields.reserve(m_before.size());
    do {
        if (record.fields.size() == kMostFields) {
            throw FormatFault(m_line, u"more than 262,144 fields"_s);
        }
        readField();
        // A column often says the same line after line: the text is kept once.
        const qsizetype column = record.fields.size();
        const bool same = column < m_before.size() && m_before[column] == m_field;
        record.fields.append(same ? m_before[column] : QString(m_field.constData(), m_field.size()));
    } while (passComma());
    m_before = record.fields;
    return record;
}

std::optional<CsvRecord> CsvReader::next() {
    // Empty lines wait until a record follows them: those at the end of a file are no records.
    while (!m_behind) {
        if (atEnd()) {
            return std::nullopt;
        }
        m_behind = record();
        if (m_behind->isEmptyLine()) {
            m_behind.reset();
            ++m_emptyLines;
        }
    }
    if (m_emptyLines > 0) {
        return CsvRecord{m_behind->line - m_emptyLines--, {QString()}};
    }
    return std::exchange(m_behind, std::nullopt);
}

std::vector<CsvRecord> readCsv(CsvReader&& reader) {
    std::vector<CsvRecord> records;
    while (std::optional<CsvRecord> record = reader.next()) {
        records.push_back(std::move(*record));
    }
    return records;
}

}  // namespace kelvora
