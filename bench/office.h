#pragma once

#include "data/connection.h"
#include "database.h"
#include "shell/main_window.h"
#include "support/planned_dialogs.h"
#include "support/screen_driver.h"

#include <QTemporaryDir>

#include <functional>
#include <string>
#include <vector>

namespace SQLite {

using namespace Qt::StringLiterals;
class Database;
}  // namespace SQLite

using namespace Qt::StringLiterals;

namespace kelvora::bench {

/// The program in front of a sampler, without a display, on a copy of a generated data file. The copy's last operation
/// is taken out, so that one can be stored, and the one before it becomes the desk's: of the vessel "Desk vessel", with
/// ten single species weighed and nothing measured.
class Office {
public:
    Office(const Size& size, const QString& folder, const QString& preparation);
    ~Office();

    /// Opens a screen by its button or menu item, or brings it to the front.
    test::ScreenDriver open(const QString& caption, const QString& title, bool button = false);
    void close(const QString& title);
    /// Runs what the program has been asked to do until nothing is left, painting included; returns what was painted.
    int settle();
    /// Asks the engine directly and reads every value.
    void ask(const std::vector<std::string>& statements);
    [[nodiscard]] QString file(const QString& name) const { return m_folder.filePath(name); }
    [[nodiscard]] int deskOperation() const { return m_size.operations - 1; }

    test::PlannedDialogs dialogs;
    Session session{u"Administrator"_s, u"kelvora"_s, u"Port Sampler"_s};

    /// A report's connection, to ask for its data without its screen.
    Connection& connection() { return *m_connection; }

private:
    void setDesk();

    Size m_size;
    QTemporaryDir m_folder;
    std::unique_ptr<SQLite::Database> m_direct;
    std::unique_ptr<Connection> m_connection;
    std::unique_ptr<MainWindow> m_window;
};

/// Something that a sampler waits for. What stands beside it: the same answer, asked of the engine directly.
struct Action {
    QString name;
    std::function<void(Office&)> before = {};  ///< brings the screen there, not timed
    std::function<void(Office&)> run = {};     ///< from the press of the key until the answer is painted
    std::vector<std::string> direct = {};
    std::vector<std::string> undo = {};  ///< behind each, not timed
    std::function<void(Office&)> after = {};
    bool paints = true;
    int times = 15;
};

/// The three groups of actions, each on screens that are opened for it and stay open.
std::vector<Action> screenActions();
std::vector<Action> sampleActions(const Office& office);
std::vector<Action> reportActions();

/// Opens all screens.
void openAll(Office& office);

/// Megabytes of memory that are resident now; 0 where the system does not say.
double residentMegabytes();

}  // namespace kelvora::bench
