#pragma once

#include "controls/screen.h"

#include <QMainWindow>

#include <functional>
#include <vector>

class QMdiArea;
class QMdiSubWindow;

namespace kelvora {

/// The frame of the program: a toolbar for the five data-entry screens, menus for searching, the password and the
/// reports, and the list of open screens. Each screen is open at most once.
class MainWindow : public QMainWindow {
    Q_OBJECT

public:
    explicit MainWindow(const Context& context);
    ~MainWindow() override;

Q_SIGNALS:
    /// The program is to end: confirmed with "Exit", or the window was closed.
    void ended();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    using MakeScreen = std::function<Screen*(const Context&)>;

    /// A screen of the program, and how it is opened. A toolbar button is disabled while its screen is open.
    struct Entry {
        QString caption;
        MakeScreen make;
        QKeySequence key = {};  ///< opens it, or brings it to the front
        QString icon = {};      ///< of a toolbar button; menu items have none
        QAction* action = nullptr;
        QMdiSubWindow* window = nullptr;
    };

    void addToolBar();
    void addMenus();
    QAction* addEntry(Entry entry);
    void open(std::size_t index);
    /// A screen that was minimized comes back as it opened.
    void bringToFront(QMdiSubWindow* window);
    void leaveMinimized();
    void onScreenClosed(std::size_t index);
    void listWindows();
    /// Goes to the next tab of the screen in front (1) or the one before (-1), and into its first field.
    void turnTab(int by);
    void exit();

    Context m_context;
    QMdiArea* m_area;
    QMenu* m_windows = nullptr;
    std::vector<Entry> m_entries;
};

}  // namespace kelvora
