#pragma once

#include <QString>

namespace kelvora {

/// Makes a data file with a sampled year at a path where there is none yet: two recorders' operations at four ports,
/// their species, lengths and gonads. The same every time. Throws DataError when it cannot be written, or when a file
/// of the sources in `sourceFolder` cannot be read.
void makeDemoYear(const QString& path, const QString& sourceFolder);

}  // namespace kelvora
