#pragma once

#include "controls/screen.h"
#include "data/connection.h"

class QLineEdit;

namespace kelvora {

/// Changes the password and the display name of the account that is signed in. The new name is the recorder of the
/// operations entered afterwards.
class ChangePasswordScreen : public Screen {
    Q_OBJECT

public:
    explicit ChangePasswordScreen(const Context& context);

private:
    void changePassword();

    Connection m_connection;
    QLineEdit* m_userName;
    QLineEdit* m_login;
    QLineEdit* m_password;
    QLineEdit* m_repeated;
};

}  // namespace kelvora
