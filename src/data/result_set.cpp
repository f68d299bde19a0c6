#include "data/result_set.h"

#include "data/numbers.h"

#include <algorithm>
#include <cmath>
#include <stdexcept>
#include <utility>

namespace kelvora {

int ResultSet::column(QStringView name) const {
    for (std::size_t i = 0; i < columns.size(); ++i) {
        if (columns[i].compare(name, Qt::CaseInsensitive) == 0) {
            return static_cast<int>(i);
        }
    }
    throw std::out_of_range("no column " + name.toString().toStdString());
}

const QVariant& ResultSet::value(int row, QStringView name) const {
    return rows.at(static_cast<std::size_t>(row))[static_cast<std::size_t>(column(name))];
}

QString ResultSet::text(int row, QStringView name) const {
    return displayText(value(row, name));
}

std::optional<int> ResultSet::integer(int row, QStringView name) const {
    const std::optional<double> found = number(row, name);
    return found && std::fabs(*found) < 2e9 ? std::optional(static_cast<int>(*found)) : std::nullopt;
}

std::optional<double> ResultSet::number(int row, QStringView name) const {
    const QVariant& found = value(row, name);
    if (!found.isValid()) {
        return std::nullopt;
    }
    return found.typeId() == QMetaType::QString ? toNumber(found.toString()) : std::optional(found.toDouble());
}

QDate ResultSet::date(int row, QStringView name) const {
    return QDate::fromString(text(row, name), Qt::ISODate);
}

ResultSet keyed(ResultSet result, QStringView key) {
    int row = 0;
    std::vector<std::vector<QVariant>> rows;
    for (std::vector<QVariant>& values : result.rows) {
        if (result.integer(row++, key)) {
            rows.push_back(std::move(values));
        }
    }
    result.rows = std::move(rows);
    return result;
}

QString displayText(const QVariant& value) {
    return value.typeId() == QMetaType::Double ? plainText(value.toDouble()) : value.toString();
}

int compareText(QStringView left, QStringView right) {
    const auto folded = [](QChar c) { return c >= u'A' && c <= u'Z' ? c.unicode() + (u'a' - u'A') : c.unicode(); };
    const qsizetype common = std::min(left.size(), right.size());
    for (qsizetype i = 0; i < common; ++i) {
        if (const int order = folded(left[i]) - folded(right[i]); order != 0) {
            return order;
        }
    }
    return left.size() == right.size() ? 0 : left.size() < right.size() ? -1 : 1;
}

bool sameText(QStringView left, QStringView right) {
    return compareText(left, right) == 0;
}

bool sameName(QStringView left, QStringView right) {
    return left.compare(right, Qt::CaseInsensitive) == 0;
}

ResultModel::ResultModel(ResultSet result, QObject* parent)
    : QAbstractTableModel(parent), m_result(std::move(result)) {}

int ResultModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : m_result.rowCount();
}

int ResultModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : m_result.columnCount();
}

QVariant ResultModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid() || (role != Qt::DisplayRole && role != Qt::EditRole)) {
        return {};
    }
    const QVariant& value =
        m_result.rows[static_cast<std::size_t>(index.row())][static_cast<std::size_t>(index.column())];
    return role == Qt::EditRole ? value : QVariant(displayText(value));
}

QVariant ResultModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole || section < 0 || section >= columnCount()) {
        return {};
    }
    return m_result.columns[static_cast<std::size_t>(section)];
}

QModelIndexList ResultModel::match(const QModelIndex& start, int role, const QVariant& value, int hits,
                                   Qt::MatchFlags flags) const {
    if (flags != Qt::MatchFixedString) {
        return QAbstractTableModel::match(start, role, value, hits, flags);
    }
    QModelIndexList found;
    const QString wanted = value.toString();
    for (const auto same : {sameText, sameName}) {
        for (int row = start.row(); row < rowCount() && (hits < 0 || found.size() < hits); ++row) {
            const QModelIndex candidate = index(row, start.column());
            if (same(candidate.data(role).toString(), wanted)) {
                found.append(candidate);
            }
        }
        if (!found.isEmpty()) {
            break;
        }
    }
    return found;
}

}  // namespace kelvora
