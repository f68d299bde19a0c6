#pragma once

#include <sqlite3.h>

#include <cerrno>
#include <fcntl.h>
#include <functional>
#include <unistd.h>

namespace kelvora::test {

inline void replaceCall(const char* call, sqlite3_syscall_ptr function) {
    sqlite3_vfs* engine = sqlite3_vfs_find(nullptr);
    engine->xSetSystemCall(engine, call, function);
}

/// Stands between the database engine and the disk, for all data files of this process: called before each write. An
/// error number lets the write fail, 0 does not.
using WriteHook = std::function<int(int file, const void* bytes, std::size_t size, off_t at)>;
inline void interceptWrites(const WriteHook& hook) {
    static WriteHook now;
    now = hook;
    const auto writeAt = [](int file, const void* bytes, std::size_t size, off_t at) -> ssize_t {
        errno = now(file, bytes, size, at);
        return errno == 0 ? pwrite(file, bytes, size, at) : -1;
    };
    for (const char* call : {"pwrite", "pwrite64"}) {
        replaceCall(call, reinterpret_cast<sqlite3_syscall_ptr>(+writeAt));
    }
}

/// The same for the removal of a journal, by which a save becomes final.
inline void interceptRemovals(const std::function<int()>& hook) {
    static std::function<int()> now;
    now = hook;
    const auto removeFile = [](const char* path) {
        errno = now();
        return errno == 0 ? unlink(path) : -1;
    };
    replaceCall("unlink", reinterpret_cast<sqlite3_syscall_ptr>(+removeFile));
}

/// The folder's own record of a removal reaches the disk only with an error: this cannot be brought to a disk.
inline void failFolderSyncs() {
    const auto openFolder = [](const char* /*path*/, int* opened) {
        *opened = ::open("/dev/null", O_RDONLY);
        return SQLITE_OK;
    };
    replaceCall("openDirectory", reinterpret_cast<sqlite3_syscall_ptr>(+openFolder));
}

/// The disk as it is.
inline void leaveSystemCallsAlone() {
    for (const char* call : {"pwrite", "pwrite64", "unlink", "openDirectory"}) {
        replaceCall(call, nullptr);
    }
}

/// From now on the engine does not sleep while it waits for a locked file.
inline void doNotSleep() {
    sqlite3_vfs_find(nullptr)->xSleep = [](sqlite3_vfs*, int microseconds) { return microseconds; };
}

}  // namespace kelvora::test
