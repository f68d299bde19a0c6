#pragma once

#include "data/connection.h"

#include <QString>

#include <optional>

namespace kelvora {

/// Who may sign in.
struct Account {
    QString login;
    QString password;
    QString userName;  ///< the recorder that new operations propose
};

/// The account with a login name and a password, of which letter case does not count; nothing if there is none.
std::optional<Account> accountOf(Connection& connection, const QString& login, const QString& password);

/// Stores the password and the name of the account with a login name. Returns whether there still is one.
bool changeAccount(Connection& connection, const Account& account);

}  // namespace kelvora
