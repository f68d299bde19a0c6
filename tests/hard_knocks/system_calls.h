#pragma once

#include <cerrno>
#include <functional>
#include <sys/types.h>

namespace kelvora::test {

/// Stands between the database engine and the disk, for all data files of this process: asked before each write with
/// the number of bytes, it says how many of them reach the disk; less than all, and the write fails, as on a full disk
/// or with another error.
using WriteHook = std::function<std::size_t(int file, const void* bytes, std::size_t size, off_t at)>;
void interceptWrites(const WriteHook& hook, int error = ENOSPC);
/// The removal of a journal, by which a save becomes final: called before it. An error number keeps the journal, 0 does
/// not.
void interceptRemovals(const std::function<int()>& hook);
/// The folder's own record of a removal reaches the disk only with an error.
void failFolderSyncs();
/// Disk and waiting as they are.
void leaveSystemCallsAlone();

/// From now on the engine does not sleep while it waits for a locked file; returns the microseconds it would have slept
/// since the last call.
long long waitedForLocks();

}  // namespace kelvora::test
