#include "sampling/gonad_import.h"

#include "data/csv_reader.h"
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

/// Line ends part fields as commas do: a fish may run over several lines.
QStringList fieldsOf(QStringView text) {
    QStringList fields;
    for (const CsvRecord& record : parseCsv(text)) {
        fields.append(record.fields);
    }
    return fields;
}

bool startsWithHeader(const QStringList& fields) {
    for (std::size_t i = 0; i < kColumns.size(); ++i) {
        if (fields[static_cast<qsizetype>(i)] == QLatin1String(kColumns[i].header)) {
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

std::optional<std::vector<GonadFish>> importedFish(QStringView text) {
    const QStringList fields = fieldsOf(text);
    constexpr auto width = static_cast<qsizetype>(kColumns.size());
    const qsizetype records = fields.size() / width;
    if (records == 0 || fields.size() % width != 0 || records - 1 > kLargestKey || !startsWithHeader(fields)) {
        return std::nullopt;
    }
    std::vector<GonadFish> fish;
    fish.reserve(static_cast<std::size_t>(records - 1));
    for (qsizetype at = width; at < fields.size(); at += width) {
        GonadFish& one = fish.emplace_back();
        for (qsizetype i = 0; i < width; ++i) {
            one.*kColumns[static_cast<std::size_t>(i)].field = fields[at + i];
        }
        one.sex = importedSex(one.sex);
    }
    return fish;
}

}  // namespace kelvora
