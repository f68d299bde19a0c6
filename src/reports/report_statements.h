#pragma once

#include "data/sql.h"

/// What the statements of several reports have in common. They all read the table fishoperation.
namespace kelvora {

/// The operations of a year, from its first to its last day, whatever time of day another tool wrote behind the day.
Sql ofYear(int year);

/// The years that have operations of a kind, ascending, in the column gyear; a null for dates that are none. The kind
/// is a condition. Each year is one look at the index on the date: what is behind it is not read.
Sql yearsOf(Literal kind);

/// What stands beside an operation. One whose port, vessel, method or area is not registered drops out.
inline constexpr Literal kWithPort =
    " INNER JOIN samplingport ON samplingport.samplingid = fishoperation.portid"
    " INNER JOIN state ON state.stateid = samplingport.stateid";
inline constexpr Literal kWithVessel = " INNER JOIN vessel ON vessel.vesselname = fishoperation.vesselid";
inline constexpr Literal kWithMethod =
    " INNER JOIN Fishing_method ON Fishing_method.methodid = fishoperation.fishing_method"
    " INNER JOIN Fishing_gear ON Fishing_gear.gearid = Fishing_method.gearid";
inline constexpr Literal kWithArea = " INNER JOIN fishing_area ON fishing_area.aname = fishoperation.areaid";

/// The shown name of a method: "Trawl[Otter board]".
inline constexpr Literal kMethodName = "(ifnull(guname,'') || '[' || ifnull(methodname,'') || ']') COLLATE NOCASE";

}  // namespace kelvora
