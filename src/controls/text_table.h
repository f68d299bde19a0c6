#pragma once

#include <QAbstractTableModel>
#include <QStringList>

#include <vector>

namespace kelvora {

/// A table of texts kept by a screen itself: a pending list, an entry grid, or the blank row of a grid without data.
class TextTable : public QAbstractTableModel {
public:
    explicit TextTable(int columns, QObject* parent = nullptr) : QAbstractTableModel(parent), m_columns(columns) {}

    /// All rows; each is cut or filled up to the table's columns.
    void setRows(std::vector<QStringList> rows);
    void appendRow(QStringList row);
    void setRow(int row, QStringList texts);
    void removeRow(int row);
    [[nodiscard]] const QStringList& row(int row) const { return m_rows.at(static_cast<std::size_t>(row)); }

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;

private:
    [[nodiscard]] QStringList fitted(QStringList row) const;

    int m_columns;
    std::vector<QStringList> m_rows;
};

}  // namespace kelvora
