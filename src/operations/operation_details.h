#pragma once

#include "data/result_set.h"
#include "records/operation.h"

#include <functional>
#include <vector>

class QGridLayout;
class QHBoxLayout;
class QLineEdit;
class QRadioButton;

namespace kelvora {

/// Lays the fields of an operation out in the three columns of the entry and the search screen, the note aside: calls
/// for each one what puts it into the form, with its row and the column of its caption.
void layOutInThree(QGridLayout* form, int gap,
                   const std::function<void(const OperationField& field, int row, int column)>& add);

/// Puts degrees into a form ("Dec [ ]"), and later their minutes into the same line ("Min [ ]"), which it returns.
QHBoxLayout* addAngle(QGridLayout* form, int row, int column, QStringView caption, const OperationField& field,
                      QLineEdit* box);

/// Puts the options of the fishing time into a form.
std::vector<QRadioButton*> addFishingTime(QGridLayout* form, int row, int column, int spacing);

/// The fields of a stored operation to read.
class OperationDetails {
public:
    using Show = std::function<void(const QString& text)>;

    /// Adds a value beside its caption, which stands in the given cell of a form; for degrees with their minutes.
    void add(QGridLayout* form, int row, int column, QStringView caption, QStringView shown, QStringView minutes = {});
    /// Adds a value that is shown in a way of its own.
    void add(QStringView shown, Show show) { m_shown.push_back({shown, {}, std::move(show)}); }
    /// Adds the note across a form: a long one is scrolled through, by the keyboard too.
    void addNote(QGridLayout* form, int row, int lines);

    /// Shows the first row of the details of an operation: dates as they are typed, everything else unformatted.
    void fill(const ResultSet& details) const;
    void clear() const;

private:
    struct Shown {
        QStringView column;
        QStringView minutes;  ///< of degrees: the column of their minutes
        Show show;
    };
    std::vector<Shown> m_shown;
};

}  // namespace kelvora
