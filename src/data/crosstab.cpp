#include "data/crosstab.h"

#include <algorithm>
#include <map>

namespace kelvora {
namespace {

/// Null before numbers before texts; texts as the database compares them.
int compare(const QVariant& left, const QVariant& right) {
    const auto rank = [](const QVariant& v) { return !v.isValid() ? 0 : v.typeId() == QMetaType::QString ? 2 : 1; };
    if (rank(left) != rank(right)) {
        return rank(left) < rank(right) ? -1 : 1;
    }
    if (rank(left) == 1) {
        const double a = left.toDouble();
        const double b = right.toDouble();
        return a < b ? -1 : a > b ? 1 : 0;
    }
    return rank(left) == 0 ? 0 : compareText(left.toString(), right.toString());
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
    const auto rowKey = [&](const std::vector<QVariant>& row) {
        return std::vector<QVariant>(row.begin(), row.begin() + static_cast<std::ptrdiff_t>(headings));
    };
    for (const auto& row : rows.rows) {
        rowKeys.try_emplace(rowKey(row));
        columnKeys.try_emplace({row[headings]});
    }
    number(rowKeys);
    number(columnKeys);

    ResultSet result;
    for (const std::string& header : crosstab.rowHeaders) {
        result.columns.push_back(QString::fromStdString(header));
    }
    for (const auto& [key, position] : columnKeys) {
        result.columns.push_back(key[0].isValid() ? displayText(key[0]) : QStringLiteral("<>"));
    }
    for (const auto& [key, position] : rowKeys) {
        result.rows.push_back(key);
        result.rows.back().resize(headings + columnKeys.size());
    }
    for (const auto& row : rows.rows) {
        add(result.rows[rowKeys.at(rowKey(row))][headings + columnKeys.at({row[headings]})], row[headings + 1],
            crosstab.aggregate);
    }
    return result;
}

}  // namespace kelvora
