#pragma once

#include <QFile>

#include <optional>
#include <unistd.h>

namespace kelvora::test {

/// Whoever may write everywhere is asked nothing by the folders: as long as this lives, such a user works as nobody.
class OtherUser {
public:
    OtherUser() {
        if (m_before == 0 && seteuid(nobody) != 0) {
            qFatal("the user cannot be changed");
        }
    }
    ~OtherUser() {
        if (seteuid(m_before) != 0) {
            qFatal("the user cannot be changed back");
        }
    }
    OtherUser(const OtherUser&) = delete;
    OtherUser& operator=(const OtherUser&) = delete;

private:
    static constexpr uid_t nobody = 65534;
    uid_t m_before = geteuid();
};

/// As long as it lives, nothing can be made, replaced or removed in a folder.
class ReadOnlyFolder {
public:
    explicit ReadOnlyFolder(QString folder) : m_folder(std::move(folder)) {
        permit({});
        m_user.emplace();
    }
    ~ReadOnlyFolder() {
        m_user.reset();
        permit(QFile::WriteOwner);
    }
    ReadOnlyFolder(const ReadOnlyFolder&) = delete;
    ReadOnlyFolder& operator=(const ReadOnlyFolder&) = delete;

private:
    void permit(QFile::Permissions writing) const {
        const auto reading = QFile::ReadOwner | QFile::ExeOwner | QFile::ReadOther | QFile::ExeOther;
        if (!QFile::setPermissions(m_folder, reading | writing)) {
            qFatal("the folder's permissions cannot be set");
        }
    }

    QString m_folder;
    std::optional<OtherUser> m_user;
};

}  // namespace kelvora::test
