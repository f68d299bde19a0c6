#include "office.h"

#include <QAction>
#include <QApplication>
#include <QFile>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QTest>
#include <SQLiteCpp/Column.h>
#include <SQLiteCpp/Database.h>
#include <SQLiteCpp/Statement.h>

#include <stdexcept>
#ifdef Q_OS_LINUX
#include <unistd.h>

using namespace Qt::StringLiterals;
#endif

namespace kelvora::bench {
namespace {

class PaintCounter : public QObject {
public:
    PaintCounter() { qApp->installEventFilter(this); }
    bool eventFilter(QObject* /*watched*/, QEvent* event) override {
        m_count += event->type() == QEvent::Paint ? 1 : 0;
        return false;
    }
    int take() { return std::exchange(m_count, 0); }

private:
    int m_count = 0;
};

PaintCounter& painted() {
    static PaintCounter counter;
    return counter;
}

QMdiSubWindow* windowOf(const QWidget& window, const QString& title) {
    for (QMdiSubWindow* found : window.findChildren<QMdiSubWindow*>()) {
        if (found->windowTitle() == title) {
            return found;
        }
    }
    return nullptr;
}

}  // namespace

Office::Office(const Size& size, const QString& folder, const QString& preparation)
    : m_size(size), m_folder(folder + u"/office-XXXXXX"_s) {
    const QString path = file(u"kelvora_db.sqlite"_s);
    if (!QFile::copy(databaseOf(size, folder), path)) {
        throw std::runtime_error("the data file cannot be copied");
    }
    m_direct = std::make_unique<SQLite::Database>(path.toStdString(), SQLite::OPEN_READWRITE | SQLite::OPEN_NOMUTEX);
    m_direct->exec("PRAGMA synchronous=EXTRA; PRAGMA cache_size=-65536");
    if (!preparation.isEmpty()) {
        m_direct->exec(preparation.toStdString());
    }
    setDesk();
    m_connection = std::make_unique<Connection>(path);
    painted();
    m_window = std::make_unique<MainWindow>(Context{path, session, dialogs});
    m_window->resize(1366, 768);
    m_window->show();
    m_window->activateWindow();
    (void)QTest::qWaitForWindowActive(m_window.get());
}

Office::~Office() = default;

void Office::setDesk() {
    std::string statements = "BEGIN;";
    for (const char* table :
         {"group_main", "group_composition", "length", "length_detail", "gonad", "gonad_detail", "fishoperation"}) {
        const bool operation = std::string(table) == "fishoperation";
        statements += std::string("DELETE FROM ") + table + " WHERE optid > " +
                      std::to_string(deskOperation() - (operation ? 0 : 1)) + ";";
    }
    const std::string desk = std::to_string(deskOperation());
    const std::string common = "portid = 1, fishing_method = 1, areaid = 'Area 01' WHERE optid = ";
    // What the searches and reports choose has an operation in the smallest file too.
    statements += "UPDATE fishoperation SET vesselid = 'Vessel 0001', " + common + std::to_string(deskOperation() - 1) +
                  "; UPDATE fishoperation SET vesselid = 'Desk vessel', " + common + desk +
                  "; INSERT INTO vessel(vesselname, vesselid) VALUES ('Desk vessel', 'D-1');"
                  "INSERT INTO group_main VALUES (1, " +
                  desk + ", 'Single species', 10);";
    for (int species = 1; species <= 10; ++species) {
        statements += "INSERT INTO group_composition VALUES (" + desk + "," + std::to_string(species) + ",1,1,1);";
    }
    m_direct->exec(statements + "COMMIT");
}

test::ScreenDriver Office::open(const QString& caption, const QString& title, bool button) {
    for (QAction* found : m_window->findChildren<QAction*>()) {
        // The entries of the "Windows" menu belong to the menu.
        if (found->text() == caption && found->icon().isNull() != button && found->isEnabled() &&
            qobject_cast<QMenu*>(found->parent()) == nullptr) {
            found->trigger();
            break;
        }
    }
    QMdiSubWindow* screen = windowOf(*m_window, title);
    if (screen == nullptr) {
        qFatal("no screen %s", qPrintable(title));
    }
    m_window->findChild<QMdiArea*>()->setActiveSubWindow(screen);
    return test::ScreenDriver(screen->widget());
}

void Office::close(const QString& title) {
    windowOf(*m_window, title)->close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    settle();
}

int Office::settle() {
    painted().take();
    for (int round = 0; round < 3; ++round) {
        QCoreApplication::sendPostedEvents();
        QCoreApplication::processEvents();
        QEvent update(QEvent::UpdateRequest);
        QCoreApplication::sendEvent(m_window.get(), &update);
    }
    return painted().take();
}

void Office::ask(const std::vector<std::string>& statements) {
    for (const std::string& text : statements) {
        SQLite::Statement statement(*m_direct, text);
        while (statement.executeStep()) {
            for (int i = 0; i < statement.getColumnCount(); ++i) {
                (void)statement.getColumn(i).getBytes();
            }
        }
    }
}

double residentMegabytes() {
#ifdef Q_OS_LINUX
    QFile file(u"/proc/self/statm"_s);
    if (file.open(QIODevice::ReadOnly)) {
        return file.readAll().split(' ').value(1).toDouble() * static_cast<double>(sysconf(_SC_PAGESIZE)) / (1 << 20);
    }
#endif
    return 0;
}

}  // namespace kelvora::bench
