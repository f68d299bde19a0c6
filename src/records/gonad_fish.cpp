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

}  // namespace

// Gonad weight as a percentage of body weight, the form that fisheries biology reports it in: V. de Vlaming,
// G. Grossman and F. Chapman, "On the use of the gonosomatic index", Comparative Biochemistry and Physiology 73A
// (1982).
std::optional<double> gonadoSomaticIndex(double gonadWeight, double bodyWeight) {
    if (!(bodyWeight > 0)) {
        return std::nullopt;
    }
    const double index = gonadWeight / bodyWeight * 100;
    return std::isfinite(index) ? std::optional(asRead(index)) : std::nullopt;
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
    return asRead(sum);
}

QString samplingWeightText(double bodyWeights) {
    constexpr double gramsPerKilogram = 1000;
    return twoDecimals(bodyWeights / gramsPerKilogram);
}

double storedNumber(const GonadFish& fish, FishField field) {
    return field == &GonadFish::stage ? stageNumber(fish.stage) : fishNumber(fish.*field);
}

}  // namespace kelvora
