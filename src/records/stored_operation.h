#pragma once

#include "data/connection.h"

#include <QStringList>

#include <optional>
#include <vector>

namespace kelvora {

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

}  // namespace kelvora
