#include "records/places.h"

#include "data/names.h"
#include "data/transaction.h"
#include "records/keys.h"

using namespace Qt::StringLiterals;

namespace kelvora {
namespace {

Sql stateInsert(int key, const QString& name) {
    return Sql("insert into state values(") << key << "," << name << ")";
}

}  // namespace

Sql statesByName() {
    return Sql("select * from state order by statename");
}

Sql portsByName(int state) {
    return Sql("select * from samplingport where stateid = ") << state << " order by samplingname";
}

Sql portsWithStates() {
    return Sql(
        "SELECT state.statename,samplingport.samplingname FROM samplingport"
        " INNER JOIN state ON samplingport.stateid = state.stateid Order by samplingid");
}

std::vector<int> keysOfState(Connection& connection, const QString& name) {
    const ResultSet rows = rowsNamed(connection, Sql("select * from state where "), {{"statename", name}});
    std::vector<int> keys;
    keys.reserve(rows.rows.size());
    for (int row = 0; row < rows.rowCount(); ++row) {
        keys.push_back(rows.integer(row, u"stateid").value_or(0));
    }
    return keys;
}

std::optional<int> getstateid(Connection& connection, const QString& name) {
    const std::vector<int> keys = keysOfState(connection, name);
    return keys.empty() ? std::nullopt : std::optional(keys.front());
}

std::vector<int> keysOfPort(Connection& connection, const QString& name, int state) {
    const ResultSet rows = rowsNamed(connection, Sql("select * from samplingport where "), {{"samplingname", name}});
    std::vector<int> keys;
    for (int row = 0; row < rows.rowCount(); ++row) {
        if (state != 0 && rows.integer(row, u"stateid") == state) {
            keys.push_back(rows.integer(row, u"samplingid").value_or(0));
        }
    }
    return keys;
}

std::optional<int> getsamplingid(Connection& connection, const QString& stateName, const QString& portName, int state) {
    const ResultSet rows = rowsNamed(
        connection, Sql("select * from samplingport inner join state on samplingport.stateid = state.stateid where "),
        {{"statename", stateName}, {"samplingname", portName}});
    for (int row = 0; row < rows.rowCount(); ++row) {
        if (rows.integer(row, u"stateid") == state) {
            return rows.integer(row, u"samplingid");
        }
    }
    return rows.isEmpty() ? std::nullopt : rows.integer(0, u"samplingid");
}

bool isPortOfState(Connection& connection, const QString& name, int state) {
    const Sql ports = Sql("select * from samplingport where stateid = ") << state << " and ";
    return findsNamed(connection, ports, {{"samplingname", name}});
}

int InsertState(Connection& connection, const QString& name) {
    const int key = nextState(connection);
    connection.execute(stateInsert(key, name));
    return key;
}

bool AddState(Connection& connection, const QString& name, const std::function<bool()>& ask) {
    return executeThenAsk(connection, stateInsert(nextState(connection), name), ask);
}

bool AddSampling(Connection& connection, const QString& name, int state, const std::function<bool()>& ask) {
    const int key = nextSamplingPort(connection);
    return executeThenAsk(connection,
                          Sql("insert into samplingport values(") << key << "," << name << "," << state << ")", ask);
}

bool isPortUsed(Connection& connection, int port) {
    return finds(connection, Sql("select * from fishoperation where portid = ") << port);
}

bool DeleteSamplingPort(Connection& connection, int port, const std::function<bool()>& ask) {
    return executeThenAsk(connection, Sql("delete from samplingport where samplingid = ") << port, ask);
}

void PurgeStatesWithoutPorts(Connection& connection, const PurgeNotices& notices) {
    const ResultSet states =
        connection.query(Sql("select * from state where stateid not in (select stateid from samplingport)"));
    for (int row = 0; row < states.rowCount(); ++row) {
        const int state = states.integer(row, u"stateid").value_or(0);
        Transaction transaction(connection);
        notices.deleting(u"delete from state where stateid = %1"_s.arg(state));
        connection.execute(Sql("delete from state where stateid = ") << state);
        notices.deleted();
        transaction.commit();
        notices.committed();
    }
}

Sql areasByName() {
    return Sql("select * from fishing_area order by aname");
}

bool isAreaKnown(Connection& connection, const QString& name) {
    return findsNamed(connection, Sql("select * from fishing_area where "), {{"aname", name}});
}

bool isAreaStored(Connection& connection, const QString& name) {
    return finds(connection, Sql("select * from fishing_area where aname = ") << name);
}

bool isAreaUsed(Connection& connection, const QString& name) {
    return finds(connection, Sql("select * from fishoperation where areaid = ") << name);
}

bool AddArea(Connection& connection, const QString& name, const QString& description,
             const std::function<bool()>& ask) {
    return executeThenAsk(
        connection, Sql("insert into fishing_area(aname,describ) values(") << name << "," << description << ")", ask);
}

bool deleteArea(Connection& connection, const QString& name, const std::function<bool()>& ask) {
    return executeThenAsk(connection, Sql("delete from fishing_area where aname = ") << name, ask);
}

}  // namespace kelvora
