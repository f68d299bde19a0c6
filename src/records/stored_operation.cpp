#include "records/stored_operation.h"

#include "data/transaction.h"

#include <array>

using namespace Qt::StringLiterals;

namespace kelvora {

std::optional<StoredOperation> storedOperation(Connection& connection, int number) {
    ResultSet found = connection.query(Sql("select * from fishoperation where optid = ") << number);
    return found.isEmpty() ? std::nullopt : std::optional(StoredOperation{number, std::move(found.rows.front())});
}

void requireOperation(Connection& connection, const StoredOperation& operation) {
    if (storedOperation(connection, operation.number) != operation) {
        const QString reason =
            u"fishing operation no. %1 was deleted or replaced by another one since it was chosen here"_s.arg(
                operation.number);
        throw OriginLost(u"Nothing was stored or deleted: %1. What was entered is still on the screen."_s.arg(reason),
                         reason);
    }
}

QStringList unregisteredNames(Connection& connection, int number) {
    const ResultSet found =
        connection.query(Sql("select vesselid, areaid,"
                             " exists(select 1 from vessel where vesselname = o.vesselid) as vessel,"
                             " exists(select 1 from samplingport where samplingid = o.portid) as port,"
                             " exists(select 1 from samplingport p inner join state s on p.stateid = s.stateid"
                             " where p.samplingid = o.portid) as state,"
                             " exists(select 1 from fishing_area where aname = o.areaid) as area,"
                             " exists(select 1 from Fishing_method where methodid = o.fishing_method) as method,"
                             " exists(select 1 from Fishing_method m inner join Fishing_gear g on m.gearid = g.gearid"
                             " where m.methodid = o.fishing_method) as gear from fishoperation o where optid = ")
                         << number);
    const auto lacks = [&](QStringView what) { return !found.isEmpty() && found.integer(0, what) == 0; };
    const auto named = [&](const QString& what, QStringView column) {
        const QString name = found.text(0, column).trimmed();
        return name.isEmpty() ? what + u" without a name"_s : u"%1 \"%2\""_s.arg(what, name);
    };
    QStringList names;
    if (lacks(u"vessel")) {
        names.append(named(u"vessel"_s, u"vesselid"));
    }
    if (lacks(u"area")) {
        names.append(named(u"fishing area"_s, u"areaid"));
    }
    if (lacks(u"state")) {
        names.append(lacks(u"port") ? u"sampling port"_s : u"state/province of the port"_s);
    }
    if (lacks(u"gear")) {
        names.append(lacks(u"method") ? u"fishing method"_s : u"fishing gear of the method"_s);
    }
    return names;
}

void deleteOperation(Connection& connection, const StoredOperation& operation) {
    static constexpr std::array samples = {Literal("delete from gonad where optid = "),
                                           Literal("delete from gonad_detail where optid = "),
                                           Literal("delete from group_composition where optid = "),
                                           Literal("delete from group_main where optid = "),
                                           Literal("delete from length where optid = "),
                                           Literal("delete from length_detail where optid = ")};
    Transaction transaction(connection);
    requireOperation(connection, operation);
    connection.execute(Sql("delete from fishoperation where optid = ") << operation.number);
    for (const Literal& sample : samples) {
        connection.execute(Sql(sample) << operation.number);
    }
    transaction.commit();
}

}  // namespace kelvora
