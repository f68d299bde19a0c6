#pragma once

#include <QFile>

#include <csignal>
#include <sys/resource.h>
#include <unistd.h>

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

/// As long as it lives, nothing can be made, replaced or removed in a folder. Whoever may write everywhere is asked
/// nothing by the folders: such a user works as nobody meanwhile.
class ReadOnlyFolder {
public:
    explicit ReadOnlyFolder(QString folder) : m_folder(std::move(folder)) {
        permit({});
        become(m_before == 0 ? nobody : m_before);
    }
    ~ReadOnlyFolder() {
        become(m_before);
        permit(QFile::WriteOwner);
    }
    ReadOnlyFolder(const ReadOnlyFolder&) = delete;
    ReadOnlyFolder& operator=(const ReadOnlyFolder&) = delete;

private:
    static constexpr uid_t nobody = 65534;

    void permit(QFile::Permissions writing) const {
        const auto reading = QFile::ReadOwner | QFile::ExeOwner | QFile::ReadGroup | QFile::ExeGroup |
                             QFile::ReadOther | QFile::ExeOther;
        if (!QFile::setPermissions(m_folder, reading | writing)) {
            qFatal("the folder's permissions cannot be set");
        }
    }
    static void become(uid_t user) {
        if (seteuid(user) != 0) {
            qFatal("the user cannot be changed");
        }
    }

    QString m_folder;
    uid_t m_before = geteuid();
};

}  // namespace kelvora::test
