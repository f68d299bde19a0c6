#pragma once

#include "data/result_set.h"

#include <QString>

#include <vector>

class QGridLayout;

namespace kelvora {

class ValueLabel;

/// A column of the operation query as it is shown: dates in the system's short form, everything else unformatted.
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

    /// Shows a row of the operation query.
    void fill(const ResultSet& result, int row) const;
    void clear() const;

private:
    struct Shown {
        ValueLabel* label;
        Detail detail;
    };
    std::vector<Shown> m_shown;
};

}  // namespace kelvora
