#pragma once

#include "controls/captioned_grid.h"
#include "controls/record_navigator.h"
#include "reference/general_information_screen.h"
#include "support/screen_driver.h"
#include "support/temporary_store.h"
#include "support/test_main.h"

#include <QTest>

namespace kelvora::test {

using namespace Qt::StringLiterals;

using Texts = QList<std::pair<QString, QString>>;

/// The "General Information" screen over a data file of its own, with the usual reference rows or without any.
struct ReferenceScreen {
    explicit ReferenceScreen(QString onTab = u"General"_s, bool empty = false) : tab(std::move(onTab)) {
        if (!empty) {
            store.addReferenceRows();
        }
        reopen();
    }
    /// Every planned box has come.
    ~ReferenceScreen() { QVERIFY(store.dialogs.done()); }

    /// Opens the screen again, after rows were added behind its back.
    void reopen() {
        screen = std::make_unique<GeneralInformationScreen>(store.context());
        hand().openTab(tab);
    }
    /// Types into the fields of a frame and presses its button.
    void add(const QString& frame, const Texts& texts, const QString& button = u"Add"_s) const {
        for (const auto& [field, text] : texts) {
            in(frame).type(field, text);
        }
        in(frame).press(button);
    }
    /// Answers the question of a list's delete button.
    void remove(const QString& list, const QString& title, const QString& question, bool yes = true) {
        store.dialogs.expectConfirm(title, question, yes);
        in(list).press(u"Delete"_s);
    }
    void refuseToRemove(const QString& list, const QString& title, const QString& message) {
        store.dialogs.expectMessage(title, message);
        in(list).press(u"Delete"_s);
    }

    [[nodiscard]] ScreenDriver hand() const { return ScreenDriver(screen.get()); }
    /// A frame of the screen, so that its own "Add" or "Delete" is pressed.
    [[nodiscard]] ScreenDriver in(const QString& frame) const { return hand().within(frame); }
    [[nodiscard]] QString caption(const QString& navigator) const { return hand().navigator(navigator)->caption(); }
    [[nodiscard]] QStringList rows(const QString& grid) const { return hand().rows(grid); }
    [[nodiscard]] QString text(const QString& field) const { return hand().text(field); }

    QString tab;
    TemporaryStore store;
    std::unique_ptr<GeneralInformationScreen> screen;
};

}  // namespace kelvora::test
