#pragma once

#include "data/errors.h"
#include "data/result_set.h"
#include "data/sql.h"

#include <QString>

#include <memory>

namespace SQLite {
class Database;
}

namespace kelvora {

/// A screen's connection to the data file, open as long as the object lives. Every failure throws DataError.
class Connection {
public:
    /// How long a statement waits for a file that another program holds: a second, or 90 seconds on the screens whose
    /// entries must not be lost to a passing lock.
    enum class Patience { Short, Long };

    explicit Connection(const QString& path, Patience patience = Patience::Short);
    ~Connection();
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;

    /// The rows of a query, read to their end; crosstabs ("TRANSFORM … PIVOT …") included.
    ResultSet query(const Sql& sql);

    /// The same as a model for a list, grid or navigator.
    std::unique_ptr<ResultModel> model(const Sql& sql);

    /// Executes one statement that returns no rows; returns the number of rows it changed. Outside of a Transaction
    /// it is a transaction of its own, committed at once.
    int execute(const Sql& sql);

private:
    ResultSet rowsOf(const std::string& statement);

    std::unique_ptr<SQLite::Database> m_database;
};

}  // namespace kelvora
