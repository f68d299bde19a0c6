#pragma once

#include "controls/captioned_grid.h"
#include "controls/record_navigator.h"
#include "reference/general_information_screen.h"
#include "support/screen_driver.h"
#include "support/temporary_store.h"

namespace kelvora::test {

/// The "General Information" screen over a data file of its own, with the usual reference rows or without any.
struct ReferenceScreen {
    explicit ReferenceScreen(bool empty = false) {
        if (!empty) {
            store.addReferenceRows();
        }
        reopen();
    }

    /// Opens the screen again, after rows were added behind its back.
    void reopen(const QString& tab = QStringLiteral("General")) {
        screen = std::make_unique<GeneralInformationScreen>(store.context());
        driver().openTab(tab);
    }

    [[nodiscard]] ScreenDriver driver() const { return ScreenDriver(screen.get()); }
    /// A frame of the screen, so that its own "Add" or "Delete" is pressed.
    [[nodiscard]] ScreenDriver in(const QString& frame) const { return driver().within(frame); }
    [[nodiscard]] QString caption(const QString& navigator) const { return driver().navigator(navigator)->caption(); }
    [[nodiscard]] bool done() const { return store.dialogs.done(); }

    TemporaryStore store;
    std::unique_ptr<GeneralInformationScreen> screen;
};

}  // namespace kelvora::test
