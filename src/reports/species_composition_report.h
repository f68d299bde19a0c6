#pragma once

#include "data/connection.h"
#include "reports/csv_export.h"

#include <QVariant>

#include <vector>

namespace kelvora {

/// By what a part of a year's operations is chosen: the choices that a year offers, and the species of a choice.
struct CompositionSubset {
    QString option;     ///< caption of its option button, and what the export calls it
    Literal choices;    ///< in front of the year
    Literal afterYear;  ///< behind it
    QString shown;      ///< column of the choices that the list shows
    QString key;        ///< column of the choices that the species are found by
    bool textKey;       ///< whether that column holds texts
    Literal select;     ///< in front of the year's total
    Literal from;
    Literal where;         ///< in front of the year
    Literal beforeChoice;  ///< between the year and the key of the choice
    Literal afterChoice;
    Literal orderBy;
};

/// All kinds of subsets in the order of their option buttons.
const std::vector<CompositionSubset>& compositionSubsets();

/// The years in which a species composition was recorded, in the column gyear.
Sql compositionYears();

/// Whether a year has a species composition.
bool hasComposition(Connection& connection, int year);

/// The estimated catch of all species of a year in kg, as text with two decimals; empty without a weight.
QString compositionTotal(Connection& connection, int year);

/// What a subset can be in a year.
Sql compositionChoices(const CompositionSubset& subset, int year);

/// One row a species, in the order of the names: its name, its estimated catch in kg and its share in percent of a
/// total in kg, both as text with two decimals. The share is null when the total is 0.
ResultSet compositionOf(Connection& connection, const CompositionSubset& subset, int year, const QVariant& choice,
                        double total);

/// The export of a composition as the grid shows it. The selection is "option:choice"; empty when no option is
/// selected.
CsvText compositionCsv(int year, const QString& selection, const QAbstractItemModel& grid, const QDate& today);

}  // namespace kelvora
