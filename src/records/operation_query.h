#pragma once

#include "data/sql.h"

#include <QString>
#include <QVariant>

#include <optional>
#include <span>

namespace kelvora {

/// What is read of a stored operation: all its fields and the names of its area, gear, method, port, state and vessel.
/// A list of columns may follow (", vessel.vesselid as vid"), then operationJoin().
Sql operationFields();

/// The tables of an operation. Its gear is the gear of its fishing method. All joins are inner ones: an operation whose
/// port, state, vessel name, area or method is missing from the reference tables is not found.
Sql operationJoin();

/// One operation with its names; at most one row, more if several vessels of the register carry its vessel's name.
Sql operationByNumber(int operation);

/// What operations are searched by: a reference table offers the values, and the chosen one becomes a filter.
struct SearchCriterion {
    QString caption;
    Literal values;  ///< query of the reference table
    QString shown;   ///< column that the value list shows
    QString bound;   ///< column that is the value's key
    bool byText;     ///< the shown text is what operations are matched by, not the key
    Sql (*filter)(const QVariant& value);
};

/// The five criteria, in the order in which they are offered.
std::span<const SearchCriterion> searchCriteria();

/// The operations that a chosen value matches, in ascending order of their numbers. Nothing for a text that is no value
/// of the list (its key is invalid): it matches no operation.
std::optional<Sql> operationSearch(const SearchCriterion& criterion, const QString& text, const QVariant& key);

/// The numbers of the operations of a search, in its order: thousands are found, and the details of one are read when
/// it is arrived at.
Sql numbersOnly(const Sql& search);

}  // namespace kelvora
