#pragma once

#include "controls/captioned_grid.h"
#include "records/length_sample.h"

class QLineEdit;

namespace kelvora {

class Dialogs;
class TextTable;

/// The length classes of an entry. Its last row is the class that waits for its count.
class LengthClassGrid : public Grid {
public:
    explicit LengthClassGrid(const QString& name);

    void showNothing();
    /// The class table of an interval (cm), all counts empty.
    void showTable(double interval);
    /// The first class of an entry alone.
    void startWith(const LengthClass& first);
    /// Puts a class with its count into the last row, and the next class behind it.
    void enter(const CountedClass& counted, const LengthClass& next);

private:
    void highlight(int row);

    TextTable* m_rows;
};

/// The count typed into a box; nothing for a text that is no number of fish: that is said, and the box emptied.
std::optional<double> typedFrequency(Dialogs& dialogs, QLineEdit* box);

}  // namespace kelvora
