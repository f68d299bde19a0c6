#include "shell/main_window.h"

#include "controls/dialogs.h"
#include "controls/fields.h"
#include "controls/screen.h"
#include "operations/operation_entry_screen.h"
#include "reference/general_information_screen.h"
#include "reports/catch_summary_screen.h"
#include "reports/species_composition_report_screen.h"
#include "reports/species_report_screen.h"
#include "sampling/sampling_screens.h"
#include "search/search_screen.h"
#include "shell/change_password_screen.h"

#include <QAbstractSpinBox>
#include <QApplication>
#include <QCloseEvent>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenuBar>
#include <QScrollArea>
#include <QShortcut>
#include <QStatusBar>
#include <QTabBar>
#include <QTabWidget>
#include <QToolBar>

using namespace Qt::StringLiterals;

namespace kelvora {
namespace {

template <typename ScreenClass>
Screen* make(const Context& context) {
    return new ScreenClass(context);
}

/// Whether something can be typed or chosen in a widget.
bool isField(const QWidget* widget) {
    const auto* line = qobject_cast<const QLineEdit*>(widget);
    return (line != nullptr && !line->isReadOnly()) || qobject_cast<const QComboBox*>(widget) != nullptr ||
           qobject_cast<const QAbstractSpinBox*>(widget) != nullptr;
}

/// The first field of a screen or tab that can be used: a sampler types as soon as it is open. Where there is none, the
/// first thing that takes the keyboard, a grid or the tabs.
QWidget* firstField(QWidget* page) {
    QWidget* other = nullptr;
    for (QWidget* next = page->nextInFocusChain(); next != page; next = next->nextInFocusChain()) {
        const bool usable = (next->focusPolicy() & Qt::TabFocus) != 0 && page->isAncestorOf(next) &&
                            next->isVisibleTo(page) && next->isEnabled();
        if (usable && isField(next)) {
            return next;
        }
        if (usable && (other == nullptr || qobject_cast<QTabBar*>(other) != nullptr)) {
            other = next;
        }
    }
    return other != nullptr ? other : page;
}

/// On a screen too small for a form, or with large letters, nothing is out of reach.
QScrollArea* scrolled(Screen* screen) {
    auto* area = new QScrollArea;
    area->setWidget(screen);
    area->setWidgetResizable(true);
    area->setFrameShape(QFrame::NoFrame);
    area->setFocusPolicy(Qt::NoFocus);
    return area;
}

}  // namespace

MainWindow::MainWindow(const Context& context) : m_context(context), m_area(new QMdiArea(this)) {
    setWindowTitle(kApplicationTitle.toString());
    addToolBar();
    addMenus();
    // Every screen keeps its own size: minimizing one must not shrink the others.
    m_area->setOption(QMdiArea::DontMaximizeSubWindowOnActivation);
    m_area->setBackground(palette().brush(QPalette::Window));
    setCentralWidget(m_area);
    connect(m_area, &QMdiArea::subWindowActivated, this, [this](QMdiSubWindow* window) {
        // A list left open would lie over the other screen and take the keys meant for it. Closing, it calls its own
        // screen back to the front.
        if (QWidget* opened = QApplication::activePopupWidget(); opened != nullptr) {
            opened->close();
            m_area->setActiveSubWindow(window);
        }
        if (auto* screen = window == nullptr ? nullptr : window->findChild<Screen*>(); screen != nullptr) {
            screen->cameToFront();
        }
    });
    // Office hands know Ctrl+F4; where the desktop has it already, a second one would make both do nothing.
    const QKeySequence closing(Qt::CTRL | Qt::Key_F4);
    if (!QKeySequence::keyBindings(QKeySequence::Close).contains(closing)) {
        new QShortcut(closing, this, m_area, &QMdiArea::closeActiveSubWindow);
    }
    new QShortcut(u"Ctrl+PgDown"_s, this, [this] { turnTab(1); });
    new QShortcut(u"Ctrl+PgUp"_s, this, [this] { turnTab(-1); });
    auto* organisation = new QLabel(u"" KELVORA_ORGANISATION ""_s, this);
    organisation->setTextFormat(Qt::PlainText);
    organisation->setContentsMargins(8, 0, 8, 2);
    statusBar()->addWidget(organisation);
    listWindows();
}

MainWindow::~MainWindow() {
    // The screens report their end to the list of entries: they have to go before it.
    delete m_area;
}

void MainWindow::addToolBar() {
    auto* bar = QMainWindow::addToolBar(u"Screens"_s);
    bar->setMovable(false);
    bar->setContextMenuPolicy(Qt::PreventContextMenu);
    bar->setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
    bar->setIconSize({32, 32});
    for (const Entry& screen : {
             Entry{u"General Information"_s, make<GeneralInformationScreen>, u"Ctrl+1"_s, u"general_information"_s},
             Entry{u"Fishing Operation"_s, make<OperationEntryScreen>, u"Ctrl+2"_s, u"fishing_operation"_s},
             Entry{u"Species Composition"_s, make<SpeciesCompositionScreen>, u"Ctrl+3"_s, u"species_composition"_s},
             Entry{u"Length Frequency"_s, make<LengthFrequencyScreen>, u"Ctrl+4"_s, u"length_frequency"_s},
             Entry{u"Gonad Maturity"_s, make<GonadMaturityScreen>, u"Ctrl+5"_s, u"gonad_maturity"_s},
         }) {
        bar->addAction(addEntry(screen));
    }
    bar->addSeparator();
    QAction* leave = bar->addAction(QIcon(u":/icons/exit.svg"_s), u"Exit"_s);
    connect(leave, &QAction::triggered, this, guarded(m_context.dialogs, [this] { exit(); }));
}

void MainWindow::addMenus() {
    QMenu* main = menuBar()->addMenu(u"&Main Menu"_s);
    main->addAction(addEntry({u"Search"_s, make<SearchScreen>, QKeySequence::Find}));
    main->addAction(addEntry({u"Change password"_s, make<ChangePasswordScreen>}));
    QMenu* report = menuBar()->addMenu(u"&Report"_s);
    report->addAction(addEntry({u"Fishing Information"_s, make<CatchSummaryScreen>}));
    report->addAction(addEntry({u"Species composition"_s, make<SpeciesCompositionReportScreen>}));
    report->addAction(addEntry({u"Length Frequency"_s, make<LengthFrequencyReportScreen>}));
    report->addAction(addEntry({u"Gonad Maturity"_s, make<GonadMaturityReportScreen>}));
    m_windows = menuBar()->addMenu(u"&Windows"_s);
}

QAction* MainWindow::addEntry(Entry entry) {
    const std::size_t index = m_entries.size();
    entry.action = new QAction(entry.caption, this);
    if (entry.icon.isEmpty()) {
        entry.action->setShortcut(entry.key);
    } else {
        entry.action->setIcon(QIcon(u":/icons/%1.svg"_s.arg(entry.icon)));
        entry.action->setToolTip(u"%1 (%2)"_s.arg(entry.caption, entry.key.toString(QKeySequence::NativeText)));
        // The button's own key would do nothing while its screen is open behind another.
        new QShortcut(entry.key, this, [this, index] { open(index); });
    }
    connect(entry.action, &QAction::triggered, this, [this, index] { open(index); });
    m_entries.push_back(std::move(entry));
    return m_entries.back().action;
}

void MainWindow::open(std::size_t index) {
    // A screen reader triggers a menu item and leaves its menu open, which would keep the keyboard from the screen.
    if (QWidget* menu = QApplication::activePopupWidget(); menu != nullptr) {
        menu->close();
    }
    Entry& entry = m_entries[index];
    if (entry.window != nullptr) {
        bringToFront(entry.window);
        return;
    }
    runGuarded(m_context.dialogs, [&] {
        Screen* screen = entry.make(m_context);
        auto* window = new QMdiSubWindow;
        window->setAttribute(Qt::WA_DeleteOnClose);
        window->setWidget(scrolled(screen));
        window->setWindowTitle(screen->windowTitle());
        window->installEventFilter(this);
        m_area->addSubWindow(window);
        entry.window = window;
        entry.action->setEnabled(entry.icon.isEmpty());
        connect(window, &QObject::destroyed, this, [this, index] { onScreenClosed(index); });
        connect(screen, &Screen::finished, window, &QWidget::close);
        connect(
            window, &QMdiSubWindow::windowStateChanged, this,
            [this](Qt::WindowStates before, Qt::WindowStates now) {
                if ((now & ~before & Qt::WindowMinimized) != 0) {
                    leaveMinimized();
                }
            },
            Qt::QueuedConnection);
        window->showMaximized();
        focusOn(firstField(screen));
        listWindows();
    });
}

void MainWindow::bringToFront(QMdiSubWindow* window) {
    const bool wasMinimized = window->isMinimized();
    if (wasMinimized) {
        window->showMaximized();
    }
    m_area->setActiveSubWindow(window);
    if (wasMinimized) {
        focusOn(firstField(window->widget()));
    }
}

/// A minimized screen would keep the keyboard: what is typed belongs to the screen that is seen behind it.
void MainWindow::leaveMinimized() {
    const QMdiSubWindow* front = m_area->activeSubWindow();
    if (front == nullptr || !front->isMinimized()) {
        return;
    }
    QList<QMdiSubWindow*> windows = m_area->subWindowList(QMdiArea::ActivationHistoryOrder);
    windows.removeIf([](const QMdiSubWindow* window) { return window->isMinimized(); });
    m_area->setActiveSubWindow(windows.isEmpty() ? nullptr : windows.last());
}

void MainWindow::onScreenClosed(std::size_t index) {
    m_entries[index].window = nullptr;
    m_entries[index].action->setEnabled(true);
    listWindows();
}

void MainWindow::listWindows() {
    m_windows->clear();
    for (const Entry& entry : m_entries) {
        if (entry.window != nullptr) {
            m_windows->addAction(entry.window->windowTitle(), this,
                                 [this, window = entry.window] { bringToFront(window); });
        }
    }
    m_windows->menuAction()->setEnabled(!m_windows->isEmpty());
}

void MainWindow::turnTab(int by) {
    const QMdiSubWindow* front = m_area->activeSubWindow();
    auto* tabs = front == nullptr ? nullptr : front->findChild<QTabWidget*>();
    if (tabs != nullptr && tabs->currentIndex() + by >= 0 && tabs->currentIndex() + by < tabs->count()) {
        tabs->setCurrentIndex(tabs->currentIndex() + by);
        focusOn(firstField(tabs->currentWidget()));
    }
}

void MainWindow::exit() {
    if (m_context.dialogs.confirm(u"Question"_s, u"Do you want to exit program?"_s, Dialogs::Question::Leaving)) {
        close();
    }
}

bool MainWindow::eventFilter(QObject* watched, QEvent* event) {
    // A screen goes when its handler has come to its end.
    if (event->type() == QEvent::Close && handlerWaits()) {
        event->ignore();
        return true;
    }
    return QMainWindow::eventFilter(watched, event);
}

void MainWindow::closeEvent(QCloseEvent* event) {
    if (handlerWaits()) {
        event->ignore();
        return;
    }
    // Every screen closes its connection before the program ends.
    m_area->closeAllSubWindows();
    event->accept();
    Q_EMIT ended();
}

}  // namespace kelvora
