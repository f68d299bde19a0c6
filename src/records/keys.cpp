#include "records/keys.h"

#include "data/numbers.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace kelvora {
namespace {

/// One behind the number that a query gives under an alias, and at least first. What names the kept things, plural.
int following(Connection& connection, const Sql& query, QStringView alias, const char* what, int first = 1) {
    const double largest = connection.query(query).number(0, alias).value_or(0);
    if (largest >= kLargestKey) {
        throw DataError(u"The data file is full: it holds at most %1 %2. Nothing was stored."_s.arg(
            QString::number(kLargestKey), QString::fromLatin1(what)));
    }
    return std::max(static_cast<int>(largest) + 1, first);
}

}  // namespace

int nextState(Connection& connection) {
    return following(connection, Sql("select max(stateid) as maxs from state"), u"maxs", "states/provinces");
}

int nextSamplingPort(Connection& connection) {
    return following(connection, Sql("select max(samplingid) as maxp from samplingport"), u"maxp", "sampling ports");
}

int nextGear(Connection& connection) {
    return following(connection, Sql("select max(gearid) as maxs from Fishing_gear"), u"maxs", "fishing gears");
}

int nextGearByCount(Connection& connection) {
    return following(connection, Sql("select count(gearid) as gid from Fishing_gear"), u"gid", "fishing gears");
}

int nextMethod(Connection& connection) {
    return following(connection, Sql("select max(methodid) as mid from Fishing_method"), u"mid", "fishing methods");
}

int nextSpecies(Connection& connection) {
    return following(connection, Sql("select max(fishno)as maxsp from fish"), u"maxsp", "species");
}

int nextOperation(Connection& connection) {
    return following(connection, Sql(" SELECT max(optid) as moptid FROM fishoperation"), u"moptid",
                     "fishing operations");
}

int nextGroup(Connection& connection, int operation) {
    return following(connection, Sql("select max(groupid)as mxg from group_main where optid = ") << operation, u"mxg",
                     "sampling groups of an operation", 2);
}

int nextFish(Connection& connection, int operation, int species) {
    return following(connection,
                     Sql("select  count(samplingno) as gid from gonad_detail where optid = ")
                         << operation << " and spid = " << species,
                     u"gid", "fish of a species in an operation");
}

}  // namespace kelvora
