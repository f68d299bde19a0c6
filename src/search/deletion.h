#pragma once

#include "operations/stored_operation.h"

namespace kelvora {

/// Deletes an operation with every sample taken from its catch: its rows in seven tables. All or nothing. Throws
/// OriginLost if it is not stored any more as the screen read it.
void deleteOperation(Connection& connection, const StoredOperation& operation);

/// Deletes an operation's gonad sample of a species with its fish. All or nothing. Throws OriginLost as well.
void deleteGonadSample(Connection& connection, const StoredOperation& operation, int species);

}  // namespace kelvora
