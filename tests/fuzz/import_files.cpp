#include "data/csv_reader.h"
#include "data/numbers.h"
#include "records/gonad_fish.h"

#include <QFile>

#include <algorithm>
#include <cmath>
#include <cstdint>

using namespace Qt::StringLiterals;

namespace kelvora {
namespace {

/// What holds for any bytes; a check that fails ends the process.
void require(bool holds, const char* what) {
    if (!holds) {
        qFatal("does not hold: %s", what);
    }
}

/// A field as a typed number.
void tryNumber(const QString& text) {
    const std::optional<double> number = toNumber(text);
    require(!std::isnan(leadingNumber(text)), "a leading number is one");
    if (!number) {
        return;
    }
    require(leadingNumber(text) == *number, "a number leads itself");
    require(toNumber(u' ' + text + u'\t') == *number, "blanks around");
    require(toNumber(plainText(*number)) == readable(*number), "a number is read as it was written");
    const std::optional<double> rounded = toNumber(twoDecimals(*number));
    require(rounded && std::fabs(*rounded - *number) <= 0.005 + std::fabs(*number) * 1e-14, "two decimals are near");
}

/// An import file, of fish or of anything.
void tryFile(const QByteArray& bytes) {
    std::vector<CsvRecord> records;
    try {
        records = readCsv(CsvReader(bytes));
        CsvReader csv(bytes);
        FishReader reader(csv);
        for (bool more = reader.readHeader(); more;) {
            const std::optional<GonadFish> fish = reader.next();
            more = fish.has_value();
            for (const FishColumn& column : kFishFields) {
                require(std::isfinite(storedNumber(fish.value_or(GonadFish()), column.field)), "a fish can be stored");
            }
        }
    } catch (const FormatFault&) {
        return;
    }
    // The same fields, each in quotes: what the reader makes of them must be these again.
    QString text;
    for (const CsvRecord& record : records) {
        std::ranges::for_each(record.fields, &tryNumber);
        text += u'"' + QStringList(record.fields).replaceInStrings(u"\""_s, u"\"\""_s).join(u"\",\""_s) + u"\"\n"_s;
    }
    require(std::ranges::equal(readCsv(CsvReader(text.toUtf8())), records, {}, &CsvRecord::fields, &CsvRecord::fields),
            "the same fields again");
}

}  // namespace
}  // namespace kelvora

#ifdef KELVORA_FUZZER
/// What the fuzzer calls.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    kelvora::tryFile(QByteArray(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size)));
    return 0;
}
#else
/// Hostile bytes that were thought of, and those that a fuzzer found.
int main(int argc, char** argv) {
    for (int i = 1; i < argc; ++i) {
        qInfo("%s", argv[i]);
        QFile file(QString::fromLocal8Bit(argv[i]));
        kelvora::require(file.open(QIODevice::ReadOnly), "a file can be read");
        kelvora::tryFile(file.readAll());
    }
    return argc > 1 ? 0 : 1;
}
#endif
