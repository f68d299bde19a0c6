#include "controls/progress.h"

#include <QApplication>
#include <QCloseEvent>
#include <QProgressDialog>

namespace kelvora {
namespace {

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
    constexpr int patience = 500;  // milliseconds
    constexpr int refresh = 50;
    ++m_done;
    if (!m_shown.hasExpired(m_box ? refresh : patience)) {
        return;
    }
    if (!m_box) {
        m_box = std::make_unique<Box>(m_what, m_steps);
        m_box->show();
    }
    m_box->setValue(m_done);
    QApplication::processEvents();
    m_shown.restart();
}

}  // namespace kelvora
