#include "records/composition.h"

#include "data/numbers.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace kelvora {
namespace {

Refusal groupRefusal(const QString& message, CompositionField field) {
    return {u"ERROR"_s, message, field};
}

/// What is wrong with a typed weight (kg), under a title and with the words for none.
std::optional<Refusal> weightRefusal(const QString& title, const QString& weight, const QString& none) {
    const std::optional<double> number = toNumber(weight);
    if (number && *number >= 0) {
        return std::nullopt;
    }
    const QString wrong = number ? u"A weight cannot be negative"_s : u"Please input weight in numeric only"_s;
    return Refusal{title, weight.isEmpty() ? none : wrong, WeightField};
}

const QString kNoSpecies = u"Please select species!"_s;

}  // namespace

double SamplingGroup::sample() const {
    double sum = 0;
    for (const SampledSpecies& one : species) {
        sum = readable(sum + one.weight);
    }
    return sum;
}

double SamplingGroup::room() const {
    return readable(total - sample());
}

double raisingFactor(double total, double sample) {
    return leadingNumber(twoDecimals(total / sample));
}

std::optional<Refusal> singleSpeciesRefusal(const std::optional<ChosenSpecies>& species, const QString& weight) {
    const QString title = u"ERROR!"_s;
    const auto refusal = weightRefusal(title, weight, u"Please input weight"_s);
    return refusal || species ? refusal : Refusal{title, kNoSpecies, SpeciesField};
}

std::optional<Refusal> sampledSpeciesRefusal(const std::optional<ChosenSpecies>& species, const QString& weight) {
    return species ? weightRefusal(u"ERROR"_s, weight, u"Please input weight!"_s)
                   : groupRefusal(kNoSpecies, SpeciesField);
}

std::optional<Refusal> furtherSpeciesRefusal(SamplingGroup group, const SampledSpecies& further) {
    const double room = group.room();
    const bool listed = std::ranges::any_of(
        group.species, [&](const SampledSpecies& one) { return sameText(one.species.name, further.species.name); });
    group.species.push_back(further);
    if (group.room() < 0) {
        return groupRefusal(u"Over weight! not over '%1' kg."_s.arg(plainText(room)), WeightField);
    }
    return listed ? std::optional(groupRefusal(u"Species Repeat please try again"_s, SpeciesField)) : std::nullopt;
}

std::optional<Refusal> totalWeightRefusal(const QString& typed) {
    const std::optional<double> total = toNumber(typed);
    if (total && *total > 0) {
        return std::nullopt;
    }
    return groupRefusal(total ? u"The total weight of a group must be greater than 0"_s
                              : u"Please input total weight in numeric only (decimal point, no comma)"_s,
                        TotalWeightField);
}

std::optional<Refusal> groupNameRefusal(const QString& name) {
    const QString plain = name.trimmed();
    if (plain.isEmpty()) {
        return groupRefusal(u"Please input groupname"_s, GroupNameField);
    }
    if (sameText(plain, kSingleSpeciesGroup)) {
        return groupRefusal(
            u"'Single species' is the group of the species weighed whole: please give this group"
            " another name"_s,
            GroupNameField);
    }
    return std::nullopt;
}

std::optional<Refusal> sampleRefusal(const SamplingGroup& group) {
    if (group.sample() == 0) {
        return groupRefusal(u"The weights of the sample sum to 0: it cannot be raised to the total weight"_s,
                            WeightField);
    }
    if (group.room() < 0) {
        return groupRefusal(u"The sample weighs '%1' kg., more than the '%2' kg. of the whole group"_s.arg(
                                plainText(group.sample()), plainText(group.total)),
                            WeightField);
    }
    return std::nullopt;
}

}  // namespace kelvora
