#pragma once

namespace kelvora {

class Connection;

/// Deletes an operation with every sample taken from its catch: its rows in seven tables. All or nothing. Returns
/// whether the operation itself was still stored. Throws DataError.
bool deleteOperation(Connection& connection, int operation);

}  // namespace kelvora
