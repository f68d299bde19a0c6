#pragma once

#include "data/connection.h"

#include <QVariant>

#include <vector>

namespace kelvora {

/// By what a part of a year's operations is chosen: the choices that a year offers, and the species of a choice.
struct CompositionSubset {
    QString option;          ///< caption of its option button, and what the export calls it
    Literal name;            ///< what a choice is called
    Literal key;             ///< what a choice is known by
    Literal order;           ///< of the choices
    Literal joins;           ///< what stands beside an operation
    Literal also = "";       ///< in what else two choices may differ
    bool registered = true;  ///< whether only what is registered is offered
};

/// All kinds of subsets in the order of their option buttons.
const std::vector<CompositionSubset>& compositionSubsets();

/// The years in which a species composition was recorded, in the column gyear.
Sql compositionYears();

/// Whether a year has a species composition.
bool hasComposition(Connection& connection, int year);

/// The estimated catch of all species of a year in kg, as text with two decimals; empty without a weight.
QString compositionTotal(Connection& connection, int year);

/// What a subset can be in a year: name and key.
Sql compositionChoices(const CompositionSubset& subset, int year);

/// One row a species, in the order of the names: its name, its estimated catch in kg and its share in percent of a
/// total in kg, both as text with two decimals. The share is null when the total is 0. A choice is given by its key.
ResultSet compositionOf(Connection& connection, const CompositionSubset& subset, int year, const QVariant& choice,
                        double total);

}  // namespace kelvora
