#include "data/crosstab.h"

#include <algorithm>
#include <map>

using namespace Qt::StringLiterals;

namespace kelvora {
namespace {

using Cells = std::vector<QVariant>;

int rankOf(const QVariant& value) {
    return !value.isValid() ? 0 : value.typeId() == QMetaType::QString ? 2 : 1;
}

bool isBefore(const QVariant& left, const QVariant& right) {
    if (const int rank = rankOf(left); rank != rankOf(right) || rank == 0) {
        return rank < rankOf(right);
    } else if (rank == 1) {
        return left.toDouble() < right.toDouble();
    }
    return compareText(left.toString(), right.toString()) < 0;
}

struct InOrder {
    bool operator()(const Cells& left, const Cells& right) const {
        return std::ranges::lexicographical_compare(left, right, isBefore);
    }
};

/// The places of the keys in their order.
using Places = std::map<Cells, std::size_t, InOrder>;

void number(Places& places) {
    std::size_t next = 0;
    for (auto& [key, place] : places) {
        place = next++;
    }
}

void add(QVariant& sum, const QVariant& number) {
    if (sum.isValid() && number.isValid()) {
        const bool whole = sum.typeId() == QMetaType::LongLong && number.typeId() == QMetaType::LongLong;
        sum = whole ? QVariant(sum.toLongLong() + number.toLongLong()) : sum.toDouble() + number.toDouble();
    } else if (number.isValid()) {
        sum = number;
    }
}

}  // namespace

ResultSet crosstab(const ResultSet& groups, int rowColumns) {
    const auto rowOf = [rowColumns](const Cells& group) { return Cells(group.begin(), group.begin() + rowColumns); };
    const auto columnOf = [rowColumns](const Cells& group) {
        return Cells{group[static_cast<std::size_t>(rowColumns)]};
    };
    Places rows;
    Places columns;
    for (const Cells& group : groups.rows) {
        rows.try_emplace(rowOf(group));
        columns.try_emplace(columnOf(group));
    }
    number(rows);
    number(columns);

    ResultSet table{{groups.columns.begin(), groups.columns.begin() + rowColumns}, {}};
    for (const auto& [key, place] : columns) {
        table.columns.push_back(key[0].isValid() ? displayText(key[0]) : u"<>"_s);
    }
    for (const auto& [key, place] : rows) {
        table.rows.push_back(key);
        table.rows.back().resize(table.columns.size());
    }
    for (const Cells& group : groups.rows) {
        Cells& row = table.rows[rows[rowOf(group)]];
        add(row[static_cast<std::size_t>(rowColumns) + columns[columnOf(group)]], group.back());
    }
    return table;
}

}  // namespace kelvora
