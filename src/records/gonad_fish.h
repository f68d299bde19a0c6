#pragma once

#include "data/csv_reader.h"
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

/// The sex that a file's code stands for: "Female", "Male" or "None".
QString importedSex(const QString& code);

/// A first record with none of its names in place, so that nothing is known of what follows.
class HeaderFault : public FormatFault {
public:
    explicit HeaderFault(const FormatFault& fault) : FormatFault(fault) {}
};

/// Reads the fish of a comma-separated file: eight fields each, behind a header of which at least one name is in its
/// place. Line ends part fields as commas do, so a fish may run over several lines; eight empty fields are no fish, nor
/// is an empty line between two. Measurements are taken as they are written. Throws FormatFault for a file that ends
/// inside a fish or has more of them than a sample can number.
class FishReader {
public:
    explicit FishReader(CsvReader& csv) : m_csv(csv) {}

    /// Returns whether there is one. Throws HeaderFault.
    [[nodiscard]] bool readHeader();
    std::optional<GonadFish> next();

    /// How many empty records were left out.
    [[nodiscard]] int passedOver() const { return m_passedOver; }

private:
    bool readFields();
    bool beginLine();

    CsvReader& m_csv;
    CsvRecord m_line;           ///< the line that is being read
    qsizetype m_at = 0;         ///< its first field that was not taken yet
    QStringList m_fields;       ///< of the fish that is being read
    int m_first = 1;            ///< the line it begins in
    CsvRecord m_uneven{0, {}};  ///< the first line that does not hold one fish
    int m_fish = 0;
    int m_passedOver = 0;
};

/// What SAVE makes of the first text that it does not store as it stands: 'fish 3, TL(mm): "243,5" is no number …'.
/// Empty if all are stored as they stand. A measurement may be empty, and a stage may have its name behind its number.
QString storedOtherwise(const std::vector<GonadFish>& fish);

}  // namespace kelvora
