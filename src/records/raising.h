#pragma once

#include <QString>

#include <optional>

namespace kelvora {

/// The name of group 1 of every operation, which holds the species that were weighed whole.
inline constexpr QStringView kSingleSpeciesGroup = u"Single species";

/// The factor that raises a sample to its whole group (weights in kg): their ratio rounded to two decimals, half away
/// from zero. The sample must not be 0.
double raisingFactor(double total, double sample);

/// The weight of a sample with one more species in it, as it reads: 0.1 and 0.2 are 0.3.
double sampleWith(double sample, double weight);

/// What may still be added to a sample until it weighs as much as its group, as it reads; negative if it weighs more.
double roomInGroup(double total, double sample);

/// Why a typed weight (kg) is refused; nothing for a number of 0 or more.
std::optional<QString> weightProblem(const QString& typed);

/// Why the typed total weight (kg) of a sampling group is refused; nothing for a number greater than 0.
std::optional<QString> totalWeightProblem(const QString& typed);

/// Why the name of a sampling group is refused: it has none, or it is that of the single species.
std::optional<QString> groupNameProblem(const QString& name);

/// Why a sample cannot be raised: it weighs nothing, or more than its group.
std::optional<QString> sampleProblem(double total, double sample);

}  // namespace kelvora
