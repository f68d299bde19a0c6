#include "records/composition.h"

#include "data/numbers.h"

#include <algorithm>
#include <array>
#include <span>

using namespace Qt::StringLiterals;

namespace kelvora {
namespace {

/// A species to be weighed, as it stands on the screen.
struct Weighing {
    bool chosen;
    QString weight;
};

struct WeighingCheck {
    CompositionField field;
    bool (*passes)(const Weighing& weighing);
    QString message;
};

const QString kGroupError = u"ERROR"_s;

bool isSpeciesChosen(const Weighing& weighing) {
    return weighing.chosen;
}

bool isWeightGiven(const Weighing& weighing) {
    return !weighing.weight.isEmpty();
}

bool isWeightNumber(const Weighing& weighing) {
    return isNumeric(weighing.weight);
}

bool isWeightPossible(const Weighing& weighing) {
    return toNumber(weighing.weight).value() >= 0;
}

std::optional<Refusal> weighingRefusal(const QString& title, std::span<const WeighingCheck> checks,
                                       const Weighing& weighing) {
    const auto failed = std::ranges::find_if(checks, [&](const auto& check) { return !check.passes(weighing); });
    return failed == checks.end() ? std::nullopt : std::optional(Refusal{title, failed->message, failed->field});
}

const WeighingCheck kWeightNumeric{WeightField, isWeightNumber, u"Please input weight in numeric only"_s};
const WeighingCheck kWeightPossible{WeightField, isWeightPossible, u"A weight cannot be negative"_s};
const WeighingCheck kSpeciesChosen{SpeciesField, isSpeciesChosen, u"Please select species!"_s};

}  // namespace

double SamplingGroup::sample() const {
    double sum = 0;
    for (const SampledSpecies& one : species) {
        sum = asRead(sum + one.weight);
    }
    return sum;
}

double SamplingGroup::room() const {
    return asRead(total - sample());
}

double raisingFactor(double total, double sample) {
    return leadingNumber(twoDecimals(total / sample));
}

std::optional<Refusal> singleSpeciesRefusal(const std::optional<ChosenSpecies>& species, const QString& weight) {
    static const std::array checks = {WeighingCheck{WeightField, isWeightGiven, u"Please input weight"_s},
                                      kWeightNumeric, kWeightPossible, kSpeciesChosen};
    return weighingRefusal(u"ERROR!"_s, checks, {species.has_value(), weight});
}

std::optional<Refusal> sampledSpeciesRefusal(const std::optional<ChosenSpecies>& species, const QString& weight) {
    static const std::array checks = {kSpeciesChosen,
                                      WeighingCheck{WeightField, isWeightGiven, u"Please input weight!"_s},
                                      kWeightNumeric, kWeightPossible};
    return weighingRefusal(kGroupError, checks, {species.has_value(), weight});
}

std::optional<Refusal> repeatedSpeciesRefusal(const SamplingGroup& group, const ChosenSpecies& species) {
    const bool listed = std::ranges::any_of(
        group.species, [&](const SampledSpecies& one) { return sameText(one.species.name, species.name); });
    return listed ? std::optional(Refusal{kGroupError, u"Species Repeat please try again"_s, SpeciesField})
                  : std::nullopt;
}

std::optional<Refusal> overweightRefusal(SamplingGroup group, const SampledSpecies& further) {
    const double room = group.room();
    group.species.push_back(further);
    return group.room() < 0 ? std::optional(Refusal{
                                  kGroupError, u"Over weight! not over '%1' kg."_s.arg(plainText(room)), WeightField})
                            : std::nullopt;
}

std::optional<Refusal> totalWeightRefusal(const QString& typed) {
    const std::optional<double> total = toNumber(typed);
    if (total && *total > 0) {
        return std::nullopt;
    }
    const QString message = total ? u"The total weight of a group must be greater than 0"_s
                                  : u"Please input total weight in numeric only (decimal point, no comma)"_s;
    return Refusal{kGroupError, message, TotalWeightField};
}

std::optional<Refusal> groupNameRefusal(const QString& name) {
    const QString plain = name.trimmed();
    if (plain.isEmpty()) {
        return Refusal{kGroupError, u"Please input groupname"_s, GroupNameField};
    }
    if (sameText(plain, kSingleSpeciesGroup)) {
        return Refusal{kGroupError,
                       u"'Single species' is the group of the species weighed whole: please give this group"
                       " another name"_s,
                       GroupNameField};
    }
    return std::nullopt;
}

std::optional<Refusal> sampleRefusal(const SamplingGroup& group) {
    if (group.sample() == 0) {
        return Refusal{kGroupError, u"The weights of the sample sum to 0: it cannot be raised to the total weight"_s,
                       WeightField};
    }
    if (group.room() < 0) {
        return Refusal{kGroupError,
                       u"The sample weighs '%1' kg., more than the '%2' kg. of the whole group"_s.arg(
                           plainText(group.sample()), plainText(group.total)),
                       WeightField};
    }
    return std::nullopt;
}

}  // namespace kelvora
