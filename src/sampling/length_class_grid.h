#pragma once

#include "controls/captioned_grid.h"
#include "records/length_store.h"

#include <vector>

namespace kelvora {

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
    void enter(const LengthClass& counted, double frequency, const LengthClass& next);

    /// The classes that have a count, from top to bottom.
    [[nodiscard]] std::vector<CountedClass> counted() const;

private:
    void highlight(int row);

    TextTable* m_rows;
};

}  // namespace kelvora
