#pragma once

#include "data/errors.h"
#include "data/result_set.h"
#include "data/sql.h"

#include <QString>

#include <cstdint>
#include <functional>
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
    /// Begins a wait for a file that another program holds. What it gives is called again and again as long as the wait
    /// goes on, takes a moment each time, and returns whether to wait any longer.
    using Waiting = std::function<std::function<bool()>()>;

    /// A statement that meets a file held by another program fails after a second. With a way of waiting, on the
    /// screens whose entries must not be lost to a passing lock, it is tried again until the wait is given up, at most
    /// 90 seconds.
    explicit Connection(const QString& path, Waiting waiting = {});
    ~Connection();
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;

    /// The rows of a query, read to their end.
    ResultSet query(const Sql& sql);

    /// The same as a model for a list, grid or navigator.
    std::unique_ptr<ResultModel> model(const Sql& sql);

    /// Executes one statement that returns no rows; returns the number of rows it changed. Outside of a Transaction
    /// it is a transaction of its own, committed at once.
    int execute(const Sql& sql);

    /// Whether another connection has changed the file since the last call, or since this one was opened. No answer is
    /// a no: a file that cannot be read now is asked again.
    bool changedElsewhere();
    /// Where the file is.
    [[nodiscard]] QString path() const;
    [[nodiscard]] bool inTransaction() const;
    /// The number in the file that every transaction counts up that changes it; nothing if it cannot be read, or the
    /// file is not in its place any more.
    [[nodiscard]] std::optional<std::uint32_t> changeCounter() const;

private:
    [[nodiscard]] int version() const;
    /// Calls a piece of work with the statement ready to run, and makes a failure a DataError.
    template <typename Work>
    auto run(const Sql& sql, const Work& work);
    /// Does a piece of work; as long as it meets a file held by another program and the wait goes on, once more.
    template <typename Work>
    auto patiently(const Work& work);
    SQLite::Statement& prepared(const std::string& form, const Sql& sql);
    [[nodiscard]] QString reasonOf(const SQLite::Exception& refusal) const;

    Waiting m_waiting;
    std::unique_ptr<SQLite::Database> m_database;
    std::unordered_map<std::string, std::unique_ptr<SQLite::Statement>> m_prepared;  ///< by their form
    int m_seen = 0;                                                                  ///< the version of the file
};

}  // namespace kelvora
