#pragma once

#include "controls/screen.h"
#include "recording_dialogs.h"
#include "support/screen_driver.h"

#include <functional>
#include <memory>
#include <vector>

namespace kelvora::test {

/// Something a sampler does that changes the data file of a small year.
struct Action {
    const char* name;
    std::function<std::unique_ptr<Screen>(const Context&)> open;
    /// Fills in what the action needs, up to the press of the button.
    std::function<void(const ScreenDriver& hand, RecordingDialogs& dialogs)> prepare;
    /// Presses the button.
    std::function<void(const ScreenDriver& hand)> act;
    /// Stored in steps, each for good on its own: one that is interrupted goes on where it stopped.
    bool inSteps = false;
};

const std::vector<Action>& actions();

}  // namespace kelvora::test
