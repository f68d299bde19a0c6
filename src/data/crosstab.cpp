#include "data/crosstab.h"

#include <algorithm>
#include <map>
#include <set>

using namespace Qt::StringLiterals;

namespace kelvora {
namespace {

using Cells = std::vector<QVariant>;

int rankOf(const QVariant& value) {
    return !value.isValid() ? 0 : value.typeId() == QMetaType::QString ? 2 : 1;
}

struct Before {
    bool operator()(const QVariant& left, const QVariant& right) const {
        const int rank = rankOf(left);
        if (rank != rankOf(right) || rank == 0) {
            return rank < rankOf(right);
        }
        return rank == 1 ? left.toDouble() < right.toDouble() : compareText(left.toString(), right.toString()) < 0;
    }
    bool operator()(const Cells& left, const Cells& right) const {
        return std::ranges::lexicographical_compare(left, right, *this);
    }
};

void add(QVariant& sum, const QVariant& number) {
    if (number.isValid()) {
        sum = sum.isValid() ? QVariant(sum.toDouble() + number.toDouble()) : number;
    }
}

}  // namespace

ResultSet crosstab(const ResultSet& groups, int rowColumns) {
    std::map<Cells, std::map<QVariant, QVariant, Before>, Before> rows;
    std::set<QVariant, Before> columns;
    for (const Cells& group : groups.rows) {
        const auto column = group.begin() + rowColumns;
        columns.insert(*column);
        add(rows[Cells(group.begin(), column)][*column], group.back());
    }

    ResultSet table{{groups.columns.begin(), groups.columns.begin() + rowColumns}, {}};
    for (const QVariant& column : columns) {
        table.columns.push_back(column.isValid() ? displayText(column) : u"<>"_s);
    }
    for (const auto& [row, cells] : rows) {
        table.rows.push_back(row);
        for (const QVariant& column : columns) {
            const auto cell = cells.find(column);
            table.rows.back().push_back(cell == cells.end() ? QVariant() : cell->second);
        }
    }
    return table;
}

}  // namespace kelvora
