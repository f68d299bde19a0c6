#pragma once

#include <QFile>

#include <csignal>
#include <functional>
#include <memory>
#include <sys/resource.h>
#include <unistd.h>

namespace kelvora::test {

/// Something in a sampler's way, as long as it is held.
using Obstacle = std::shared_ptr<void>;

inline Obstacle until(const std::function<void()>& end) {
    return {nullptr, [end](void*) { end(); }};
}

/// No file grows beyond a number of bytes.
inline Obstacle fullDisk(rlim_t bytes) {
    std::signal(SIGXFSZ, SIG_IGN);
    rlimit before{};
    getrlimit(RLIMIT_FSIZE, &before);
    const rlimit full{bytes, before.rlim_max};
    setrlimit(RLIMIT_FSIZE, &full);
    return until([before] { setrlimit(RLIMIT_FSIZE, &before); });
}

/// Nothing can be made, replaced or removed in a folder. Whoever may write everywhere is asked nothing by the folders:
/// such a user works as nobody meanwhile.
inline Obstacle readOnlyFolder(const QString& folder) {
    constexpr uid_t nobody = 65534;
    const uid_t before = geteuid();
    const auto permit = [folder](QFile::Permissions writing) {
        constexpr auto reading = QFile::Permissions::fromInt(0x5555);  // and entering, for everybody
        if (!QFile::setPermissions(folder, reading | writing)) {
            qFatal("the folder's permissions cannot be set");
        }
    };
    const auto become = [](uid_t user) {
        if (seteuid(user) != 0) {
            qFatal("the user cannot be changed");
        }
    };
    permit({});
    become(before == 0 ? nobody : before);
    return until([=] {
        become(before);
        permit(QFile::WriteOwner);
    });
}

}  // namespace kelvora::test
