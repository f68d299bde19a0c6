#pragma once

#include "data/connection.h"
#include "reports/csv_export.h"

namespace kelvora {

/// The sexes that have a table of their stages.
enum class Sex { Female, Male, None };

/// The years in which gonads were examined, in the column gyear.
Sql gonadYears();

/// All species of the catalogue: fishno and sp.
Sql gonadSpecies();

/// How many fish of a species were of each sex in each month of a year. Months come by their names from A to Z, and so
/// do the columns of the sexes; a month without fish of a sex is empty there.
ResultSet sexesByMonth(Connection& connection, int year, int fishno);

/// The same of the maturity stages of one sex; the females' months come from Z to A. Stages are named by number and
/// name ("1-Immature") and come in the order of that text. Fish of a stage that is not registered are not counted.
ResultSet stagesByMonth(Connection& connection, int year, int fishno, Sex sex);

/// The export of the table of the sexes as the grid shows it.
CsvText gonadMaturityCsv(int year, const QString& species, const QAbstractItemModel& sexes, const QDate& today);

}  // namespace kelvora
