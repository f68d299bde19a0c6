#pragma once

#include "data/connection.h"

#include <functional>

namespace kelvora {

/// The fishing gears by name: gearid, guname.
Sql gearsByName();
/// Those that have methods.
Sql gearsWithMethods();
/// The methods of a gear by name: methodid, methodname.
Sql methodsByName(int gear);
/// The methods with the names of their gears: methodid, guname, methodname.
Sql methodsWithGears();

/// The gears of a name, at most one unless another program has written them: gearid, guname.
ResultSet gearsNamed(Connection& connection, const QString& name);

/// Adds a gear, asks, and keeps it on Yes; returns its key, nothing on No.
std::optional<int> AddGear(Connection& connection, const QString& name, const std::function<bool()>& ask);
/// Adds a gear that a vessel file names, under the number of gears + 1, or behind the largest number if that one is
/// taken.
void AddGearCounted(Connection& connection, const QString& name);
/// Adds a method to a gear; returns its key, nothing if the gear has one of that name.
std::optional<int> AddMethod(Connection& connection, const QString& name, int gear);

bool isMethodUsed(Connection& connection, int method);
void deleteMethod(Connection& connection, int method);

}  // namespace kelvora
