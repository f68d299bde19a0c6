#pragma once

#include "records/refusal.h"

#include <array>
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

struct FishColumn {
    FishField field;
    const char* name;     ///< in the header of a file, and in what is said about it
    const char* caption;  ///< above a grid of fish
};

/// The fields of a fish in the order in which it is measured, filed and stored.
inline constexpr std::array<FishColumn, 8> kFishFields = {{
    {&GonadFish::tl, "TL", "TL(mm)"},
    {&GonadFish::bl, "BL", "BL(mm)"},
    {&GonadFish::fl, "FL", "FL(mm)"},
    {&GonadFish::sl, "SL", "SL(mm)"},
    {&GonadFish::bw, "BW", "BW(g)"},
    {&GonadFish::sex, "SEX", "SEX"},
    {&GonadFish::stage, "Stage", "STAGE"},
    {&GonadFish::gw, "GW", "GW(g)"},
}};

/// The gonado-somatic index in percent, at most 15 significant digits; nothing for a fish without a body weight above
/// 0. Both weights in the same unit.
std::optional<double> gonadoSomaticIndex(double gonadWeight, double bodyWeight);

/// The title of the boxes that ask and complain about a fish.
inline constexpr QStringView kGonadTitle = u"GONAD";

/// The first measurement that is wrong, in the order of kFishFields; nothing if the fish can be taken. Its sex and
/// stage are free.
std::optional<Refusal> fishRefusal(const GonadFish& fish);

/// What the fish weigh together, in g.
double bodyWeightSum(const std::vector<GonadFish>& fish);

/// The sampling weight in kg, two decimals, of fish that weigh so many g.
QString samplingWeightText(double bodyWeights);

/// The number that is stored for a field of a fish, its sex left aside: the one its text starts with, otherwise 0.
double storedNumber(const GonadFish& fish, FishField field);

}  // namespace kelvora
