#pragma once

#include "operations/detail_fields.h"

#include <QWidget>

namespace kelvora {

/// The operation that a sampling screen works on, to read.
class OperationDetails : public QWidget {
public:
    explicit OperationDetails(QWidget* parent = nullptr);

    /// Shows a row of the operation query.
    void fill(const ResultSet& result, int row) { m_fields.fill(result, row); }
    void clear() { m_fields.clear(); }

private:
    DetailFields m_fields;
};

}  // namespace kelvora
