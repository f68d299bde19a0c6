#include "data/transaction.h"

using namespace Qt::StringLiterals;

namespace kelvora {

Transaction::Transaction(Connection& connection) : m_connection(connection) {
    m_connection.execute(Sql("BEGIN IMMEDIATE"));
    m_before = m_connection.changeCounter();
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
    try {
        m_connection.execute(Sql("COMMIT"));
    } catch (const DataError& failure) {
        if (m_connection.inTransaction()) {
            throw;
        }
        m_open = false;
        const std::optional<bool> stored = carriedOut();
        if (!stored) {
            const QString reason = u"it is not known whether this was stored or deleted, since %1"_s;
            throw DataError(
                u"It is not known whether this was stored or deleted: %1. Please look it up before you do "
                "it again."_s.arg(failure.reason()),
                reason.arg(failure.reason()));
        }
        if (!*stored) {
            throw;
        }
    }
    m_open = false;
}

std::optional<bool> Transaction::carriedOut() const {
    try {
        // A journal that was left is played back by whoever reads the file next.
        Connection fresh(m_connection.path());
        fresh.execute(Sql("BEGIN"));
        fresh.query(Sql("select name from sqlite_master"));
        const std::optional<std::uint32_t> now = fresh.changeCounter();
        if (!m_before || !now || !m_connection.changeCounter() || *now - *m_before > 1) {
            return std::nullopt;
        }
        return *now != *m_before;
    } catch (const DataError&) {
        return std::nullopt;
    }
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
