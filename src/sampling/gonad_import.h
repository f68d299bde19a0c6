#pragma once

#include "sampling/gonad_fish.h"

#include <optional>
#include <vector>

namespace kelvora {

/// The sex that a file's code stands for: "Female", "Male" or "None".
QString importedSex(const QString& code);

/// The fish of a comma-separated text: eight fields each, behind a header of which at least one field is in its place.
/// Measurements are taken as they are written. Nothing for a text without such a header, one that ends inside a fish,
/// or one of more fish than a sample can number.
std::optional<std::vector<GonadFish>> importedFish(QStringView text);

}  // namespace kelvora
