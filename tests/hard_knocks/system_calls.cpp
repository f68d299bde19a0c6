#include "system_calls.h"

#include <sqlite3.h>

#include <cerrno>
#include <unistd.h>
#include <utility>

namespace kelvora::test {
namespace {

WriteHook& writeHook() {
    static WriteHook hook;
    return hook;
}

std::function<void()>& removalHook() {
    static std::function<void()> hook;
    return hook;
}

ssize_t writeAt(int file, const void* bytes, std::size_t size, off_t at) {
    const std::size_t taken = writeHook() ? writeHook()(file, bytes, size, at) : size;
    if (taken < size) {
        errno = ENOSPC;
        return -1;
    }
    return pwrite(file, bytes, size, at);
}

int removeFile(const char* path) {
    if (removalHook()) {
        removalHook()();
    }
    return unlink(path);
}

long long slept = 0;

int sleepNot(sqlite3_vfs* /*engine*/, int microseconds) {
    slept += microseconds;
    return microseconds;
}

void replace(const char* call, sqlite3_syscall_ptr function) {
    sqlite3_vfs* engine = sqlite3_vfs_find(nullptr);
    engine->xSetSystemCall(engine, call, function);
}

}  // namespace

void interceptWrites(const WriteHook& hook) {
    writeHook() = hook;
    for (const char* call : {"pwrite", "pwrite64"}) {
        replace(call, reinterpret_cast<sqlite3_syscall_ptr>(&writeAt));
    }
}

void interceptRemovals(const std::function<void()>& hook) {
    removalHook() = hook;
    replace("unlink", reinterpret_cast<sqlite3_syscall_ptr>(&removeFile));
}

void leaveSystemCallsAlone() {
    for (const char* call : {"pwrite", "pwrite64", "unlink"}) {
        replace(call, nullptr);
    }
}

long long waitedForLocks() {
    sqlite3_vfs_find(nullptr)->xSleep = &sleepNot;
    return std::exchange(slept, 0);
}

}  // namespace kelvora::test
