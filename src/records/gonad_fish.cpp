#include "records/gonad_fish.h"

#include "data/numbers.h"

#include <array>
#include <cmath>

namespace kelvora {
namespace {

struct Check {
    FishField field;
    const char* name;
    bool (*passes)(double value);
    const char* refusal;
};

bool isNotNegative(double value) {
    return value >= 0;
}

bool isAboveZero(double value) {
    return value > 0;
}

constexpr const char* kNumeric = "Please input %1 in numeric";

/// A length of 0 is a length that was not measured. Without its body weight a fish would have no index.
constexpr std::array<Check, 7> kChecks = {{
    {&GonadFish::tl, "TL", isNotNegative, kNumeric},
    {&GonadFish::bl, "BL", isNotNegative, kNumeric},
    {&GonadFish::fl, "FL", isNotNegative, kNumeric},
    {&GonadFish::sl, "SL", isNotNegative, kNumeric},
    {&GonadFish::bw, "BW", isNotNegative, kNumeric},
    {&GonadFish::bw, "BW", isAboveZero, "%1 must be greater than 0"},
    {&GonadFish::gw, "GW", isNotNegative, kNumeric},
}};

/// The number that a text starts with; 0 for one that is too large to be a number at all.
double numberOf(const QString& text) {
    const double value = leadingNumber(text);
    return std::isfinite(value) ? value : 0;
}

/// Stages are numbered like everything else that is looked up: "3" and "3-Ripe" are stage 3, what cannot be the number
/// of a stage is stage 0.
int stageOf(const QString& text) {
    const double number = std::trunc(numberOf(text));
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
    return std::isfinite(index) ? std::optional(readable(index)) : std::nullopt;
}

std::optional<FishRefusal> fishRefusal(const GonadFish& fish) {
    for (const Check& check : kChecks) {
        const std::optional<double> value = toNumber(fish.*check.field);
        if (!value || !check.passes(*value)) {
            return FishRefusal{check.field, QString::fromLatin1(check.refusal).arg(QString::fromLatin1(check.name))};
        }
    }
    return std::nullopt;
}

double bodyWeightSum(const std::vector<GonadFish>& fish) {
    double sum = 0;
    for (const GonadFish& one : fish) {
        sum += numberOf(one.bw);
    }
    return readable(sum);
}

QString samplingWeightText(double bodyWeights) {
    constexpr double gramsPerKilogram = 1000;
    return twoDecimals(bodyWeights / gramsPerKilogram);
}

double storedNumber(const GonadFish& fish, FishField field) {
    return field == &GonadFish::stage ? stageOf(fish.stage) : numberOf(fish.*field);
}

Sql insertFish(int operation, int species, int number, const GonadFish& fish) {
    const double bodyWeight = numberOf(fish.bw);
    const double gonadWeight = numberOf(fish.gw);
    Sql insert("Insert into gonad_detail(optid,spid,samplingno,tl,bl,fl,sl,bw,sex,stage,gw,gsi) values(");
    insert = std::move(insert) << operation << "," << species << "," << number << "," << numberOf(fish.tl) << ","
                               << numberOf(fish.bl) << "," << numberOf(fish.fl) << "," << numberOf(fish.sl) << ","
                               << bodyWeight << "," << fish.sex << "," << stageOf(fish.stage) << "," << gonadWeight
                               << ",";
    const std::optional<double> index = gonadoSomaticIndex(gonadWeight, bodyWeight);
    insert = index ? std::move(insert) << *index : std::move(insert) << "null";
    return std::move(insert) << ")";
}

}  // namespace kelvora
