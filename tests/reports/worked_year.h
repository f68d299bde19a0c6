#pragma once

#include "support/temporary_store.h"

#include <QFile>

namespace kelvora::test {

/// Four operations of 2004, 400 kg in all, the last one on a port, method, vessel and area that are not registered, and
/// one of 999 kg on the first day of 2005.
inline void addWorkedYear(TemporaryStore& store) {
    store.addReferenceRows();
    const auto add = [&](int optid, int port, const char* date, int method, double kg, const char* vessel,
                         const char* area) {
        store.addOperation(optid, port, QString::fromLatin1(date), method, kg, QString::fromLatin1(vessel),
                           QString::fromLatin1(area));
    };
    add(1, 1, "2004-01-10", 1, 100, "Sea Star", "A1");
    add(2, 3, "2004-03-05", 3, 297.5, "Blue Fin", "A2");
    add(3, 2, "2004-03-20", 2, 2, "Sea Star", "A1");
    add(4, 99, "2004-12-31", 99, 0.5, "Ghost", "A9");
    add(5, 1, "2005-01-01", 1, 999, "Sea Star", "A1");
}

inline QByteArray contents(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("no file");
}

}  // namespace kelvora::test
