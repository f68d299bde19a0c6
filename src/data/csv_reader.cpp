#include "data/csv_reader.h"

#include "data/errors.h"

#include <QDir>
#include <QFile>
#include <QStringConverter>

using namespace Qt::StringLiterals;

namespace kelvora {
namespace {

/// Reads one field after the other and counts the lines it passes.
class FieldReader {
public:
    explicit FieldReader(QStringView text) : m_text(text) {}

    [[nodiscard]] bool atEnd() const { return m_at == m_text.size(); }
    [[nodiscard]] int line() const { return m_line; }

    QString field() {
        while (!atEnd() && (here() == u' ' || here() == u'\t')) {
            ++m_at;
        }
        return !atEnd() && here() == u'"' ? quoted() : plain();
    }

    /// Passes the comma or line end behind a field; returns whether a further field of the record follows.
    bool comma() {
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

private:
    [[nodiscard]] QChar here() const { return m_text[m_at]; }
    [[nodiscard]] bool atFieldEnd() const { return atEnd() || here() == u',' || here() == u'\r' || here() == u'\n'; }

    void passLineEnd() {
        const bool pair = here() == u'\r' && m_at + 1 < m_text.size() && m_text[m_at + 1] == u'\n';
        m_at += pair ? 2 : 1;
        ++m_line;
    }

    QString plain() {
        const qsizetype start = m_at;
        while (!atFieldEnd()) {
            ++m_at;
        }
        return m_text.sliced(start, m_at - start).toString();
    }

    QString quoted() {
        QString value;
        for (++m_at; !atEnd(); ++m_at) {
            if (here() == u'"') {
                ++m_at;
                if (atEnd() || here() != u'"') {
                    break;
                }
            }
            if (here() == u'\n' || (here() == u'\r' && (m_at + 1 == m_text.size() || m_text[m_at + 1] != u'\n'))) {
                ++m_line;
            }
            value += here();
        }
        const QString behind = plain();
        return behind.trimmed().isEmpty() ? value : value + behind;
    }

    QStringView m_text;
    qsizetype m_at = 0;
    int m_line = 1;
};

}  // namespace

std::vector<CsvRecord> parseCsv(QStringView text) {
    std::vector<CsvRecord> records;
    FieldReader reader(text);
    while (!reader.atEnd()) {
        CsvRecord record{reader.line(), {}};
        do {
            record.fields.append(reader.field());
        } while (reader.comma());
        records.push_back(std::move(record));
    }
    while (!records.empty() && records.back().fields == QStringList{QString()}) {
        records.pop_back();
    }
    return records;
}

QString decodedText(const QByteArray& bytes) {
    QStringDecoder utf8(QStringDecoder::Utf8);
    QString text = utf8(bytes);
    if (!utf8.hasError()) {
        return text;
    }
    QStringDecoder system(QStringDecoder::System);
    text = system(bytes);
    return system.hasError() ? QString::fromLatin1(bytes) : text;
}

QByteArray readImportFile(const QString& path) {
    constexpr qint64 most = qint64{64} * 1024 * 1024;
    const auto fail = [&path](const QString& reason) {
        throw DataError(u"The file cannot be read: %1.\n\n%2"_s.arg(reason, QDir::toNativeSeparators(path)), reason);
    };
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        fail(file.errorString());
    }
    if (file.size() > most) {
        fail(u"it is too large for an import file"_s);
    }
    QByteArray bytes = file.readAll();
    if (file.error() != QFileDevice::NoError) {
        fail(file.errorString());
    }
    return bytes;
}

}  // namespace kelvora
