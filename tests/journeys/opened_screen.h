#pragma once

#include "shell/main_window.h"
#include "support/screen_driver.h"

#include <QAction>
#include <QMdiSubWindow>
#include <QPointer>

namespace kelvora::test {

/// Opens a screen by its buttons and menu items of a caption and gives the hand that works on it.
inline ScreenDriver openedScreen(const MainWindow& window, const QString& action, const QString& title) {
    QList<QPointer<QAction>> called;
    for (QAction* found : window.findChildren<QAction*>()) {
        if (found->text() == action) {
            called.append(found);
        }
    }
    for (const QPointer<QAction>& found : called) {
        // Opening a screen writes the "Windows" menu anew: its old entries are gone.
        if (found && found->isEnabled()) {
            found->trigger();
        }
    }
    for (const QMdiSubWindow* found : window.findChildren<QMdiSubWindow*>()) {
        if (found->windowTitle() == title) {
            return ScreenDriver(found->widget());
        }
    }
    qFatal("no screen %s", qPrintable(title));
}

}  // namespace kelvora::test
