#include "records/accounts.h"

#include "data/names.h"

namespace kelvora {

std::optional<Account> accountOf(Connection& connection, const QString& login, const QString& password) {
    const ResultSet found =
        rowsNamed(connection, Sql("select * from kelvora_user where "), {{"login", login}, {"passwd", password}});
    if (found.isEmpty()) {
        return std::nullopt;
    }
    return Account{found.text(0, u"login"), found.text(0, u"passwd"), found.text(0, u"uname")};
}

bool changeAccount(Connection& connection, const Account& account) {
    return connection.execute(Sql("update kelvora_user set passwd = ")
                              << account.password << ",uname = " << account.userName
                              << " where login = " << account.login) > 0;
}

}  // namespace kelvora
