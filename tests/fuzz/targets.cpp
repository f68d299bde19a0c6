#include "data/csv_reader.h"
#include "data/numbers.h"
#include "records/gonad_fish.h"
#include "records/vessel_import.h"

#include <QFile>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <map>
#include <string_view>

using namespace Qt::StringLiterals;

namespace kelvora {
namespace {

/// Each target takes any bytes and checks what holds for all of them; a failed check ends the process.

void require(bool holds, const char* what) {
    if (!holds) {
        qFatal("does not hold: %s", what);
    }
}

void tryVessels(const std::vector<CsvRecord>& records) {
    if (records.empty() || headerFault(vesselLayout(), records.front())) {
        return;
    }
    for (const CsvRecord& record : records) {
        if (!unevenRecord(vesselLayout(), record).isEmpty()) {
            return;
        }
        const Vessel vessel = vesselOf(record.fields);
        const bool usable = unusableNumbers(vessel).isEmpty();
        for (const QString& number : {vessel.enginePower, vessel.length, vessel.size}) {
            require(!usable || std::isfinite(readable(toNumber(number).value())), "a vessel can be stored");
        }
    }
}

void tryNumber(double value) {
    const QString text = plainText(value);
    if (!std::isfinite(readable(value))) {
        return;
    }
    require(toNumber(text) == readable(value), "a number is read as it was written");
    require(text == plainText(readable(value)), "a number is written in one way");
    const std::optional<double> rounded = toNumber(twoDecimals(value));
    require(rounded && std::fabs(*rounded - value) <= 0.005 + std::fabs(value) * 1e-14, "two decimals are near");
}

double numberOf(const QByteArray& bytes) {
    double value = 0;
    std::memcpy(&value, bytes.constData(), std::min(sizeof value, static_cast<std::size_t>(bytes.size())));
    return value;
}

/// An import file of vessels or of fish.
void tryCsv(const QByteArray& bytes) {
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
        text += u'"' + QStringList(record.fields).replaceInStrings(u"\""_s, u"\"\""_s).join(u"\",\""_s) + u"\"\n"_s;
    }
    require(std::ranges::equal(readCsv(CsvReader(text.toUtf8())), records, {}, &CsvRecord::fields, &CsvRecord::fields),
            "the same fields again");
    tryVessels(records);
}

/// A typed number.
void tryNumbers(const QByteArray& bytes) {
    const QString text = QString::fromUtf8(bytes);
    const std::optional<double> number = toNumber(text);
    if (number) {
        require(leadingNumber(text) == *number, "a number leads itself");
        require(toNumber(u' ' + text + u'\t') == *number, "blanks around");
        tryNumber(*number);
    }
    require(!std::isnan(leadingNumber(text)), "a leading number is one");
    tryNumber(numberOf(bytes));
}

const std::map<std::string_view, void (*)(const QByteArray&)> kTargets = {{"csv", &tryCsv}, {"numbers", &tryNumbers}};

}  // namespace
}  // namespace kelvora

#ifdef KELVORA_TARGET
/// What the fuzzer calls.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    kelvora::kTargets.at(KELVORA_TARGET)(bytes);
    return 0;
}
#else
/// One target on files: hostile bytes that were thought of, and those that a fuzzer found.
int main(int argc, char** argv) {
    for (int i = 2; i < argc; ++i) {
        qInfo("%s", argv[i]);
        QFile file(QString::fromLocal8Bit(argv[i]));
        kelvora::require(file.open(QIODevice::ReadOnly), "a file can be read");
        kelvora::kTargets.at(argv[1])(file.readAll());
    }
    return argc > 2 ? 0 : 1;
}
#endif
