#pragma once

#include "data/csv_reader.h"
#include "records/gonad_fish.h"

#include <optional>
#include <vector>

namespace kelvora {

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
