#include "data/store.h"

#include "data/connection.h"
#include "data/schema.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>
#include <QtEndian>
#include <SQLiteCpp/Database.h>
#include <SQLiteCpp/Transaction.h>

using namespace Qt::StringLiterals;

namespace kelvora {
namespace {

/// Behind the name of a data file: the engine's own record of an unfinished save.
const QString kJournal = u"-journal"_s;

[[noreturn]] void refuse(const QString& path, const QString& reason) {
    throw DataError(u"The data file cannot be used: %1.\n\nIt was left as it is:\n%2"_s.arg(
        reason, QDir::toNativeSeparators(path)));
}

[[noreturn]] void cannotCreate(const QString& path, const QString& reason) {
    throw DataError(u"The data file cannot be created: %1.\n\n%2"_s.arg(reason, QDir::toNativeSeparators(path)));
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
void checkHeader(const QString& path) {
    constexpr qint64 headerSize = 100;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        refuse(path, u"it cannot be read (%1)"_s.arg(file.errorString()));
    }
    const QByteArray header = file.read(headerSize);
    if (header.isEmpty()) {
        refuse(path, u"it is empty"_s);
    }
    if (header.size() < headerSize || !header.startsWith(QByteArrayLiteral("SQLite format 3\0"))) {
        refuse(path, u"it is not a database"_s);
    }
    const auto number = [&header](int at) { return qFromBigEndian<quint32>(header.constData() + at); };
    if (number(68) != kApplicationId) {
        refuse(path, u"it belongs to another program"_s);
    }
    if (number(60) > kSchemaVersion) {
        refuse(path, u"it was made by a newer version of this program"_s);
    }
    const quint32 stored = qFromBigEndian<quint16>(header.constData() + 16);
    const qint64 pageSize = stored == 1 ? 65536 : stored;
    // With a journal beside it the last save was interrupted; the engine mends that when it opens the file.
    const bool interrupted = QFile::exists(path + kJournal);
    if (!interrupted && file.size() < pageSize * qint64{number(28)}) {
        refuse(path, u"its end is missing"_s);
    }
}

/// What is wrong with the tables of a file; empty if nothing is.
QString tableFault(const QString& path) {
    Connection connection(path);
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

}  // namespace

QString defaultStorePath() {
    QString folder = QStandardPaths::writableLocation(QStandardPaths::AppDataLocation);
    if (QDir::isRelativePath(folder)) {
        // Else every folder that the program is started in had data of its own.
        folder = QDir::home().filePath(u".local/share/"_s + QCoreApplication::applicationName());
    }
    return QDir(folder).filePath(u"kelvora_db.sqlite"_s);
}

void prepareStore(const QString& path) {
    const QFileInfo file(path);
    if (!file.exists() && !file.isSymLink()) {
        create(path);
        return;
    }
    if (!file.isFile()) {
        refuse(path, u"it is not a file"_s);
    }
    checkHeader(path);
    QString fault;
    try {
        fault = tableFault(path);
    } catch (const DataError& e) {
        fault = e.reason();
    }
    if (!fault.isEmpty()) {
        refuse(path, fault);
    }
    // Once more, now that an interrupted save is mended and the file must be whole.
    checkHeader(path);
}

}  // namespace kelvora
