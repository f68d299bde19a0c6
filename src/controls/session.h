#pragma once

#include <QString>

namespace kelvora {

class Dialogs;

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
};

}  // namespace kelvora
