#pragma once

#include "data/result_set.h"

#include <QString>

#include <vector>

class QGridLayout;
class QPlainTextEdit;

namespace kelvora {

class ValueLabel;

/// A column of the operation query as it is shown: dates as they are typed, everything else unformatted.
QString operationText(const ResultSet& result, int row, const QString& column);

/// One field of an operation to read.
struct Detail {
    QString caption;
    QString column;
    QString minutes = {};  ///< of a position: the column of its minutes, the other one being that of its degrees
};

/// Fields of an operation to read, each beside its caption in a form.
class DetailFields {
public:
    /// Adds fields one below the other from the first row of a form; their captions stand in the given column.
    void add(QGridLayout* form, int column, const std::vector<Detail>& details);

    /// Adds the note below them, across the form: a long one is scrolled through, by the keyboard too.
    void addNote(QGridLayout* form, int row, const QString& caption, int lines);

    /// Shows a row of the operation query.
    void fill(const ResultSet& result, int row) const;
    void clear() const;

private:
    struct Shown {
        ValueLabel* label;
        Detail detail;
    };
    void setNote(const QString& note) const;

    std::vector<Shown> m_shown;
    QPlainTextEdit* m_note = nullptr;
};

}  // namespace kelvora
