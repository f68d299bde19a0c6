#include "records/gears.h"

#include "data/names.h"
#include "data/transaction.h"
#include "records/keys.h"

namespace kelvora {

Sql gearsByName() {
    return Sql("select * from fishing_gear order by guname");
}

Sql gearsWithMethods() {
    return Sql(
        "select * from fishing_gear where gearid in "
        "(select gearid from Fishing_method )order by guname");
}

Sql methodsByName(int gear) {
    return Sql("select * from Fishing_method where gearid = ") << gear << " order by methodname";
}

Sql methodsWithGears() {
    return Sql(
        "SELECT Fishing_method.methodid, Fishing_gear.guname, Fishing_method.methodname"
        " FROM Fishing_gear INNER JOIN Fishing_method ON Fishing_gear.gearid = Fishing_method.gearid");
}

ResultSet gearsNamed(Connection& connection, const QString& name) {
    return rowsNamed(connection, Sql("select * from Fishing_gear where "), {{"guname", name}});
}

std::optional<int> AddGear(Connection& connection, const QString& name, const std::function<bool()>& ask) {
    const int key = nextGear(connection);
    const Sql statement = Sql("insert into Fishing_gear(gearid,guname) values(") << key << "," << name << ")";
    return executeThenAsk(connection, statement, ask) ? std::optional(key) : std::nullopt;
}

void AddGearCounted(Connection& connection, const QString& name) {
    int key = nextGearByCount(connection);
    if (finds(connection, Sql("select * from Fishing_gear where gearid = ") << key)) {
        key = nextGear(connection);
    }
    connection.execute(Sql("insert into Fishing_gear values(") << key << "," << name << ")");
}

std::optional<int> AddMethod(Connection& connection, const QString& name, int gear) {
    const Sql methods = Sql("select * from Fishing_method where gearid = ") << gear << " and ";
    if (findsNamed(connection, methods, {{"methodname", name}})) {
        return std::nullopt;
    }
    const int key = nextMethod(connection);
    connection.execute(Sql("insert into Fishing_method values(") << key << "," << name << "," << gear << ")");
    return key;
}

bool isMethodUsed(Connection& connection, int method) {
    return finds(connection, Sql("select * from fishoperation where fishing_method = ") << method) ||
           finds(connection, Sql("select  * from vessel where gear = ") << method);
}

void deleteMethod(Connection& connection, int method) {
    connection.execute(Sql("delete from fishing_method where methodid = ") << method);
}

}  // namespace kelvora
