#pragma once

#include <QFileInfo>

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

}  // namespace kelvora::test
