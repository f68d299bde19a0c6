#include "data/errors.h"

#include <sqlite3.h>

using namespace Qt::StringLiterals;

namespace kelvora {

QString plainReason(int resultCode, const QString& reason) {
    switch (resultCode & 0xff) {
        case SQLITE_BUSY:
        case SQLITE_LOCKED:
            return u"another program is using the data file. Please try again"_s;
        case SQLITE_READONLY:
        case SQLITE_PERM:
        case SQLITE_AUTH:
            return u"the data file or its folder may not be written to"_s;
        case SQLITE_CANTOPEN:
            return u"the data file, or a file beside it, cannot be opened"_s;
        case SQLITE_FULL:
            return u"the disk is full"_s;
        case SQLITE_IOERR:
            return u"the disk reported an error"_s;
        case SQLITE_CORRUPT:
        case SQLITE_NOTADB:
            return u"the data file is damaged"_s;
        case SQLITE_NOMEM:
            return u"there is not enough memory"_s;
        case SQLITE_TOOBIG:
            return u"the text is too long"_s;
        case SQLITE_CONSTRAINT:
            return u"this key is already stored"_s;
        default:
            return reason;
    }
}

DataError statementError(const std::string& statement, int resultCode, const QString& reason) {
    constexpr qsizetype shown = 160;
    const QString text = QString::fromStdString(statement).simplified();
    const bool reads =
        text.startsWith(u"select", Qt::CaseInsensitive) || text.startsWith(u"transform", Qt::CaseInsensitive);
    const QString what = reads ? u"The data could not be read: %1."_s : u"Nothing was stored or deleted: %1."_s;
    const QString plain = plainReason(resultCode, reason);
    if (text.contains(u"passwd", Qt::CaseInsensitive)) {
        // A password does not come into a box that others can read.
        return DataError(what.arg(plain), plain);
    }
    return DataError(what.arg(plain) + u"\n\n("_s + (text.size() > shown ? text.first(shown) + u"…"_s : text) + u")"_s,
                     plain);
}

}  // namespace kelvora
