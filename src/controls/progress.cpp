#include "controls/progress.h"

#include <QApplication>
#include <QCloseEvent>
#include <QEventLoop>
#include <QProgressDialog>
#include <QTimer>

namespace kelvora {
namespace {

constexpr int kPatience = 500;  // milliseconds until it is said that something takes long

/// Lets events run for some milliseconds, 0 for those that are there, and does some work behind them. In a loop of its
/// own, by which the guard knows that the handler waits.
void runEvents(int milliseconds, QEventLoop::ProcessEventsFlags which, const std::function<void()>& work) {
    QEventLoop events;
    QTimer::singleShot(milliseconds, &events, [&] {
        work();
        events.quit();
    });
    events.exec(which);
}

/// Stays until its work is done, whatever key is pressed.
class Box : public QProgressDialog {
public:
    Box(const QString& what, int steps)
        : QProgressDialog(what, QString(), 0, steps, QApplication::activeWindow(),
                          Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint) {
        setWindowModality(Qt::ApplicationModal);
        setAutoClose(false);
        setAutoReset(false);
        setMinimumDuration(0);
        setMinimumWidth(360);
    }

    void reject() override {}

protected:
    void closeEvent(QCloseEvent* event) override { event->ignore(); }
};

}  // namespace

Progress::Progress(QString what, int steps) : m_what(std::move(what)), m_steps(steps) {
    m_shown.start();
}

Progress::~Progress() = default;

void Progress::step() {
    constexpr int refresh = 50;
    ++m_done;
    if (!m_shown.hasExpired(m_box ? refresh : kPatience)) {
        return;
    }
    if (!m_box) {
        m_box = std::make_unique<Box>(m_what, m_steps);
        m_box->show();
    }
    runEvents(0, QEventLoop::AllEvents, [this] { m_box->setValue(m_done); });
    m_shown.restart();
}

}  // namespace kelvora
