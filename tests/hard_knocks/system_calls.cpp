#include "system_calls.h"

#include <sqlite3.h>

#include <array>
#include <unistd.h>
#include <utility>

namespace kelvora::test {
namespace {

WriteHook writeHook;
int writeError = ENOSPC;
std::function<int()> removalHook;
long long slept = 0;

ssize_t writeAt(int file, const void* bytes, std::size_t size, off_t at) {
    if (writeHook(file, bytes, size, at) < size) {
        errno = writeError;
        return -1;
    }
    return pwrite(file, bytes, size, at);
}

int removeFile(const char* path) {
    errno = removalHook();
    return errno == 0 ? unlink(path) : -1;
}

/// Instead of a folder a pipe, which cannot be brought to a disk.
int openFolder(const char* /*path*/, int* opened) {
    std::array<int, 2> ends{};
    if (pipe(ends.data()) != 0) {
        return SQLITE_CANTOPEN;
    }
    close(ends[1]);
    *opened = ends[0];
    return SQLITE_OK;
}

int sleepNot(sqlite3_vfs* /*engine*/, int microseconds) {
    slept += microseconds;
    return microseconds;
}

void replace(const char* call, sqlite3_syscall_ptr function) {
    sqlite3_vfs* engine = sqlite3_vfs_find(nullptr);
    engine->xSetSystemCall(engine, call, function);
}

}  // namespace

void interceptWrites(const WriteHook& hook, int error) {
    writeHook = hook;
    writeError = error;
    for (const char* call : {"pwrite", "pwrite64"}) {
        replace(call, reinterpret_cast<sqlite3_syscall_ptr>(&writeAt));
    }
}

void interceptRemovals(const std::function<int()>& hook) {
    removalHook = hook;
    replace("unlink", reinterpret_cast<sqlite3_syscall_ptr>(&removeFile));
}

void failFolderSyncs() {
    replace("openDirectory", reinterpret_cast<sqlite3_syscall_ptr>(&openFolder));
}

void leaveSystemCallsAlone() {
    for (const char* call : {"pwrite", "pwrite64", "unlink", "openDirectory"}) {
        replace(call, nullptr);
    }
}

long long waitedForLocks() {
    sqlite3_vfs_find(nullptr)->xSleep = &sleepNot;
    return std::exchange(slept, 0);
}

}  // namespace kelvora::test
