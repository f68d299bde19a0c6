#pragma once

#include "support/planned_dialogs.h"

namespace kelvora::test {

/// A line of a step file with those that belong to it.
struct Step {
    int number = 0;
    QString verb, rest;
    QStringList block = {};        ///< the lines with "|"
    QList<PlannedBox> boxes = {};  ///< the lines with "?" and "!"
    QStringList changes = {};      ///< the rows with "+" and "-"
    bool once = false;
};

/// A case: its title, and its steps in order.
struct StepCase {
    QString title;
    QString file;
    QList<Step> steps;
};

/// The cases of a step file; test_steps.cpp says what they look like.
QList<StepCase> casesOf(const QString& path);

}  // namespace kelvora::test
