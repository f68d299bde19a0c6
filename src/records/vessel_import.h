#pragma once

#include "data/sql.h"
#include "records/import_file.h"

#include <functional>
#include <optional>

namespace kelvora {

/// The columns of a vessel file.
const ImportLayout& vesselLayout();

/// The column of a vessel's type of gear.
inline constexpr int kGearColumn = 7;

/// The captions of the numbers of a vessel (power, length, size) that are empty or not numeric.
QStringList unusableNumbers(const QStringList& fields);

/// Finds the stored vessels that a vessel is known by: those of its name, or of its register id if it has no name.
Sql vesselsKnownAs(const QStringList& fields);

/// Finds the stored vessels that a vessel whose numbers are usable repeats in every field. The gear is as below.
Sql vesselsLike(const QStringList& fields, int gear);

/// The statement that stores a vessel whose numbers are usable. The gear is the number of its type of gear, 0 for none.
Sql vesselInsert(const QStringList& fields, int gear);

/// How the gears that a vessel file names are looked up, and asked about when they are not stored.
struct GearQuestions {
    /// The name of the stored gear that a name stands for; nothing if there is none.
    std::function<std::optional<QString>(const QString& name)> stored;
    /// Asks for the name of a new gear, proposing one; empty for none.
    std::function<QString(const QString& proposed)> ask;
    /// Asks whether a gear of this name is to be stored.
    std::function<bool(const QString& name)> confirm;
    /// Stores a gear.
    std::function<void(const QString& name)> add;
};

/// Writes into every vessel the type of gear it is to have: the one of the file, as it is written there, if it is
/// stored, otherwise what the sampler answers, empty for none. Each name is asked about once.
void settleGears(std::vector<CsvRecord>& vessels, const GearQuestions& questions);

}  // namespace kelvora
