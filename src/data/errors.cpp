#include "data/errors.h"

#include <sqlite3.h>

namespace kelvora {

QString plainReason(int resultCode, const QString& reason) {
    switch (resultCode & 0xff) {
        case SQLITE_BUSY:
        case SQLITE_LOCKED:
            return QStringLiteral("another program is using the data file. Please try again");
        case SQLITE_READONLY:
        case SQLITE_PERM:
        case SQLITE_AUTH:
            return QStringLiteral("the data file or its folder may not be written to");
        case SQLITE_CANTOPEN:
            return QStringLiteral("the data file, or a file beside it, cannot be opened");
        case SQLITE_FULL:
            return QStringLiteral("the disk is full");
        case SQLITE_IOERR:
            return QStringLiteral("the disk reported an error");
        case SQLITE_CORRUPT:
        case SQLITE_NOTADB:
            return QStringLiteral("the data file is damaged");
        case SQLITE_NOMEM:
            return QStringLiteral("there is not enough memory");
        case SQLITE_TOOBIG:
            return QStringLiteral("the text is too long");
        case SQLITE_CONSTRAINT:
            return QStringLiteral("this key is already stored");
        default:
            return reason;
    }
}

DataError statementError(const std::string& statement, int resultCode, const QString& reason) {
    constexpr qsizetype shown = 160;
    const QString text = QString::fromStdString(statement).simplified();
    const bool reads =
        text.startsWith(u"select", Qt::CaseInsensitive) || text.startsWith(u"transform", Qt::CaseInsensitive);
    const QString what = reads ? QStringLiteral("The data could not be read: %1.")
                               : QStringLiteral("Nothing was stored or deleted: %1.");
    const QString plain = plainReason(resultCode, reason);
    if (text.contains(u"passwd", Qt::CaseInsensitive)) {
        // A password does not come into a box that others can read.
        return DataError(what.arg(plain), plain);
    }
    return DataError(what.arg(plain) + QStringLiteral("\n\n(") +
                         (text.size() > shown ? text.first(shown) + QStringLiteral("…") : text) + QStringLiteral(")"),
                     plain);
}

}  // namespace kelvora
