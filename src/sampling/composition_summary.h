#pragma once

#include "controls/captioned_grid.h"
#include "data/connection.h"

namespace kelvora {

/// For each species of an operation its estimated catch (kg) over all groups and its share of the operation's estimated
/// catch (%), both with two decimals, in the order of the shown names. The share is null if the catch sums to 0.
ResultSet compositionOf(Connection& connection, int operation);

/// The composition of an operation as a grid.
class CompositionSummary : public CaptionedGrid {
public:
    explicit CompositionSummary(QWidget* parent = nullptr);

    void refresh(Connection& connection, int operation);
    /// One blank row: no operation, or one without a composition.
    void reset();
};

}  // namespace kelvora
