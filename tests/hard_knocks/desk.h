#pragma once

#include "controls/progress.h"
#include "shell/main_window.h"
#include "support/planned_dialogs.h"
#include "support/screen_driver.h"
#include "support/temporary_store.h"

#include <QAction>
#include <QCoreApplication>
#include <QMdiArea>
#include <QMdiSubWindow>

namespace kelvora::test {

/// How often a hard knock is tried: a few times with every test run, and many times when long.sh asks for it.
inline int times(int everyDay, int longRun) {
    return qEnvironmentVariableIsSet("KELVORA_LONG") ? longRun : everyDay;
}

/// The seed of all random choices; KELVORA_SEED sets another one than that of every day.
inline quint32 seed() {
    return qEnvironmentVariable("KELVORA_SEED", u"20040309"_s).toUInt();
}

/// The screens of the main window in the order of its entries.
enum Place { General, Operations, Composition, Lengths, Gonads, Search, Password, CatchReport };

inline constexpr auto kOperation =
    "Vessel Name = Sea Star; Fishing Gear = Trawl; Fishing Method = Pair; Fishing Area = A2; Note = rain; "
    "Total Catch (kg/trip) = 120.5; Landing State/Province = Alpha; Landing Port = Bex";
inline constexpr auto kSingleSpecies = "Species = Nemipterus virgatus; Weight = 4";

/// Boxes of a sampler who waits for a file that another program holds, or does not.
struct Boxes : PlannedDialogs {
    Boxes() : PlannedDialogs(Noted) { yes = true; }
    std::function<bool()> waiting() override { return patient ? waitingBox() : PlannedDialogs::waiting(); }
    bool patient = false;
};

/// A sampler at the main window, who says yes to every question.
struct Desk {
    explicit Desk(const QString& path) : window({path, session, dialogs}) { window.show(); }

    /// Opens a screen, or brings it to the front as its key does; a tab and a frame of it.
    ScreenDriver open(int place, const QString& tab = {}, const QString& frame = {}) {
        Q_EMIT window.findChildren<QAction*>(QString(), Qt::FindDirectChildrenOnly).at(place)->triggered();
        QCoreApplication::processEvents();
        const ScreenDriver hand(front()->widget());
        if (!tab.isEmpty()) {
            hand.openTab(tab);
        }
        return frame.isEmpty() ? hand : hand.within(frame);
    }
    [[nodiscard]] QMdiSubWindow* front() const { return window.findChild<QMdiArea*>()->currentSubWindow(); }

    Session session{u"Administrator"_s, u"kelvora"_s, u"Port Sampler"_s};
    Boxes dialogs;
    MainWindow window;
};

/// The same over the small year, with its first operation at hand.
struct DeskOfSmallYear {
    DeskOfSmallYear() {
        store.addSmallYear();
        desk.session.lastSavedOperation = 1;
    }
    TemporaryStore store;
    Desk desk{store.path()};
};

}  // namespace kelvora::test
