#pragma once

#include <csignal>
#include <sys/resource.h>

namespace kelvora::test {

/// As long as it lives, no file grows beyond a number of bytes: a disk that is full.
class FullDisk {
public:
    explicit FullDisk(rlim_t bytes) {
        std::signal(SIGXFSZ, SIG_IGN);
        getrlimit(RLIMIT_FSIZE, &m_before);
        const rlimit full{bytes, m_before.rlim_max};
        setrlimit(RLIMIT_FSIZE, &full);
    }
    ~FullDisk() { setrlimit(RLIMIT_FSIZE, &m_before); }
    FullDisk(const FullDisk&) = delete;
    FullDisk& operator=(const FullDisk&) = delete;

private:
    rlimit m_before{};
};

}  // namespace kelvora::test
