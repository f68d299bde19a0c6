#include "records/gonad_fish.h"

#include "data/numbers.h"

#include <cmath>

using namespace Qt::StringLiterals;

namespace kelvora {
namespace {

/// The number that a text starts with; 0 for one that is too large to be a number at all.
double fishNumber(const QString& text) {
    const double value = leadingNumber(text);
    return std::isfinite(value) ? value : 0;
}

/// Stages are numbered like everything else that is looked up: "3" and "3-Ripe" are stage 3, what cannot be the number
/// of a stage is stage 0.
int stageNumber(const QString& text) {
    const double number = std::trunc(fishNumber(text));
    return number >= 0 && number <= kLargestKey ? static_cast<int>(number) : 0;
}

constexpr auto kFishWidth = static_cast<qsizetype>(kFishFields.size());

/// Whether a name of the header is in its place; a header that breaks off has fewer.
bool isFishHeader(const QStringList& fields) {
    for (qsizetype i = 0; i < fields.size(); ++i) {
        if (fields[i] == QLatin1String(kFishFields[static_cast<std::size_t>(i)].name)) {
            return true;
        }
    }
    return false;
}

/// Whether a text is stored as it stands. Stages are whole numbers that may have their name behind them.
bool isStoredAsItStands(const GonadFish& fish, FishField field) {
    const QString text = (fish.*field).trimmed();
    if (text.isEmpty() || field != &GonadFish::stage) {
        return text.isEmpty() || isNumeric(text);
    }
    return text.front() >= u'0' && text.front() <= u'9' && storedNumber(fish, field) == leadingNumber(text);
}

}  // namespace

// Gonad weight as a percentage of body weight, the form that fisheries biology reports it in: V. de Vlaming,
// G. Grossman and F. Chapman, "On the use of the gonosomatic index", Comparative Biochemistry and Physiology 73A
// (1982).
std::optional<double> gonadoSomaticIndex(double gonadWeight, double bodyWeight) {
    if (!(bodyWeight > 0)) {
        return std::nullopt;
    }
    const double index = gonadWeight / bodyWeight * 100;
    return std::isfinite(index) ? std::optional(readable(index)) : std::nullopt;
}

std::optional<Refusal> fishRefusal(const GonadFish& fish) {
    for (std::size_t i = 0; i < kFishFields.size(); ++i) {
        const FishColumn& column = kFishFields.at(i);
        if (column.field == &GonadFish::sex || column.field == &GonadFish::stage) {
            continue;
        }
        // A length of 0 is a length that was not measured. Without its body weight a fish would have no index.
        const std::optional<double> value = toNumber(fish.*column.field);
        const bool number = value && *value >= 0;
        if (!number || (column.field == &GonadFish::bw && *value == 0)) {
            const QString message = number ? u"%1 must be greater than 0"_s : u"Please input %1 in numeric"_s;
            return Refusal{kGonadTitle.toString(), message.arg(QString::fromLatin1(column.name)), static_cast<int>(i)};
        }
    }
    return std::nullopt;
}

double bodyWeightSum(const std::vector<GonadFish>& fish) {
    double sum = 0;
    for (const GonadFish& one : fish) {
        sum += fishNumber(one.bw);
    }
    return readable(sum);
}

QString samplingWeightText(double bodyWeights) {
    constexpr double gramsPerKilogram = 1000;
    return twoDecimals(bodyWeights / gramsPerKilogram);
}

double storedNumber(const GonadFish& fish, FishField field) {
    return field == &GonadFish::stage ? stageNumber(fish.stage) : fishNumber(fish.*field);
}

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
    if (m_uneven.line == 0 && line->fields.size() != kFishWidth && !(m_fields.isEmpty() && line->isEmptyLine())) {
        m_uneven = *line;
    }
    m_line = std::move(*line);
    m_at = 0;
    return true;
}

bool FishReader::readFields() {
    m_fields.clear();
    while (m_fields.size() < kFishWidth) {
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
        if (m_fields.size() == kFishWidth && CsvRecord{m_first, m_fields}.isBlank()) {
            ++m_passedOver;
            m_fields.clear();
        }
    }
    if (!m_fields.isEmpty() && m_fields.size() < kFishWidth) {
        throw fieldCountFault(m_uneven, kFishWidth);
    }
    return !m_fields.isEmpty();
}

bool FishReader::readHeader() {
    try {
        if (!readFields()) {
            return false;
        }
    } catch (const FormatFault& fault) {
        if (isFishHeader(m_fields)) {
            throw;
        }
        throw HeaderFault(fault);
    }
    if (!isFishHeader(m_fields)) {
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
    for (qsizetype i = 0; i < kFishWidth; ++i) {
        fish.*kFishFields[static_cast<std::size_t>(i)].field = m_fields[i];
    }
    fish.sex = importedSex(fish.sex);
    return fish;
}

QString storedOtherwise(const std::vector<GonadFish>& fish) {
    for (std::size_t i = 0; i < fish.size(); ++i) {
        for (const FishColumn& column : kFishFields) {
            if (column.field == &GonadFish::sex || isStoredAsItStands(fish[i], column.field)) {
                continue;
            }
            const bool stage = column.field == &GonadFish::stage;
            return u"fish %1, %2: \"%3\" is no %4. SAVE will store %5"_s.arg(
                QString::number(i + 1), QString::fromLatin1(column.caption), (fish[i].*column.field).left(40),
                stage ? u"stage number"_s : u"number with a decimal point"_s,
                plainText(storedNumber(fish[i], column.field)));
        }
    }
    return {};
}

}  // namespace kelvora
