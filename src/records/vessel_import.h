#pragma once

#include "records/import_file.h"
#include "records/vessels.h"

namespace kelvora {

/// The columns of a vessel file.
const ImportLayout& vesselLayout();

/// The column of a vessel's type of gear.
inline constexpr int kGearColumn = 7;

/// The captions of the numbers of a vessel (power, length, size) that are empty or not numeric.
QStringList unusableNumbers(const Vessel& vessel);

/// What is asked about the gears of a vessel file that are not stored.
struct GearQuestions {
    /// Asks for the name of a new gear, proposing one; empty for none.
    std::function<QString(const QString& proposed)> ask;
    /// Asks whether a gear of this name is to be stored.
    std::function<bool(const QString& name)> confirm;
    /// A gear was stored.
    std::function<void()> added;
};

/// Writes into every vessel the type of gear it is to have: the one of the file, as it is written there, if it is
/// stored, otherwise what the sampler answers, empty for none. Each name is asked about once.
void settleGears(Connection& connection, std::vector<CsvRecord>& vessels, const GearQuestions& questions);

/// Stores the vessels whose names are new and whose numbers are numeric, in one transaction; counts every vessel.
ImportOutcome storeVessels(Connection& connection, const std::vector<CsvRecord>& vessels,
                           const std::function<void()>& count);

}  // namespace kelvora
