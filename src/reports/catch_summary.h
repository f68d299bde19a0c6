#pragma once

#include "data/connection.h"

#include <vector>

namespace kelvora {

/// What the operations of a year are counted and summed by.
struct CatchGrouping {
    QString option;       ///< caption of its option button
    QString header;       ///< caption of the first column on the screen
    QString word;         ///< what the screen calls the grouping
    QString exportWord;   ///< what the export calls it
    Literal name;         ///< what a group is called
    Literal groups;       ///< the columns that make a group, in whose order groups come
    Literal joins;        ///< what stands beside an operation
    Literal counted;      ///< operations that have this are counted
    QString catchHeader;  ///< caption of the third column on the screen
};

/// All groupings in the order of their option buttons; the first is shown by a search.
const std::vector<CatchGrouping>& catchGroupings();

/// The years in which operations were recorded, ascending, in the column gyear.
Sql catchYears();

/// The operations of a year: how many (totalc) and their estimated catch in kg (totals, null without a weight).
ResultSet catchTotals(Connection& connection, int year);

/// One row a group: its name, the number of its operations, their estimated catch in kg and its share in percent of a
/// total in kg, as text with two decimals. The share is null when the total is 0. Operations that lack the grouping's
/// reference row are not in it. Months are named in the system's language.
ResultSet catchByGroup(Connection& connection, const CatchGrouping& grouping, int year, double total);

/// The lines of a grouping's export. The total is the text that the screen shows; it is written as it stands, and its
/// number is what the shares refer to. Without a single group the export is empty.
QStringList catchSummaryCsv(Connection& connection, const CatchGrouping& grouping, int year, const QString& total,
                            const QDate& today);

}  // namespace kelvora
