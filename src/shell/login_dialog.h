#pragma once

#include "controls/screen.h"
#include "data/connection.h"

#include <QDialog>

#include <optional>

class QLabel;
class QLineEdit;

namespace kelvora {

/// Asks who is sampling. A login name and password that are stored (letter case does not count) fill the session; there
/// is no limit on attempts. A line says what there is to know of the data file. Closing the window is left to the
/// program; Escape, like "Cancel", empties the password.
class LoginDialog : public QDialog {
    Q_OBJECT

public:
    /// Prepares the data file. Throws DataError if it is refused.
    explicit LoginDialog(const Context& context);

    void reject() override;

Q_SIGNALS:
    void signedIn();
    void closed();

protected:
    void changeEvent(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    void openStore();
    void signIn();

    Context m_context;
    std::optional<Connection> m_connection;  ///< none as long as the place of the data file hinders
    QLineEdit* m_login;
    QLineEdit* m_password;
    QLabel* m_line;
};

}  // namespace kelvora
