#include "records/operation_store.h"

#include "data/numbers.h"
#include "data/transaction.h"
#include "records/gears.h"
#include "records/operation.h"
#include "records/places.h"
#include "records/vessels.h"

#include <array>

using namespace Qt::StringLiterals;

namespace kelvora {
namespace {

/// The tables of an operation. Its gear is the gear of its fishing method. All joins are inner ones: an operation whose
/// port, state, vessel name, area or method is missing from the reference tables is not found.
constexpr Literal kOperationTables =
    " FROM fishoperation"
    " INNER JOIN samplingport ON samplingport.samplingid = fishoperation.portid"
    " INNER JOIN state ON state.stateid = samplingport.stateid"
    " INNER JOIN Fishing_method ON Fishing_method.methodid = fishoperation.fishing_method"
    " INNER JOIN Fishing_gear ON Fishing_gear.gearid = Fishing_method.gearid"
    " INNER JOIN fishing_area ON fishing_area.aname = fishoperation.areaid"
    " INNER JOIN vessel ON vessel.vesselname = fishoperation.vesselid";

Sql allPortsByName() {
    return Sql("select * from samplingport order by samplingname");
}

}  // namespace

void insertOperation(Connection& connection, const OperationEntry& entry, int number, int port) {
    Sql columns("insert into fishoperation(optid, portid, optdate");
    Sql values = Sql(") values(") << number << ", " << port << ", " << entry.date;
    for (const OperationField& field : operationFields()) {
        if (field.stored.text().empty()) {
            continue;
        }
        const QString& text = entry.*field.member;
        columns = std::move(columns) << ", " << field.stored;
        values = std::move(values) << ", ";
        values = field.isNumber ? std::move(values) << toNumber(text).value() : std::move(values) << text;
    }
    connection.execute(std::move(columns) << values << ")");
}

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
    Transaction transaction(connection);
    requireOperation(connection, operation);
    for (const Literal table :
         {Literal("fishoperation"), Literal("gonad"), Literal("gonad_detail"), Literal("group_composition"),
          Literal("group_main"), Literal("length"), Literal("length_detail")}) {
        connection.execute(Sql("delete from ") << table << " where optid = " << operation.number);
    }
    transaction.commit();
}

ResultSet operationDetails(Connection& connection, int number) {
    return connection.query(
        Sql("SELECT fishoperation.*, fishing_area.aname, Fishing_gear.guname, Fishing_method.methodname,"
            " samplingport.samplingname, state.statename, vessel.vesselname, vessel.vesselid as vid")
        << kOperationTables << " WHERE optid = " << number);
}

std::span<const SearchCriterion> searchCriteria() {
    using enum SearchCriterion::By;
    // An operation stores the name of its vessel, so vessels are matched by their shown name and not by their key, the
    // register id. Areas are shown by their description, and matched by their name.
    static constexpr std::array criteria = {
        SearchCriterion{u"State/Province", statesByName, u"statename", u"stateid",
                        " WHERE samplingport.stateid = ", Number},
        SearchCriterion{u"Sampling Port", allPortsByName, u"samplingname", u"samplingid",
                        " WHERE fishoperation.portid = ", Number},
        SearchCriterion{u"Fishing Area", areasByName, u"describ", u"aname", " WHERE fishoperation.areaid = ", Name},
        SearchCriterion{u"Vessel", vesselsByName, u"vesselname", u"vesselid",
                        " WHERE fishoperation.vesselid = ", ShownName},
        SearchCriterion{u"Fishing Gear", gearsByName, u"guname", u"gearid", " WHERE Fishing_method.gearid = ", Number},
    };
    return criteria;
}

std::vector<int> operationsFound(Connection& connection, const OperationSearch& search) {
    std::vector<int> numbers;
    if (!search.value.isValid()) {
        return numbers;
    }
    const SearchCriterion& criterion = searchCriteria()[static_cast<std::size_t>(search.criterion)];
    Sql sql = Sql("SELECT optid") << kOperationTables << criterion.filter;
    sql = criterion.by == SearchCriterion::By::Number ? std::move(sql) << search.value.toLongLong()
                                                      : std::move(sql) << search.value.toString();
    const ResultSet found = connection.query(std::move(sql) << " ORDER BY optid");
    for (int row = 0; row < found.rowCount(); ++row) {
        if (const auto number = found.integer(row, u"optid")) {
            numbers.push_back(*number);
        }
    }
    return numbers;
}

}  // namespace kelvora
