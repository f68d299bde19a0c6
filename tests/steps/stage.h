#pragma once

#include "shell/main_window.h"
#include "step_dialogs.h"
#include "support/screen_driver.h"
#include "support/temporary_store.h"

class QMdiSubWindow;

namespace kelvora::test {

/// A line of a step file.
struct StepLine {
    int number = 0;
    QString text;
};

/// A case: its title, and its lines in order.
struct StepCase {
    QString title;
    QString file;
    QList<StepLine> lines;
};

/// The cases of a step file; test_steps.cpp says what they look like.
QList<StepCase> casesOf(const QString& path);

/// What stands in the way of a save when a case is replayed.
enum class Obstacle { None, RefusingTable, FullDisk, LockedFile };

/// The main window over a small sampled year, in which one case is played.
class Stage {
public:
    explicit Stage(Obstacle obstacle = Obstacle::None);

    /// Plays a case; what went otherwise than it says ("file:line: …"), empty if nothing did.
    QString play(const StepCase& steps);

private:
    QString act(const QString& verb, const QString& rest, const QStringList& block);
    QString check(const QString& verb, const QString& rest, const QStringList& block);
    QString perform(const StepCase& steps, qsizetype& at);
    QString tryAgainstObstacle(const std::function<QString()>& action, const QList<ExpectedBox>& boxes,
                               const QStringList& changes);

    [[nodiscard]] QMdiSubWindow* front() const;
    [[nodiscard]] ScreenDriver hand() const;
    void trigger(const QString& menu, const QString& caption);
    void pressKeys(const QString& keys);
    QStringList wholeFile();
    void write(const QString& name, const QStringList& lines);
    void elsewhere(const QString& statement) const;

    TemporaryStore m_store;
    StepDialogs m_dialogs;
    MainWindow m_window;
    Obstacle m_obstacle;
    QString m_frame;
};

}  // namespace kelvora::test
