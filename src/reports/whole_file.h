#pragma once

#include <QByteArray>
#include <QString>

namespace kelvora {

/// Writes a file, as what it is called in a message ("export", "picture"). A file that was there is replaced only when
/// the new one is complete; throws std::runtime_error in plain words when it cannot be written.
void writeWholeFile(const QString& path, const QByteArray& bytes, const QString& what);

}  // namespace kelvora
