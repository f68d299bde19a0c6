#pragma once

#include <QString>
#include <QStringList>

#include <vector>

/// A sampler who records operation after operation at the real screens, each with the same five saves, so that a file
/// tells by itself what it must hold.
namespace kelvora::test::cut {

/// The environment variable that names the data file to work on.
inline const char* const kWorkplace = "KELVORA_WORKPLACE";
/// The one that says at which write to the disk, counted from the start, the power is cut in the middle of it.
inline const char* const kCutAtWrite = "KELVORA_CUT_AT_WRITE";

/// What the saves of an operation store, in order: rows as wholeFile() gives them, %1 the operation. The
/// fish of the last one are each stored on their own, the others are stored whole.
const std::vector<QStringList>& saves();

/// Works on a data file until the process is killed; writes a line to the standard output behind every save that the
/// screen has confirmed.
[[noreturn]] void sampleUntilKilled(const QString& path);

}  // namespace kelvora::test::cut
