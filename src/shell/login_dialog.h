#pragma once

#include "controls/session.h"
#include "data/connection.h"

#include <QDialog>

class QLineEdit;

namespace kelvora {

/// Asks who is sampling. A login name and password that are stored (letter case does not count) fill the session; there
/// is no limit on attempts. Closing the window is left to the program; Escape, like "Cancel", empties the password.
class LoginDialog : public QDialog {
    Q_OBJECT

public:
    /// Throws DataError if the data file cannot be opened.
    explicit LoginDialog(const Context& context);

    void reject() override;

Q_SIGNALS:
    void signedIn();
    void closed();

protected:
    void changeEvent(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    void signIn();

    Context m_context;
    Connection m_connection;
    QLineEdit* m_login;
    QLineEdit* m_password;
};

}  // namespace kelvora
