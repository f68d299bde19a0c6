#include "data/store.h"

#include "data/store_files.h"

#include <QCoreApplication>
#include <QDate>
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

/// Marks a file as one of this program ("KELV").
constexpr quint32 kApplicationId = 0x4B454C56;
/// Counts up whenever the tables change.
constexpr quint32 kSchemaVersion = 1;

/// The statements that make an empty file a data file: tables, indexes, maturity stages, the first account.
QByteArray schema() {
    QFile file(u":/schema.sql"_s);
    if (!file.open(QIODevice::ReadOnly)) {
        qFatal("the tables are not in the program");
    }
    return file.readAll();
}

/// The place of the data file hinders, not the file: what to say of it until that is mended.
class Hindrance : public DataError {
    using DataError::DataError;
};

bool isHindrance(const QString& reason) {
    const auto hinders = [&](int code) { return reason == plainReason(code, {}); };
    return hinders(SQLITE_READONLY) || hinders(SQLITE_FULL) || hinders(SQLITE_BUSY);
}

[[noreturn]] void refuse(const QString& path, const QString& reason, const QString& copies = {}) {
    if (isHindrance(reason)) {
        throw Hindrance(u"The data file cannot be opened: %1.\n%2"_s.arg(reason, QDir::toNativeSeparators(path)));
    }
    throw DataError(u"The data file cannot be used: %1.\n\nIt was left as it is:\n%2"_s.arg(
                        reason, QDir::toNativeSeparators(path)) +
                    copies);
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
    // Left from a start that was cut off.
    for (const QString& leftover : {unfinished, unfinished + kJournal}) {
        QFile::remove(leftover);
    }
    try {
        SQLite::Database database(unfinished.toStdString(), SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE);
        SQLite::Transaction transaction(database);
        database.exec(schema().toStdString() + "; PRAGMA application_id=" + std::to_string(kApplicationId) +
                      "; PRAGMA user_version=" + std::to_string(kSchemaVersion));
        transaction.commit();
    } catch (const SQLite::Exception& e) {
        QFile::remove(unfinished);
        cannotCreate(path, plainReason(e.getErrorCode(), QString::fromUtf8(e.what())));
    }
    // Left from a data file that was taken away: the engine would take it into the new one.
    if (!setAside(path, {kJournal, kLog, kLogIndex}) || !QFile::rename(unfinished, path)) {
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

    QString fault;        ///< empty if it may be opened
    quint32 changes = 0;  ///< every save counts it up by one
    bool keepsLog = false;
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
        changes = number(24);
        keepsLog = bytes[18] == 2 || bytes[19] == 2;
        whole = fileSize >= pageSize * qint64{number(28)};
    }
};

/// The columns of each table of a new file, in their order.
std::vector<std::pair<QString, QStringList>> newTables() {
    std::vector<std::pair<QString, QStringList>> found;
    for (const QString& line : QString::fromUtf8(schema()).split(u'\n')) {
        const QStringList words = line.split(u' ', Qt::SkipEmptyParts);
        if (line.startsWith(u"CREATE TABLE ")) {
            found.emplace_back(words[2], QStringList());
        } else if (line.startsWith(u"    ") && words[0] != u"PRIMARY") {
            found.back().second.append(words[0]);
        }
    }
    return found;
}

/// What is wrong with the tables of a file; empty if nothing is. Further tables are nobody's business.
QString tableFault(Connection& connection) {
    for (const auto& [table, columns] : newTables()) {
        const ResultSet found =
            connection.query(Sql("SELECT group_concat(name, ' ') AS columns FROM pragma_table_info(") << table << ")");
        if (found.text(0, u"columns") != columns.join(u' ')) {
            return u"its table %1 is not as it should be"_s.arg(table);
        }
    }
    return {};
}

/// Opens a file: the engine undoes an interrupted save and takes in what a log keeps. Says what is wrong with it.
QString faultOfOpening(const QString& path, bool everyPage, const Connection::Waiting& waiting = {}) {
    try {
        Connection connection(path, waiting);
        // One file is all the data, so that its copy is a backup: no log beside it, whatever tool made one.
        if (connection.query(Sql("pragma journal_mode=delete")).text(0, u"journal_mode") != u"delete") {
            return u"its log cannot be ended"_s;
        }
        if (everyPage && connection.query(Sql("pragma integrity_check")).text(0, u"integrity_check") != u"ok") {
            return plainReason(SQLITE_CORRUPT, {});
        }
        return tableFault(connection);
    } catch (const DataError& e) {
        return e.reason();
    }
}

/// A journal or a log beside the file may belong to another one, over which this one was copied: what it would make of
/// the file is tried on copies. They stay if the file is refused.
void tryOnCopies(const QString& path, const Header& before) {
    const auto copied = [&path](const QString& copy) {
        if (const QString reason = copyAside(path, copy); !reason.isEmpty()) {
            throw Hindrance(u"The data file cannot be copied before it is mended: %1.\n%2"_s.arg(
                reason, QDir::toNativeSeparators(path)));
        }
        return copy;
    };
    const bool undoes = QFile::exists(path + kJournal) && !before.keepsLog;
    const QString copy = copied(path + u"-copy-"_s + QDate::currentDate().toString(Qt::ISODate));
    QString fault = faultOfOpening(copy, true);
    const Header after(copy);
    if (fault.isEmpty() && undoes && after.changes != before.changes && after.changes + 1 != before.changes) {
        // An interrupted save has counted the changes up once, or not yet.
        fault = u"the journal beside it belongs to another data file"_s;
    } else if (fault.isEmpty()) {
        fault = after.faultOfWhole();
    }
    removeCopy(copy);
    if (isHindrance(fault)) {
        refuse(path, fault);
    }
    if (!fault.isEmpty()) {
        refuse(path, fault,
               u"\n\nA copy of it and of what lay beside it:\n%1"_s.arg(QDir::toNativeSeparators(copied(copy))));
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
QString openedWithLine(const QString& path, const Connection::Waiting& waiting) {
    const Header header(path);
    if (!header.fault.isEmpty()) {
        refuse(path, header.fault);
    }
    // Left from another file at this place: this one keeps no log, but the engine would take it in.
    if (!header.keepsLog && !setAside(path, {kLog, kLogIndex})) {
        refuse(path, plainReason(SQLITE_READONLY, {}));
    }
    if (header.keepsLog || QFile::exists(path + kJournal)) {
        tryOnCopies(path, header);
    } else if (const QString fault = header.faultOfWhole(); !fault.isEmpty()) {
        refuse(path, fault);
    }
    const QString fault = faultOfOpening(path, false, waiting);
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

StoreState prepareStore(const QString& path, const Connection::Waiting& waiting) {
    const QFileInfo file(path);
    try {
        if (!file.exists() && !file.isSymLink()) {
            create(path);
            return {u"A new data file was made:\n%1"_s.arg(QDir::toNativeSeparators(path))};
        }
        if (!file.isFile()) {
            refuse(path, u"it is not a file"_s);
        }
        return {openedWithLine(placeOf(path), waiting)};
    } catch (const Hindrance& e) {
        return {QString::fromUtf8(e.what()), false};
    }
}

}  // namespace kelvora
