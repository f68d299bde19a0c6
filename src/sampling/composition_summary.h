#pragma once

#include "controls/captioned_grid.h"
#include "data/connection.h"

namespace kelvora {

/// The composition of an operation as a grid.
class CompositionSummary : public CaptionedGrid {
public:
    explicit CompositionSummary(QWidget* parent = nullptr);

    void refresh(Connection& connection, int operation);
    /// One blank row: no operation, or one without a composition.
    void reset();
};

}  // namespace kelvora
