#pragma once

#include "data/connection.h"

#include <functional>

namespace kelvora {

/// A transaction as an object: begins on construction and rolls back on destruction unless it was committed.
class Transaction {
public:
    explicit Transaction(Connection& connection);
    ~Transaction();
    Transaction(const Transaction&) = delete;
    Transaction& operator=(const Transaction&) = delete;

    void commit();

private:
    Connection& m_connection;
    bool m_open = true;
};

/// Execute, then ask, then commit on Yes or roll back on No; returns the answer. A statement that fails is not asked
/// about.
bool executeThenAsk(Connection& connection, const Sql& sql, const std::function<bool()>& ask);

}  // namespace kelvora
