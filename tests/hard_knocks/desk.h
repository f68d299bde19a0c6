#pragma once

#include "controls/progress.h"
#include "shell/main_window.h"
#include "support/recording_dialogs.h"
#include "support/screen_driver.h"
#include "support/temporary_store.h"

#include <QAction>
#include <QCoreApplication>
#include <QMdiArea>
#include <QMdiSubWindow>

namespace kelvora::test {

/// The screens of the main window in the order of its entries.
enum Place { General, Operations, Composition, Lengths, Gonads, Search, Password, CatchReport };

/// Something that is filled in on a tab, in a frame if it has a name, and the button that stores it.
struct Filled {
    const char* name;
    int place;
    const char* tab;
    const char* frame;
    const char* steps;
    const char* button;
};

inline constexpr Filled kOperation = {
    "operation",
    Operations,
    "",
    "",
    "Vessel Name = Sea Star; Fishing Gear = Trawl; Fishing Method = Pair; Fishing Area = A2; Note = rain; "
    "Total Catch (kg/trip) = 120.5; Landing State/Province = Alpha; Landing Port = Bex",
    "SAVE"};
inline constexpr Filled kSingleSpecies = {"single species",
                                          Composition,
                                          "Species Composition",
                                          "Single species",
                                          "Species = Nemipterus virgatus; Weight = 4",
                                          "Add"};

/// Boxes of a sampler who waits for a file that another program holds, or does not.
struct Boxes : RecordingDialogs {
    std::function<bool()> waiting() override { return patient ? waitingBox() : RecordingDialogs::waiting(); }
    bool patient = false;
};

/// A sampler at the main window, who says yes to every question.
struct Desk {
    explicit Desk(const QString& path) : window({path, session, dialogs}) { window.show(); }

    /// Opens a screen, or brings it to the front as its key does.
    ScreenDriver open(int place, const QString& tab = {}) {
        Q_EMIT window.findChildren<QAction*>(QString(), Qt::FindDirectChildrenOnly).at(place)->triggered();
        QCoreApplication::processEvents();
        const ScreenDriver hand(front()->widget());
        if (!tab.isEmpty()) {
            hand.openTab(tab);
        }
        return hand;
    }
    /// Fills in everything but the press of the button; gives the frame with the button.
    ScreenDriver fill(const Filled& filled) {
        const ScreenDriver screen = open(filled.place, QString::fromLatin1(filled.tab));
        const ScreenDriver frame = *filled.frame == '\0' ? screen : screen.within(QString::fromLatin1(filled.frame));
        frame.enter(QString::fromUtf8(filled.steps));
        return frame;
    }
    [[nodiscard]] QMdiSubWindow* front() const { return window.findChild<QMdiArea*>()->currentSubWindow(); }

    Session session{u"Administrator"_s, u"kelvora"_s, u"Port Sampler"_s};
    Boxes dialogs;
    MainWindow window;
};

}  // namespace kelvora::test
