#pragma once

#include "controls/dialogs.h"

namespace kelvora {

/// What holds from a successful login to the end of the program.
struct Session {
    QString login;
    QString password;
    QString userName;            ///< the recorder that new operations propose
    int lastSavedOperation = 0;  ///< 0 if none: the sampling screens open on this operation
};

/// What a screen is handed when it is made.
struct Context {
    QString databasePath;
    Session& session;
    Dialogs& dialogs;

    /// For the connection of a screen whose entries must not be lost to a passing lock: how it waits.
    [[nodiscard]] auto waiting() const {
        return [&asked = dialogs] { return asked.waiting(); };
    }
};

}  // namespace kelvora
