#pragma once

#include "data/connection.h"

#include <functional>

namespace kelvora {

/// A transaction as an object: begins on construction and rolls back on destruction unless it was committed. Throws
/// DataError.
class Transaction {
public:
    explicit Transaction(Connection& connection);
    ~Transaction();
    Transaction(const Transaction&) = delete;
    Transaction& operator=(const Transaction&) = delete;

    /// Returns when everything is stored, also if the disk reported an error behind that. Throws DataError in words
    /// that say whether nothing is stored, or that it is not known.
    void commit();

private:
    /// Whether a commit that failed was carried out; nothing if that cannot be told.
    [[nodiscard]] std::optional<bool> carriedOut() const;

    Connection& m_connection;
    std::optional<std::uint32_t> m_before;  ///< the file's change counter
    bool m_open = true;
};

/// Execute, then ask, then commit on Yes or roll back on No; returns the answer. A statement that fails is not asked
/// about.
bool executeThenAsk(Connection& connection, const Sql& sql, const std::function<bool()>& ask);

}  // namespace kelvora
