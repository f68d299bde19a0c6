#pragma once

#include "controls/screen.h"

#include <QObject>

#include <memory>

namespace kelvora {

class LoginDialog;
class MainWindow;

/// The program from its start to its end: the data file, the login dialog, the main window. The application ends with
/// the main window, or with a login dialog that is closed.
class Program : public QObject {
    Q_OBJECT

public:
    Program(const QString& databasePath, Dialogs& dialogs);
    ~Program() override;

    /// Prepares the data file and shows the login dialog. Returns false, after a message, if the file cannot be used.
    bool start();

    /// Brings the window of the program to the front, also when it is minimized.
    void raiseWindow();

private:
    void openMainWindow();

    Session m_session;
    Context m_context;
    std::unique_ptr<LoginDialog> m_login;
    std::unique_ptr<MainWindow> m_window;
};

}  // namespace kelvora
