#pragma once

#include "data/errors.h"
#include "data/result_set.h"
#include "data/sql.h"

#include <QString>

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <unordered_map>

namespace SQLite {
class Database;
class Exception;
class Statement;
}  // namespace SQLite

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

    /// Where the file is.
    [[nodiscard]] QString path() const;
    [[nodiscard]] bool inTransaction() const;
    /// The number in the file that every transaction counts up that changes it; nothing if it cannot be read, or the
    /// file is not in its place any more.
    [[nodiscard]] std::optional<std::uint32_t> changeCounter() const;

private:
    /// Calls a piece of work with the statement ready to run, and makes a failure a DataError.
    template <typename Work>
    auto run(const Sql& sql, const Work& work);
    SQLite::Statement& prepared(const std::string& form, const Sql& sql);
    [[nodiscard]] QString reasonOf(const SQLite::Exception& refusal) const;

    std::unique_ptr<SQLite::Database> m_database;
    std::unordered_map<std::string, std::unique_ptr<SQLite::Statement>> m_prepared;  ///< by their form
};

}  // namespace kelvora
