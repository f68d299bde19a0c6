#pragma once

namespace kelvora {

class Connection;

/// Deletes an operation with every sample taken from its catch: its rows in seven tables. All or nothing. Returns
/// whether the operation itself was still stored. Throws DataError.
bool deleteOperation(Connection& connection, int operation);

/// Deletes an operation's gonad sample of a species with its fish. All or nothing. Throws DataError.
void deleteGonadSample(Connection& connection, int operation, int species);

}  // namespace kelvora
