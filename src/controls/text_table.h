#pragma once

#include <QAbstractTableModel>
#include <QColor>
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
    /// Marks a row by its colours, as long as the row stays in the table.
    void setRowColours(int row, const QColor& background, const QColor& text);
    [[nodiscard]] const QStringList& row(int row) const { return rowAt(row).texts; }

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;

private:
    struct Row {
        QStringList texts;
        QColor background = QColor();  ///< an invalid colour is the grid's own
        QColor text = QColor();
    };
    [[nodiscard]] const Row& rowAt(int row) const { return m_rows.at(static_cast<std::size_t>(row)); }
    [[nodiscard]] QStringList fitted(QStringList row) const;

    int m_columns;
    std::vector<Row> m_rows;
};

}  // namespace kelvora
