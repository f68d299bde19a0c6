#pragma once

#include "controls/screen.h"
#include "support/recording_dialogs.h"
#include "support/screen_driver.h"
#include "support/temporary_store.h"

#include <memory>
#include <vector>

namespace kelvora::test {

/// Something a sampler does that changes the data file of a small year: what is filled in on a tab, inside a frame if
/// it has a name, and the button that stores it.
struct Action {
    const char* name;
    std::unique_ptr<Screen> (*open)(const Context&);
    QString tab, frame;
    QString steps;  ///< for ScreenDriver::enter()
    QString button;
    /// Stored in steps, each for good on its own: one that is interrupted goes on where it stopped.
    bool inSteps = false;
    QString file = {};  ///< to be imported
};

const std::vector<Action>& actions();
const Action& action(const char* name);

template <typename ScreenClass>
std::unique_ptr<Screen> make(const Context& context) {
    return std::make_unique<ScreenClass>(context);
}

/// Opens the screen of an action and fills in everything but the press of its button; gives the frame with the button.
ScreenDriver prepare(const Action& action, std::unique_ptr<Screen>& screen, const Context& context);

/// A sampler at a screen over a small year, everything filled in but the last press of a button.
struct Desk {
    explicit Desk(const Action& chosen);
    /// Presses the button; what was said before is forgotten.
    void act();
    QStringList stored() { return store.wholeFile() + store.rows("select * from kelvora_user"); }

    const Action& action;
    TemporaryStore store;
    RecordingDialogs dialogs;
    std::unique_ptr<Screen> screen;
    ScreenDriver frame;
};

}  // namespace kelvora::test
