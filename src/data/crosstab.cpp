#include "data/crosstab.h"

#include <algorithm>
#include <map>

using namespace Qt::StringLiterals;

namespace kelvora {
namespace {

/// Null before numbers before texts; texts as the database compares them.
int compare(const QVariant& left, const QVariant& right) {
    const auto rank = [](const QVariant& v) { return !v.isValid() ? 0 : v.typeId() == QMetaType::QString ? 2 : 1; };
    const int kind = rank(left);
    if (kind != rank(right)) {
        return kind < rank(right) ? -1 : 1;
    }
    if (kind == 1) {
        const double a = left.toDouble();
        const double b = right.toDouble();
        return a < b ? -1 : a > b ? 1 : 0;
    }
    return kind == 0 ? 0
                     : compareText(*static_cast<const QString*>(left.constData()),
                                   *static_cast<const QString*>(right.constData()));
}

/// Sets of values in the order of their columns.
struct InOrder {
    const std::vector<int>* directions;

    bool operator()(const std::vector<QVariant>& left, const std::vector<QVariant>& right) const {
        for (std::size_t i = 0; i < left.size(); ++i) {
            if (const int order = compare(left[i], right[i]) * (*directions)[i]; order != 0) {
                return order < 0;
            }
        }
        return false;
    }
};

using Keys = std::map<std::vector<QVariant>, std::size_t, InOrder>;

/// Numbers the keys in their order.
void number(Keys& keys) {
    std::size_t next = 0;
    for (auto& [key, position] : keys) {
        position = next++;
    }
}

void add(QVariant& cell, const QVariant& value, Crosstab::Aggregate aggregate) {
    if (!value.isValid()) {
        return;
    }
    if (aggregate == Crosstab::Aggregate::Count) {
        cell = cell.toLongLong() + 1;
    } else {
        cell = cell.toDouble() + value.toDouble();
    }
}

}  // namespace

ResultSet pivoted(const Crosstab& crosstab, const ResultSet& rows) {
    const std::size_t headings = crosstab.rowHeaders.size();
    const std::vector<int> columnOrder{crosstab.columnOrder};
    Keys rowKeys(InOrder{&crosstab.rowOrder});
    Keys columnKeys(InOrder{&columnOrder});
    // Where each row belongs; its position is known when all keys are.
    std::vector<std::pair<const std::size_t*, const std::size_t*>> cells;
    cells.reserve(rows.rows.size());
    std::vector<QVariant> rowKey;
    for (const auto& row : rows.rows) {
        rowKey.assign(row.begin(), row.begin() + static_cast<std::ptrdiff_t>(headings));
        cells.emplace_back(&rowKeys.try_emplace(rowKey).first->second,
                           &columnKeys.try_emplace({row[headings]}).first->second);
    }
    number(rowKeys);
    number(columnKeys);

    ResultSet result;
    for (const std::string& header : crosstab.rowHeaders) {
        result.columns.push_back(QString::fromStdString(header));
    }
    for (const auto& [key, position] : columnKeys) {
        result.columns.push_back(key[0].isValid() ? displayText(key[0]) : u"<>"_s);
    }
    for (const auto& [key, position] : rowKeys) {
        result.rows.push_back(key);
        result.rows.back().resize(headings + columnKeys.size());
    }
    for (std::size_t i = 0; i < cells.size(); ++i) {
        add(result.rows[*cells[i].first][headings + *cells[i].second], rows.rows[i][headings + 1], crosstab.aggregate);
    }
    return result;
}

}  // namespace kelvora
