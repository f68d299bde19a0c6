#pragma once

#include "records/refusal.h"
#include "records/species.h"

#include <optional>
#include <vector>

namespace kelvora {

/// The name of group 1 of every operation, which holds the species that were weighed whole.
inline constexpr QStringView kSingleSpeciesGroup = u"Single species";

/// A species of a sampling group and its weight in the sample (kg).
struct SampledSpecies {
    ChosenSpecies species;
    double weight = 0;
};

/// A sampling group as it is sorted and weighed (kg). Sums and differences are as they read: 0.1 and 0.2 are 0.3.
struct SamplingGroup {
    QString name;
    double total = 0;
    std::vector<SampledSpecies> species;

    /// What the sample weighs.
    [[nodiscard]] double sample() const;
    /// What may still be added to the sample until it weighs as much as the group; negative if it weighs more.
    [[nodiscard]] double room() const;
};

/// The factor that raises a sample to its whole group (weights in kg): their ratio rounded to two decimals, half away
/// from zero. The sample must not be 0.
double raisingFactor(double total, double sample);

/// The fields in which a species or a sampling group is entered, for a refusal.
enum CompositionField { GroupNameField, TotalWeightField, SpeciesField, WeightField };

/// What is wrong with a species weighed whole, or with one of a sampling group, and its weight (kg) as typed; nothing
/// for a chosen species and a number of 0 or more. In the order in which the sampler is told.
std::optional<Refusal> singleSpeciesRefusal(const std::optional<ChosenSpecies>& species, const QString& weight);
std::optional<Refusal> sampledSpeciesRefusal(const std::optional<ChosenSpecies>& species, const QString& weight);

/// Why a sampling group does not take one more species: it would weigh more than the whole group, or stands in the
/// group already, by its shown name.
std::optional<Refusal> furtherSpeciesRefusal(SamplingGroup group, const SampledSpecies& further);

/// Why the typed total weight (kg) of a sampling group is refused; nothing for a number greater than 0.
std::optional<Refusal> totalWeightRefusal(const QString& typed);

/// Why the name of a sampling group is refused: it has none, or it is that of the single species.
std::optional<Refusal> groupNameRefusal(const QString& name);

/// Why a sampling group cannot be raised: its sample weighs nothing, or more than the group.
std::optional<Refusal> sampleRefusal(const SamplingGroup& group);

}  // namespace kelvora
