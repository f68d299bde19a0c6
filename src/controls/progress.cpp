#include "controls/progress.h"

#include <QApplication>
#include <QCloseEvent>
#include <QProgressDialog>

using namespace Qt::StringLiterals;

namespace kelvora {
namespace {

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

}  // namespace

Progress::Progress(QString what, int steps, Way way) : m_what(std::move(what)), m_steps(steps), m_way(way) {
    m_shown.start();
}

Progress::~Progress() = default;

bool Progress::reached(int done) {
    constexpr int patience = 500;  // milliseconds
    constexpr int refresh = 50;
    m_done = done;
    if (!m_shown.hasExpired(m_box ? refresh : patience)) {
        return true;
    }
    if (!m_box) {
        m_box = std::make_unique<Box>(m_what, m_way == Way::GiveUp ? u"Cancel"_s : QString(), m_steps);
        m_box->show();
    }
    m_box->setValue(m_done);
    QApplication::processEvents();
    m_shown.restart();
    return !m_box->wasCanceled();
}

}  // namespace kelvora
