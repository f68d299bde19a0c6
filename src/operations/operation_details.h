#pragma once

#include "data/result_set.h"

#include <QWidget>

#include <vector>

class QGridLayout;

namespace kelvora {

class ValueLabel;

/// The fields of one operation to read.
class OperationDetails : public QWidget {
public:
    explicit OperationDetails(QWidget* parent = nullptr);

    /// Shows a row of the operation query.
    void fill(const ResultSet& result, int row);
    void clear();

private:
    using Reader = QString (*)(const ResultSet& result, int row);
    struct Detail {
        QString caption;
        Reader text;
    };
    void addDetails(QGridLayout* form, int column, const std::vector<Detail>& details);

    struct Shown {
        ValueLabel* label;
        Reader text;
    };
    std::vector<Shown> m_shown;
};

}  // namespace kelvora
