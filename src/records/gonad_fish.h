#pragma once

#include "data/sql.h"

#include <QString>

#include <optional>
#include <vector>

namespace kelvora {

/// One measured fish as it was typed or read from a file: lengths in mm, weights in g.
struct GonadFish {
    QString tl;  ///< total length
    QString bl;  ///< body length
    QString fl;  ///< fork length
    QString sl;  ///< standard length
    QString bw;  ///< body weight
    QString sex;
    QString stage;  ///< number of the maturity stage; empty if none was chosen
    QString gw;     ///< gonad weight
};

/// A field of a fish.
using FishField = QString GonadFish::*;

/// The gonado-somatic index in percent, at most 15 significant digits; nothing for a fish without a body weight above
/// 0. Both weights in the same unit.
std::optional<double> gonadoSomaticIndex(double gonadWeight, double bodyWeight);

/// Why a typed fish cannot be taken, and which of its fields is to be put right.
struct FishRefusal {
    FishField field;
    QString message;
};

/// The title of the box that shows a refusal.
inline constexpr QStringView kGonadTitle = u"GONAD";

/// The first measurement that is wrong, in the order of the fields; nothing if the fish can be taken. Its sex and stage
/// are free.
std::optional<FishRefusal> fishRefusal(const GonadFish& fish);

/// What the fish weigh together, in g.
double bodyWeightSum(const std::vector<GonadFish>& fish);

/// The sampling weight in kg, two decimals, of fish that weigh so many g.
QString samplingWeightText(double bodyWeights);

/// The number that is stored for a field of a fish, its sex left aside: the one its text starts with, otherwise 0.
double storedNumber(const GonadFish& fish, FishField field);

/// The statement that stores a fish under a number within its operation and species. A text that does not start with a
/// number counts as 0.
Sql insertFish(int operation, int species, int number, const GonadFish& fish);

}  // namespace kelvora
