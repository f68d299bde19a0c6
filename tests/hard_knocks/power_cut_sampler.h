#pragma once

#include <QString>
#include <QStringList>

#include <vector>

namespace kelvora::test {

/// A sampler who records operation after operation through the real screens, each with the same five saves whose
/// figures follow from the operation's number, so that a file tells by itself what it must hold.
namespace cut {

/// The environment variable that names the data file to work on.
inline const char* const kWorkplace = "KELVORA_WORKPLACE";
/// The one that says at which write to the disk, counted from the start, the power is cut in the middle of it.
inline const char* const kCutAtWrite = "KELVORA_CUT_AT_WRITE";

/// What one save stores: rows as the check reads them from the file, in the order in which they are stored.
struct Save {
    QStringList rows;
    bool whole = true;  ///< stored as one; fish are each stored on their own
};

/// The saves of an operation, in order.
std::vector<Save> savesOf(int operation);

/// Works on a data file until the process is killed; writes a line to the standard output behind every save that the
/// screen has confirmed.
[[noreturn]] void sampleUntilKilled(const QString& path);

}  // namespace cut
}  // namespace kelvora::test
