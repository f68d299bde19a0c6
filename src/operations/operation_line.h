#pragma once

#include "controls/fields.h"

namespace kelvora {

class FinderPanel;

/// The line above an entry that says which operation the samples are taken from and what it refers to without being
/// registered, or where to find one.
class OperationLine : public ValueLabel {
    Q_OBJECT

public:
    /// Follows a finder panel, which outlives the line or goes with the same screen.
    explicit OperationLine(const FinderPanel& finder);
};

}  // namespace kelvora
