#pragma once

#include "shell/main_window.h"
#include "step_file.h"
#include "support/obstacles.h"
#include "support/screen_driver.h"
#include "support/temporary_store.h"

class QMdiSubWindow;

namespace kelvora::test {

/// The main window over a small sampled year, in which one case is played.
class Stage {
public:
    /// With obstacles, each saving step is tried first while its save cannot be carried out.
    explicit Stage(bool obstacles = false);

    /// Plays a case; what went otherwise than it says ("file:line: …"), empty if nothing did.
    QString play(const StepCase& steps);

private:
    QString perform(Step step);
    QString act(const Step& step);
    QString check(const Step& step);
    QString checkText(const QString& rest) const;
    QString checkFocus(const Step& step) const;
    QString checkRows(const Step& step);
    QString meet(const Step& step, const QString& reason, const std::function<Obstacle()>& put);
    QString meetObstacles(Step& step);

    [[nodiscard]] QMdiSubWindow* front() const;
    [[nodiscard]] ScreenDriver hand() const;
    [[nodiscard]] const QAction* menuOf(const QString& caption) const;
    void trigger(const QString& menu, const QString& caption);
    void pressKeys(const QString& keys);
    QStringList wholeFile();
    [[nodiscard]] QStringList stored(const QString& question) const;
    void write(const QString& name, const QStringList& lines);
    void elsewhere(const QString& statement) const;

    TemporaryStore m_store;
    PlannedDialogs m_dialogs{PlannedDialogs::Noted};
    std::unique_ptr<MainWindow> m_window;
    bool m_obstacles;
    QString m_frame;
};

}  // namespace kelvora::test
