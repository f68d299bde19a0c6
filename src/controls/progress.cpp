#include "controls/progress.h"

#include <QApplication>
#include <QCloseEvent>
#include <QEventLoop>
#include <QProgressDialog>
#include <QPushButton>
#include <QTimer>

using namespace Qt::StringLiterals;

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

/// Stays until its work is done, whatever key is pressed; without a text for the button that gives it up there is none.
class Box : public QProgressDialog {
public:
    Box(const QString& what, const QString& giveUp, int steps)
        : QProgressDialog(what, giveUp, 0, steps, QApplication::activeWindow(),
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

/// Another program holds the data file: said after half a second, with a way out. Until then keys and clicks are kept
/// for later; from then on nothing but the box takes them.
class WaitingBox {
public:
    WaitingBox() { m_since.start(); }

    bool waitOn() {
        constexpr int moment = 40;  // milliseconds
        if (!m_box && m_since.hasExpired(kPatience)) {
            show();
        }
        runEvents(moment, m_box ? QEventLoop::AllEvents : QEventLoop::ExcludeUserInputEvents, [] {});
        return !m_box || !m_box->wasCanceled();
    }

private:
    void show() {
        m_box = std::make_unique<QProgressDialog>(
            u"Another program is using the data file.\n"
            "As soon as it is free, the program goes on by itself."_s,
            QString(), 0, 0, QApplication::activeWindow());
        m_box->setWindowModality(Qt::ApplicationModal);
        m_box->setMinimumWidth(360);
        // Enter and Space, typed ahead for what stands below, must not give up.
        auto* giveUp = new QPushButton(u"&Give up"_s);
        giveUp->setAutoDefault(false);
        giveUp->setFocusPolicy(Qt::TabFocus);
        m_box->setCancelButton(giveUp);
        m_box->show();
        m_box->setFocus();
    }

    QElapsedTimer m_since;
    std::unique_ptr<QProgressDialog> m_box;
};

}  // namespace

std::function<bool()> waitingBox() {
    return [box = std::make_shared<WaitingBox>()] { return box->waitOn(); };
}

Progress::Progress(QString what, int steps, Way way) : m_what(std::move(what)), m_steps(steps), m_way(way) {
    m_shown.start();
}

Progress::~Progress() = default;

bool Progress::reached(int done) {
    constexpr int refresh = 50;
    m_done = done;
    if (!m_shown.hasExpired(m_box ? refresh : kPatience)) {
        return true;
    }
    if (!m_box) {
        m_box = std::make_unique<Box>(m_what, m_way == Way::GiveUp ? u"Cancel"_s : QString(), m_steps);
        m_box->show();
    }
    runEvents(0, QEventLoop::AllEvents, [this] { m_box->setValue(m_done); });
    m_shown.restart();
    return !m_box->wasCanceled();
}

}  // namespace kelvora
