#pragma once

#include "data/sql.h"
#include "records/refusal.h"

#include <QDate>

#include <optional>
#include <span>

namespace kelvora {

/// What stands in the fields of the entry screen: texts as typed, and the keys of chosen rows.
struct OperationEntry {
    QString state;
    QString port;
    QDate date;
    QString vesselName;
    QString registerId;
    QString method;        ///< key of the chosen method; empty while the text is that of none
    QString area;          ///< name of the chosen area; empty while the text is that of none
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

/// A field of an operation: where and how it is entered, shown and stored.
struct OperationField {
    enum class Column { Catch, Landing, Trip, Note };
    enum class FinderColumn { None, Location, Left, Right };
    struct Captions {
        QStringView entry;
        QStringView search;
        QStringView finder;
    };

    Captions captions;
    Column column;              ///< on the entry and the search screen
    FinderColumn finderColumn;  ///< below the finder
    QStringView shown;          ///< its column in the details of a stored operation
    Literal stored = "";        ///< its column in the table; empty if it is stored in a way of its own, or not at all
    QString OperationEntry::*member = nullptr;
    bool isNumber = false;        ///< it is stored as a number
    QStringView notNumeric = {};  ///< of a number that is free: what is said about a text that is none
    QStringView part = {};        ///< of a position: "Dec", and behind it in the same line "Min"
    QStringView side = {};        ///< what stands behind the minutes
    QStringView minutes = {};     ///< of degrees: what the minutes are shown from
};

/// All fields, each column of every screen in its order from top to bottom.
std::span<const OperationField> operationFields();

/// What happens to the field after the message.
enum class Reaction { Nothing, Focus, EmptyAndFocus, SetToZero };

/// Why an operation cannot be stored, and what becomes of the field, given by its place among operationFields().
struct OperationRefusal : Refusal {
    Reaction reaction = Reaction::Nothing;
};

/// The first thing that is wrong with an entry, in the order in which a sampler is told; nothing if it can be stored.
std::optional<OperationRefusal> refusalOf(const OperationEntry& entry);

/// Whether a text counts as empty: nothing in it but blanks.
bool isBlank(QStringView text);

}  // namespace kelvora
