#pragma once

#include "data/connection.h"

#include <QStringList>

#include <optional>
#include <span>
#include <vector>

namespace kelvora {

struct OperationEntry;

/// A stored operation as a screen read it: all its columns. Its number alone does not say whose catch is sampled, since
/// the number of a deleted operation is given anew.
struct StoredOperation {
    int number = 0;
    std::vector<QVariant> columns;

    bool operator==(const StoredOperation&) const = default;
};

/// Nothing stands in the data file any more of what a sample was taken from, as the screen read it. Nothing was stored.
class OriginLost : public DataError {
    using DataError::DataError;
};

/// Stores an entry under an operation number, landed at a port. Every number of the entry must be numeric, and a method
/// chosen: std::bad_optional_access otherwise.
void insertOperation(Connection& connection, const OperationEntry& entry, int number, int port);

/// The operation with a number; nothing if none is stored.
std::optional<StoredOperation> storedOperation(Connection& connection, int number);

/// To be called inside the transaction that stores or deletes for an operation. Throws OriginLost unless it is stored
/// as the screen read it.
void requireOperation(Connection& connection, const StoredOperation& operation);

/// What an operation refers to and no reference list has, in the words of a sampler ("vessel \"Sea Star\""): such an
/// operation is in no search.
QStringList unregisteredNames(Connection& connection, int number);

/// Deletes an operation with every sample taken from its catch: its rows in seven tables. All or nothing. Throws
/// OriginLost if it is not stored any more as the screen read it.
void deleteOperation(Connection& connection, const StoredOperation& operation);

/// All columns of an operation with the names of its area, gear, method, port, state and vessel, and the register id of
/// the vessel as "vid". At most one row, more if several vessels of the register carry its vessel's name; none if one
/// of the names is missing from the reference tables.
ResultSet operationDetails(Connection& connection, int number);

/// What operations are searched by: a reference table offers the values, and the chosen one becomes a filter.
struct SearchCriterion {
    QStringView caption;
    Sql (*values)();                               ///< query of the reference table
    QStringView shown;                             ///< column that the value list shows
    QStringView key;                               ///< column that is the value's key
    Literal filter;                                ///< what the value follows in a search
    enum class By { Number, Name, ShownName } by;  ///< what operations are matched by: the key, or the shown text
};

/// The five criteria, in the order in which they are offered.
std::span<const SearchCriterion> searchCriteria();

/// A criterion by its place, and the value to search for; an invalid one matches no operation.
struct OperationSearch {
    int criterion = 0;
    QVariant value;
};

/// The numbers of the operations that a search finds, in ascending order: thousands are found, and the details of one
/// are read when it is arrived at.
std::vector<int> operationsFound(Connection& connection, const OperationSearch& search);

}  // namespace kelvora
