#include "data/transaction.h"

namespace kelvora {

Transaction::Transaction(Connection& connection) : m_connection(connection) {
    m_connection.execute(Sql("BEGIN IMMEDIATE"));
}

Transaction::~Transaction() {
    if (!m_open) {
        return;
    }
    try {
        m_connection.execute(Sql("ROLLBACK"));
    } catch (const DataError&) {
        // The engine has rolled back by itself, as it does when the disk is full.
        m_open = false;
    }
}

void Transaction::commit() {
    m_connection.execute(Sql("COMMIT"));
    m_open = false;
}

bool executeThenAsk(Connection& connection, const Sql& sql, const std::function<bool()>& ask) {
    Transaction transaction(connection);
    connection.execute(sql);
    if (!ask()) {
        return false;
    }
    transaction.commit();
    return true;
}

}  // namespace kelvora
