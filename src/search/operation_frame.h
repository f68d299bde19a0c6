#pragma once

#include "operations/detail_fields.h"

#include <QGroupBox>

#include <array>

class QGridLayout;
class QLineEdit;
class QRadioButton;

namespace kelvora {

/// All fields of one stored operation, laid out as on the entry screen and to read only: a stored operation is not
/// changed by mistake while its samples are mended.
class OperationFrame : public QGroupBox {
    Q_OBJECT

public:
    explicit OperationFrame(QWidget* parent = nullptr);

    /// Shows a row of the operation query that also has the vessel's register id, as "vid".
    void fill(const ResultSet& result, int row);
    void clear();

private:
    void addPosition(QGridLayout* form, int row, const QString& caption, const QString& name, const QString& column);
    void addFishingTime(QGridLayout* form, int row);

    struct Angle {
        QLineEdit* box;
        QString column;
    };
    DetailFields m_fields;
    std::vector<Angle> m_angles;  ///< degrees and minutes
    std::array<QRadioButton*, 3> m_times{};
};

}  // namespace kelvora
