#pragma once

#include <QElapsedTimer>
#include <QString>

#include <functional>
#include <memory>

class QProgressDialog;

namespace kelvora {

/// A wait for the data file, which another program holds: each call lets a moment go by and returns whether to wait any
/// longer. After half a second a box says so and lets the sampler give up; it goes with the function.
std::function<bool()> waitingBox();

/// How far a piece of work of many steps is, as long as the object lives: a box that appears when the work takes longer
/// than half a second, and keeps the window alive. The window takes no other input meanwhile.
class Progress {
public:
    /// Whether the box has a button that gives the work up half way.
    enum class Way { Through, GiveUp };

    /// What is being done, as the box says it, and how many steps it has.
    Progress(QString what, int steps, Way way = Way::Through);
    ~Progress();
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;

    /// A further step is done.
    void step() { static_cast<void>(reached(m_done + 1)); }
    /// So many steps are done. Returns false once the sampler has given the work up.
    [[nodiscard]] bool reached(int done);

private:
    QString m_what;
    int m_steps;
    Way m_way;
    int m_done = 0;
    QElapsedTimer m_shown;  ///< since the work began, or since the box was last brought up to date
    std::unique_ptr<QProgressDialog> m_box;
};

}  // namespace kelvora
