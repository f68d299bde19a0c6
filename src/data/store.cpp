#include "data/store.h"

#include "data/connection.h"
#include "data/schema.h"
#include "data/store_files.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>
#include <QtEndian>
#include <SQLiteCpp/Database.h>
#include <SQLiteCpp/Transaction.h>
#include <sqlite3.h>

using namespace Qt::StringLiterals;

namespace kelvora {
namespace {

/// Behind the name of a data file: the engine's own record of an unfinished save.
const QString kJournal = u"-journal"_s;

/// The place of the data file hinders, not the file: what to say of it until that is mended.
class Hindrance : public DataError {
    using DataError::DataError;
};

bool isHindrance(const QString& reason) {
    return reason == plainReason(SQLITE_READONLY, {}) || reason == plainReason(SQLITE_FULL, {});
}

[[noreturn]] void refuse(const QString& path, const QString& reason) {
    if (isHindrance(reason)) {
        throw Hindrance(u"The data file cannot be opened: %1.\n%2"_s.arg(reason, QDir::toNativeSeparators(path)));
    }
    throw DataError(u"The data file cannot be used: %1.\n\nIt was left as it is:\n%2"_s.arg(
        reason, QDir::toNativeSeparators(path)));
}

[[noreturn]] void cannotCreate(const QString& path, const QString& reason) {
    throw Hindrance(u"The data file cannot be created: %1.\n%2"_s.arg(reason, QDir::toNativeSeparators(path)));
}

/// Built beside its place and renamed when it is whole, so that a power cut never leaves half a data file.
void create(const QString& path) {
    if (!QDir().mkpath(QFileInfo(path).absolutePath())) {
        cannotCreate(path, u"its folder cannot be made"_s);
    }
    const QString unfinished = path + u".new"_s;
    // Left from a start that was cut off, or from a data file that was taken away: a journal without its file would be
    // played back into the new one.
    for (const QString& leftover : {unfinished, unfinished + kJournal, path + kJournal}) {
        QFile::remove(leftover);
    }
    try {
        SQLite::Database database(unfinished.toStdString(), SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE);
        SQLite::Transaction transaction(database);
        for (const std::string& statement : schemaStatements()) {
            database.exec(statement);
        }
        transaction.commit();
    } catch (const SQLite::Exception& e) {
        QFile::remove(unfinished);
        cannotCreate(path, plainReason(e.getErrorCode(), QString::fromUtf8(e.what())));
    }
    if (!QFile::rename(unfinished, path)) {
        QFile::remove(unfinished);
        cannotCreate(path, u"its folder may not be written to"_s);
    }
}

/// The first bytes of the file, read without the engine, which would write to a file that it finds half-written.
struct Header {
    explicit Header(const QString& path) {
        constexpr qint64 size = 100;
        QFile file(path);
        if (!file.open(QIODevice::ReadOnly)) {
            fault = u"it cannot be read (%1)"_s.arg(file.errorString());
            return;
        }
        const QByteArray bytes = file.read(size);
        if (bytes.isEmpty()) {
            fault = u"it is empty"_s;
        } else if (bytes.size() < size || !bytes.startsWith(QByteArrayLiteral("SQLite format 3\0"))) {
            fault = u"it is not a database"_s;
        } else {
            read(bytes.constData(), file.size());
        }
    }

    /// The same for a file beside which nothing waits to be taken in.
    [[nodiscard]] QString faultOfWhole() const { return fault.isEmpty() && !whole ? u"its end is missing"_s : fault; }

    QString fault;  ///< empty if it may be opened
    bool whole = false;

private:
    void read(const char* bytes, qint64 fileSize) {
        const auto number = [bytes](int at) { return qFromBigEndian<quint32>(bytes + at); };
        if (number(68) != kApplicationId) {
            fault = u"it belongs to another program"_s;
        } else if (number(60) > kSchemaVersion) {
            fault = u"it was made by a newer version of this program"_s;
        }
        const quint32 stored = qFromBigEndian<quint16>(bytes + 16);
        const qint64 pageSize = stored == 1 ? 65536 : stored;
        whole = fileSize >= pageSize * qint64{number(28)};
    }
};

/// What is wrong with the tables of a file; empty if nothing is.
QString tableFault(Connection& connection) {
    for (const Table& table : tables()) {
        const QString name = QString::fromLatin1(table.name);
        const ResultSet found = connection.query(Sql("select name from pragma_table_info(") << name << ")");
        bool same = found.rowCount() == static_cast<int>(table.columns.size());
        for (int i = 0; same && i < found.rowCount(); ++i) {
            const QString declared = QString::fromLatin1(table.columns[static_cast<std::size_t>(i)]);
            same = found.text(i, u"name") == declared.section(u' ', 0, 0);
        }
        if (!same) {
            return u"its table %1 is not as it should be"_s.arg(name);
        }
    }
    return {};
}

/// Opens a file: the engine undoes an interrupted save. Says what is wrong with it.
QString faultOfOpening(const QString& path) {
    try {
        Connection connection(path);
        return tableFault(connection);
    } catch (const DataError& e) {
        return e.reason();
    }
}

/// What would keep a save from being stored; empty if nothing would. The attempt is rolled back.
QString faultOfWriting(const QString& path) {
    try {
        SQLite::Database database(path.toStdString(), SQLite::OPEN_READWRITE);
        database.exec("BEGIN IMMEDIATE; PRAGMA user_version=" + std::to_string(kSchemaVersion) + "; ROLLBACK");
    } catch (const SQLite::Exception& e) {
        if (e.getErrorCode() != SQLITE_BUSY) {
            return plainReason(e.getErrorCode(), QString::fromUtf8(e.what()));
        }
    }
    return {};
}

/// Checks an existing file. Returns the line that is to be shown.
QString openedWithLine(const QString& path) {
    const Header header(path);
    if (!header.fault.isEmpty()) {
        refuse(path, header.fault);
    }
    // With a journal beside it the last save was interrupted; the engine mends that when it opens the file.
    if (const QString fault = header.faultOfWhole(); !fault.isEmpty() && !QFile::exists(path + kJournal)) {
        refuse(path, fault);
    }
    const QString fault = faultOfOpening(path);
    if (!fault.isEmpty()) {
        refuse(path, fault);
    }
    const QString hindered = faultOfWriting(path);
    return hindered.isEmpty() ? QString()
                              : u"Nothing can be stored: %1.\n%2"_s.arg(hindered, QDir::toNativeSeparators(path));
}

}  // namespace

QString defaultStorePath() {
    QString folder = QStandardPaths::writableLocation(QStandardPaths::AppDataLocation);
    if (QDir::isRelativePath(folder)) {
        // Else every folder that the program is started in had data of its own.
        folder = QDir::home().filePath(u".local/share/"_s + QCoreApplication::applicationName());
    }
    return QDir(folder).filePath(u"kelvora_db.sqlite"_s);
}

StoreState prepareStore(const QString& path) {
    const QFileInfo file(path);
    try {
        if (!file.exists() && !file.isSymLink()) {
            create(path);
            return {u"A new data file was made:\n%1"_s.arg(QDir::toNativeSeparators(path))};
        }
        if (!file.isFile()) {
            refuse(path, u"it is not a file"_s);
        }
        return {openedWithLine(placeOf(path))};
    } catch (const Hindrance& e) {
        return {QString::fromUtf8(e.what()), false};
    }
}

}  // namespace kelvora
