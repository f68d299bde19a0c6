#include "shell/program.h"

#include "controls/screen.h"
#include "shell/login_dialog.h"
#include "shell/main_window.h"

#include <QApplication>

namespace kelvora {

Program::Program(const QString& databasePath, Dialogs& dialogs) : m_context{databasePath, m_session, dialogs} {}

Program::~Program() = default;

bool Program::start() {
    return runGuarded(m_context.dialogs, [this] {
        m_login = std::make_unique<LoginDialog>(m_context);
        connect(m_login.get(), &LoginDialog::signedIn, this, &Program::openMainWindow);
        connect(m_login.get(), &LoginDialog::closed, qApp, &QApplication::quit);
        m_login->show();
        m_login->activateWindow();
    });
}

void Program::raiseWindow() {
    QWidget* window = m_window ? static_cast<QWidget*>(m_window.get()) : m_login.get();
    if (window == nullptr) {
        return;
    }
    window->setWindowState(window->windowState() & ~Qt::WindowMinimized);
    window->show();
    window->raise();
    // A box that waits for its answer has the keyboard.
    QWidget* box = QApplication::activeModalWidget();
    (box != nullptr ? box : window)->activateWindow();
}

void Program::openMainWindow() {
    m_window = std::make_unique<MainWindow>(m_context);
    connect(m_window.get(), &MainWindow::ended, qApp, &QApplication::quit);
    m_window->showMaximized();
    m_login->hide();
}

}  // namespace kelvora
