#pragma once

#include <QByteArray>
#include <QString>

namespace kelvora {

/// A path as typed, with ".csv" behind it where no ending was typed.
QString withCsvEnding(const QString& path);

/// Writes a file. A file that was there is replaced only when the new one is complete. When it cannot be written,
/// throws std::runtime_error with the refusal, the reason and the path; so it does for what belongs to the data file,
/// which is named because nothing that the sampler writes may replace it.
void writeWholeFile(const QString& path, const QByteArray& bytes, const QString& refusal, const QString& databasePath);

}  // namespace kelvora
