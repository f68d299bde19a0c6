#pragma once

#include "data/sql.h"

#include <QDate>
#include <QString>

#include <optional>

namespace kelvora {

/// What stands in the fields of the entry screen: texts as typed, and the keys of chosen rows.
struct OperationEntry {
    QString vesselName;
    QString registerId;
    std::optional<int> method;  ///< key of the chosen method; nothing while the text is that of none
    QString area;               ///< text of the area list
    QString chosenArea;         ///< name of the area that the text stands for; empty while it is that of none
    QString state;
    QString port;
    QDate date;
    QString latitudeDec;   ///< degrees north
    QString latitudeMin;   ///< minutes
    QString longitudeDec;  ///< degrees east
    QString longitudeMin;  ///< minutes
    QString fishingTime;
    QString bottomDepth;   ///< metres
    QString fishingDepth;  ///< metres
    QString hauls;         ///< hauls a trip
    QString duration;      ///< days
    QString totalCatch;    ///< kg a trip
    QString recorder;
    QString note;
};

/// The statement that stores an entry under an operation number, landed at a port. Every number of the entry must be
/// numeric, and area and method chosen: std::bad_optional_access otherwise.
Sql insertStatement(const OperationEntry& entry, int optid, int portKey);

}  // namespace kelvora
