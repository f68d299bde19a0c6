#include "controls/text_table.h"

namespace kelvora {

void TextTable::setRows(std::vector<QStringList> rows) {
    beginResetModel();
    m_rows.clear();
    for (QStringList& row : rows) {
        m_rows.push_back({fitted(std::move(row))});
    }
    endResetModel();
}

void TextTable::appendRow(QStringList row) {
    beginInsertRows({}, rowCount(), rowCount());
    m_rows.push_back({fitted(std::move(row))});
    endInsertRows();
}

void TextTable::setRow(int row, QStringList texts) {
    m_rows.at(static_cast<std::size_t>(row)).texts = fitted(std::move(texts));
    Q_EMIT dataChanged(index(row, 0), index(row, m_columns - 1));
}

void TextTable::removeRow(int row) {
    beginRemoveRows({}, row, row);
    m_rows.erase(m_rows.begin() + row);
    endRemoveRows();
}

void TextTable::setRowColours(int row, const QColor& background, const QColor& text) {
    m_rows.at(static_cast<std::size_t>(row)).background = background;
    m_rows.at(static_cast<std::size_t>(row)).text = text;
    Q_EMIT dataChanged(index(row, 0), index(row, m_columns - 1));
}

int TextTable::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(m_rows.size());
}

int TextTable::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : m_columns;
}

QVariant TextTable::data(const QModelIndex& index, int role) const {
    if (!index.isValid()) {
        return {};
    }
    const Row& row = rowAt(index.row());
    const auto colour = [](const QColor& set) { return set.isValid() ? QVariant(set) : QVariant(); };
    switch (role) {
        case Qt::DisplayRole:
        case Qt::EditRole:
            return row.texts.at(index.column());
        case Qt::BackgroundRole:
            return colour(row.background);
        case Qt::ForegroundRole:
            return colour(row.text);
        default:
            return {};
    }
}

QStringList TextTable::fitted(QStringList row) const {
    // Rows of another table or list share their texts as long as nothing is changed in them.
    if (row.size() != m_columns) {
        row.resize(m_columns);
    }
    return row;
}

}  // namespace kelvora
