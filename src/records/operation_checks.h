#pragma once

#include "records/operation_entry.h"

#include <QStringView>

namespace kelvora {

/// The fields that a check may send the sampler back to.
enum class OperationField {
    State,
    Port,
    Area,
    RegisterId,
    Method,
    LatitudeDec,
    LatitudeMin,
    LongitudeDec,
    LongitudeMin,
    BottomDepth,
    FishingDepth,
    Hauls,
    Duration,
    TotalCatch
};

/// What happens to the field after the message.
enum class Reaction { Nothing, Focus, EmptyAndFocus, SetToZero };

/// One thing that must hold before an operation is stored, and what the sampler is told if it does not.
struct OperationCheck {
    bool (*holds)(const OperationEntry&);
    QStringView message;
    QStringView title;
    OperationField field;
    Reaction reaction;
};

/// The first check, in the order in which they are made, that does not hold; null if all do.
const OperationCheck* firstFailed(const OperationEntry& entry);

/// Whether a text counts as empty: nothing in it but blanks.
bool isBlank(const QString& text);

}  // namespace kelvora
