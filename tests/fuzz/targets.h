#pragma once

#include <QByteArray>

namespace kelvora::fuzz {

/// Each takes any bytes and checks what holds for all of them; a failed check ends the process.

/// An import file of vessels or of fish.
void tryCsv(const QByteArray& bytes);
/// A typed text, and a number, as values of a statement that the engine runs.
void trySql(const QByteArray& bytes);
/// A typed number.
void tryNumbers(const QByteArray& bytes);

}  // namespace kelvora::fuzz
