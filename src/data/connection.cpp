#include "data/connection.h"

#include "data/functions.h"
#include "data/transaction.h"

#include <QElapsedTimer>
#include <QScopeGuard>
#include <QtEndian>
#include <SQLiteCpp/Column.h>
#include <SQLiteCpp/Database.h>
#include <SQLiteCpp/Statement.h>
#include <sqlite3.h>

#include <array>
#include <utility>

using namespace Qt::StringLiterals;

namespace kelvora {
namespace {

constexpr int kShortWait = 1'000;  // milliseconds
constexpr int kLongWait = 90'000;
constexpr QStringView kNotRead = u"The data could not be read: %1.";
constexpr QStringView kNotStored = u"Nothing was stored or deleted: %1.";

QVariant valueOf(const SQLite::Column& column) {
    if (column.isNull()) {
        return {};
    }
    if (column.isInteger()) {
        return static_cast<qlonglong>(column.getInt64());
    }
    if (column.isFloat()) {
        return column.getDouble();
    }
    const char* text = column.getText();
    return QString::fromUtf8(text, column.getBytes());
}

ResultSet rowsOf(SQLite::Statement& query) {
    ResultSet result;
    const int columns = query.getColumnCount();
    for (int i = 0; i < columns; ++i) {
        result.columns.push_back(QString::fromUtf8(query.getColumnName(i)));
    }
    while (query.executeStep()) {
        std::vector<QVariant>& row = result.rows.emplace_back();
        row.reserve(static_cast<std::size_t>(columns));
        for (int i = 0; i < columns; ++i) {
            row.push_back(valueOf(query.getColumn(i)));
        }
    }
    return result;
}

/// Not so what begins or ends a transaction, or changes the file as a whole.
bool changesRows(const Sql& sql) {
    const QByteArray verb = QByteArray::fromStdString(sql.prepared()).trimmed().left(6).toLower();
    return verb == "insert" || verb == "update" || verb == "delete";
}

}  // namespace

template <typename Work>
auto Connection::patiently(const Work& work) {
    std::function<bool()> waitOn;
    QElapsedTimer waited;
    while (true) {
        try {
            return work();
        } catch (const SQLite::Exception& e) {
            if ((e.getErrorCode() & 0xff) != SQLITE_BUSY || !m_waiting) {
                throw;
            }
            if (!waitOn) {
                waitOn = m_waiting();
                waited.start();
            }
            if (waited.hasExpired(kLongWait) || !waitOn()) {
                throw;
            }
        }
    }
}

Connection::Connection(const QString& path, Waiting waiting) : m_waiting(std::move(waiting)) {
    try {
        // A connection belongs to its screen and is used by no other thread: the engine need not guard every value.
        // A wait that keeps the window alive is not the engine's, which would sleep.
        m_database = std::make_unique<SQLite::Database>(
            path.toStdString(), SQLite::OPEN_READWRITE | SQLite::OPEN_NOMUTEX, m_waiting ? 0 : kShortWait);
        sqlite3_extended_result_codes(m_database->getHandle(), 1);
        // EXTRA: a commit survives a power cut, the deletion of its journal included. 8 MB of pages: every open screen
        // has its own, and the system keeps the rest of the file at hand for all of them.
        patiently([this] { m_database->exec("PRAGMA synchronous=EXTRA; PRAGMA cache_size=-8192"); });
        registerFunctions(*m_database);
        m_seen = version();
    } catch (const SQLite::Exception& e) {
        const QString reason = reasonOf(e);
        throw DataError(u"The data file cannot be opened: %1.\n\n%2"_s.arg(reason, path), reason);
    }
}

Connection::~Connection() = default;

template <typename Work>
auto Connection::run(const Sql& sql, QStringView failure, const Work& work) {
    try {
        return patiently([&] {
            if (sql.values().empty()) {
                SQLite::Statement once(*m_database, sql.prepared());
                return work(once);
            }
            SQLite::Statement& statement = prepared(sql.prepared());
            // A statement that is not reset would keep the file locked for other windows.
            const auto atEnd = qScopeGuard([&statement] {
                (void)statement.tryReset();
                statement.clearBindings();
            });
            for (int place = 1; const Sql::Value& value : sql.values()) {
                std::visit([&](const auto& bound) { statement.bind(place, bound); }, value);
                ++place;
            }
            return work(statement);
        });
    } catch (const SQLite::Exception& e) {
        throw failed(failure, e);
    }
}

QString Connection::reasonOf(const SQLite::Exception& refusal) const {
    const int systemError = m_database ? sqlite3_system_errno(m_database->getHandle()) : 0;
    return plainReason(refusal.getErrorCode(), QString::fromUtf8(refusal.what()), systemError);
}

DataError Connection::failed(QStringView failure, const SQLite::Exception& refusal) const {
    const QString reason = reasonOf(refusal);
    return DataError(failure.arg(reason), reason);
}

ResultSet Connection::query(const Sql& sql) {
    return run(sql, kNotRead, rowsOf);
}

QString Connection::path() const {
    return QString::fromStdString(m_database->getFilename());
}

bool Connection::inTransaction() const {
    return sqlite3_get_autocommit(m_database->getHandle()) == 0;
}

std::optional<std::uint32_t> Connection::changeCounter() const {
    constexpr int place = 24;  // in the header of the file
    sqlite3* engine = m_database->getHandle();
    int moved = 0;
    sqlite3_file* file = nullptr;
    std::array<unsigned char, 4> bytes{};
    // Through the engine's own handle: whoever opens the file beside the engine and closes it again takes its locks
    // away.
    if (sqlite3_file_control(engine, nullptr, SQLITE_FCNTL_HAS_MOVED, &moved) != SQLITE_OK || moved != 0 ||
        sqlite3_file_control(engine, nullptr, SQLITE_FCNTL_FILE_POINTER, &file) != SQLITE_OK ||
        file->pMethods->xRead(file, bytes.data(), static_cast<int>(bytes.size()), place) != SQLITE_OK) {
        return std::nullopt;
    }
    return qFromBigEndian<quint32>(bytes.data());
}

std::unique_ptr<ResultModel> Connection::model(const Sql& sql) {
    return std::make_unique<ResultModel>(query(sql));
}

int Connection::execute(const Sql& sql) {
    if (changesRows(sql) && !inTransaction()) {
        Transaction transaction(*this);
        const int rows = execute(sql);
        transaction.commit();
        return rows;
    }
    return run(sql, kNotStored, [](SQLite::Statement& statement) { return statement.exec(); });
}

int Connection::version() const {
    return m_database->execAndGet("PRAGMA data_version").getInt();
}

bool Connection::changedElsewhere() {
    try {
        const int before = std::exchange(m_seen, version());
        return m_seen != before;
    } catch (const SQLite::Exception&) {
        return false;
    }
}

SQLite::Statement& Connection::prepared(const std::string& text) {
    constexpr std::size_t most = 64;
    auto known = m_prepared.find(text);
    if (known == m_prepared.end()) {
        if (m_prepared.size() >= most) {
            m_prepared.clear();
        }
        known = m_prepared.emplace(text, std::make_unique<SQLite::Statement>(*m_database, text)).first;
    }
    return *known->second;
}

}  // namespace kelvora
