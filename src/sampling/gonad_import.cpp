#include "sampling/gonad_import.h"

#include "data/numbers.h"

#include <array>

using namespace Qt::StringLiterals;

namespace kelvora {
namespace {

struct Column {
    const char* header;
    FishField field;
};

constexpr std::array<Column, 8> kColumns = {{
    {"TL", &GonadFish::tl},
    {"BL", &GonadFish::bl},
    {"FL", &GonadFish::fl},
    {"SL", &GonadFish::sl},
    {"BW", &GonadFish::bw},
    {"SEX", &GonadFish::sex},
    {"Stage", &GonadFish::stage},
    {"GW", &GonadFish::gw},
}};

constexpr auto kWidth = static_cast<qsizetype>(kColumns.size());

/// Whether a name of the header is in its place; a header that breaks off has fewer.
bool isHeader(const QStringList& fields) {
    for (qsizetype i = 0; i < fields.size(); ++i) {
        if (fields[i] == QLatin1String(kColumns[static_cast<std::size_t>(i)].header)) {
            return true;
        }
    }
    return false;
}

}  // namespace

QString importedSex(const QString& code) {
    static const QStringList female = {u"Female"_s, u"F"_s, u"FEMALE"_s, u"female"_s, u"f"_s};
    static const QStringList male = {u"Male"_s, u"M"_s, u"MALE"_s, u"male"_s, u"m"_s};
    if (female.contains(code)) {
        return female.first();
    }
    return male.contains(code) ? male.first() : u"None"_s;
}

bool FishReader::beginLine() {
    std::optional<CsvRecord> line = m_csv.next();
    if (!line) {
        return false;
    }
    if (m_fields.isEmpty()) {
        m_first = line->line;
    }
    if (m_uneven.line == 0 && line->fields.size() != kWidth && !(m_fields.isEmpty() && line->isEmptyLine())) {
        m_uneven = *line;
    }
    m_line = std::move(*line);
    m_at = 0;
    return true;
}

bool FishReader::readFields() {
    m_fields.clear();
    while (m_fields.size() < kWidth) {
        if (m_at == m_line.fields.size()) {
            if (!beginLine()) {
                break;
            }
            if (m_fields.isEmpty() && m_line.isEmptyLine()) {
                ++m_passedOver;
                m_at = 1;
            }
            continue;
        }
        m_fields.append(m_line.fields[m_at++]);
        if (m_fields.size() == kWidth && CsvRecord{m_first, m_fields}.isBlank()) {
            ++m_passedOver;
            m_fields.clear();
        }
    }
    if (!m_fields.isEmpty() && m_fields.size() < kWidth) {
        throw fieldCountFault(m_uneven, kWidth);
    }
    return !m_fields.isEmpty();
}

bool FishReader::readHeader() {
    try {
        if (!readFields()) {
            return false;
        }
    } catch (const FormatFault& fault) {
        if (isHeader(m_fields)) {
            throw;
        }
        throw HeaderFault(fault);
    }
    if (!isHeader(m_fields)) {
        throw HeaderFault(FormatFault(m_first, u"none of the names TL,BL,FL,SL,BW,SEX,Stage,GW is in its place"_s));
    }
    return true;
}

std::optional<GonadFish> FishReader::next() {
    if (!readFields()) {
        return std::nullopt;
    }
    if (++m_fish > kLargestKey) {
        throw FormatFault(m_first, u"more than 32,767 fish"_s);
    }
    GonadFish fish;
    for (qsizetype i = 0; i < kWidth; ++i) {
        fish.*kColumns[static_cast<std::size_t>(i)].field = m_fields[i];
    }
    fish.sex = importedSex(fish.sex);
    return fish;
}

}  // namespace kelvora
