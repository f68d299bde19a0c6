#pragma once

#include "data/connection.h"

#include <functional>
#include <vector>

namespace kelvora {

/// The states by name: stateid, statename.
Sql statesByName();
/// The ports of a state by name: samplingid, samplingname.
Sql portsByName(int state);
/// The ports as they were added: statename, samplingname.
Sql portsWithStates();

/// The states of a name, at most one unless another program has written them.
std::vector<int> keysOfState(Connection& connection, const QString& name);
/// The first of them; nothing if the state is not stored.
std::optional<int> getstateid(Connection& connection, const QString& name);
/// The ports of a name that lie in a state. A port of the same name in another state is another port.
std::vector<int> keysOfPort(Connection& connection, const QString& name, int state);
/// The port with these names, of several the one in the given state; nothing if it is not stored.
std::optional<int> getsamplingid(Connection& connection, const QString& stateName, const QString& portName,
                                 int state = 0);
/// Whether a name would repeat a port of the state.
bool isPortOfState(Connection& connection, const QString& name, int state);

/// Adds a state without a question; returns its key.
int InsertState(Connection& connection, const QString& name);
/// Adds a state, asks, and keeps it on Yes; returns the answer.
bool AddState(Connection& connection, const QString& name, const std::function<bool()>& ask);
/// The same for a port of a state.
bool AddSampling(Connection& connection, const QString& name, int state, const std::function<bool()>& ask);

bool isPortUsed(Connection& connection, int port);
/// Deletes a port, asks, and leaves it deleted on Yes; returns the answer.
bool DeleteSamplingPort(Connection& connection, int port, const std::function<bool()>& ask);

/// How the sampler is told of the states that go with their last port.
struct PurgeNotices {
    std::function<void(const QString& statement)> deleting;  ///< before a state is deleted
    std::function<void()> deleted;                           ///< after that, and before it is committed
    std::function<void()> committed;
};
/// Deletes the states that have no port, each in a transaction of its own.
void PurgeStatesWithoutPorts(Connection& connection, const PurgeNotices& notices);

/// The fishing areas by name: aname, describ.
Sql areasByName();
/// Whether a name would repeat an area.
bool isAreaKnown(Connection& connection, const QString& name);
/// Whether an area is stored under exactly this name, letter case of A to Z aside.
bool isAreaStored(Connection& connection, const QString& name);
bool isAreaUsed(Connection& connection, const QString& name);
/// Adds an area, asks, and keeps it on Yes; returns the answer.
bool AddArea(Connection& connection, const QString& name, const QString& description, const std::function<bool()>& ask);
bool deleteArea(Connection& connection, const QString& name, const std::function<bool()>& ask);

}  // namespace kelvora
