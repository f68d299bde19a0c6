#pragma once

#include "operations/operation_details.h"

#include <QGroupBox>

namespace kelvora {

/// All fields of one stored operation, laid out as on the entry screen and to read only: a stored operation is not
/// changed by mistake while its samples are mended.
class OperationFrame : public QGroupBox {
    Q_OBJECT

public:
    OperationFrame();

    /// Shows the first row of the details of an operation.
    void fill(const ResultSet& details);
    void clear();

private:
    void add(QGridLayout* form, int row, int column, const OperationField& field);

    OperationDetails m_details;
    std::vector<QRadioButton*> m_times;
};

}  // namespace kelvora
