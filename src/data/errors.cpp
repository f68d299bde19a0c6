#include "data/errors.h"

#include <sqlite3.h>

#include <cerrno>

using namespace Qt::StringLiterals;

namespace kelvora {
namespace {

/// Why a row does not fit into its table. The file that this program makes has keys alone; another program may have
/// laid further rules into it.
QString constraintReason(int resultCode) {
    switch (resultCode) {
        case SQLITE_CONSTRAINT_PRIMARYKEY:
        case SQLITE_CONSTRAINT_UNIQUE:
        case SQLITE_CONSTRAINT_ROWID:
            return u"this key is already stored"_s;
        case SQLITE_CONSTRAINT_NOTNULL:
            return u"a value that the data file asks for is missing"_s;
        case SQLITE_CONSTRAINT_FOREIGNKEY:
            return u"other rows of the data file need this one, or it needs one that is missing"_s;
        case SQLITE_CONSTRAINT_DATATYPE:
            return u"a value is not of the kind that the data file takes"_s;
        default:
            return u"a rule that was laid into the data file does not allow it"_s;
    }
}

QString diskReason(int resultCode, int systemError) {
    if (resultCode == SQLITE_IOERR_NOMEM) {
        return u"there is not enough memory"_s;
    }
    return systemError == EDQUOT ? u"your share of the disk is used up"_s : u"the disk reported an error"_s;
}

}  // namespace

QString plainReason(int resultCode, const QString& reason, int systemError) {
    switch (resultCode & 0xff) {
        case SQLITE_BUSY:
        case SQLITE_LOCKED:
            return u"another program is using the data file. Please try again"_s;
        case SQLITE_READONLY:
        case SQLITE_PERM:
        case SQLITE_AUTH:
            return resultCode == SQLITE_READONLY_DBMOVED
                       ? u"the data file was moved, deleted or replaced while it was open. Please end the program and "
                         "start it again"_s
                       : u"the data file or its folder may not be written to"_s;
        case SQLITE_CANTOPEN:
            return u"the data file, or a file beside it, cannot be opened"_s;
        case SQLITE_FULL:
            return u"the disk is full"_s;
        case SQLITE_IOERR:
            return diskReason(resultCode, systemError);
        case SQLITE_CORRUPT:
        case SQLITE_NOTADB:
            return u"the data file is damaged"_s;
        case SQLITE_NOMEM:
            return u"there is not enough memory"_s;
        case SQLITE_TOOBIG:
            return u"the text is too long"_s;
        case SQLITE_CONSTRAINT:
            return constraintReason(resultCode);
        case SQLITE_MISMATCH:
            return u"a value is not of the kind that the data file takes"_s;
        case SQLITE_ERROR:
        case SQLITE_SCHEMA:
            return u"the tables of the data file are not as they should be (%1)"_s.arg(reason);
        default:
            return reason;
    }
}

}  // namespace kelvora
