#include "data/connection.h"

#include "data/crosstab.h"
#include "data/dialect.h"

#include <QRegularExpression>
#include <SQLiteCpp/Column.h>
#include <SQLiteCpp/Database.h>
#include <SQLiteCpp/Statement.h>

namespace kelvora {
namespace {

constexpr int kShortWait = 1'000;  // milliseconds
constexpr int kLongWait = 90'000;

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

/// The name of a column. The engine numbers one that two tables of a nested join have ("stateid:1").
QString columnName(const SQLite::Statement& query, int column) {
    static const QRegularExpression number(QStringLiteral(":\\d+$"));
    return QString::fromUtf8(query.getColumnName(column)).remove(number);
}

}  // namespace

Connection::Connection(const QString& path, Patience patience) {
    try {
        // A connection belongs to its screen and is used by no other thread: the engine need not guard every value.
        m_database =
            std::make_unique<SQLite::Database>(path.toStdString(), SQLite::OPEN_READWRITE | SQLite::OPEN_NOMUTEX,
                                               patience == Patience::Long ? kLongWait : kShortWait);
        // EXTRA: a commit survives a power cut, the deletion of its journal included.
        m_database->exec("PRAGMA synchronous=EXTRA; PRAGMA cache_size=-65536");
        registerFunctions(*m_database);
    } catch (const SQLite::Exception& e) {
        const QString reason = plainReason(e.getErrorCode(), QString::fromUtf8(e.what()));
        throw DataError(QStringLiteral("The data file cannot be opened: %1.\n\n%2").arg(reason, path), reason);
    }
}

Connection::~Connection() = default;

ResultSet Connection::query(const Sql& sql) {
    if (const auto crosstab = parseCrosstab(sql.text())) {
        return pivoted(*crosstab, rowsOf(crosstab->statement));
    }
    return rowsOf(sql.text());
}

std::unique_ptr<ResultModel> Connection::model(const Sql& sql) {
    return std::make_unique<ResultModel>(query(sql));
}

int Connection::execute(const Sql& sql) {
    try {
        return SQLite::Statement(*m_database, translate(sql.text())).exec();
    } catch (const SQLite::Exception& e) {
        throw statementError(sql.text(), e.getErrorCode(), QString::fromUtf8(e.what()));
    }
}

ResultSet Connection::rowsOf(const std::string& statement) {
    try {
        SQLite::Statement query(*m_database, translate(statement));
        ResultSet result;
        const int columns = query.getColumnCount();
        for (int i = 0; i < columns; ++i) {
            result.columns.push_back(columnName(query, i));
        }
        while (query.executeStep()) {
            std::vector<QVariant>& row = result.rows.emplace_back();
            row.reserve(static_cast<std::size_t>(columns));
            for (int i = 0; i < columns; ++i) {
                row.push_back(valueOf(query.getColumn(i)));
            }
        }
        return result;
    } catch (const SQLite::Exception& e) {
        throw statementError(statement, e.getErrorCode(), QString::fromUtf8(e.what()));
    }
}

}  // namespace kelvora
