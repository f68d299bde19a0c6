#pragma once

#include <QAbstractTableModel>
#include <QDate>
#include <QString>
#include <QVariant>

#include <optional>
#include <vector>

namespace kelvora {

/// The rows of one query, read to their end. A value is an invalid QVariant (null), a qlonglong, a double or a QString.
/// Columns are found by name or alias as the database compares names, without regard to letter case; a name that
/// the query does not have throws std::out_of_range, since it is a fault of the program and not of the data.
class ResultSet {
public:
    std::vector<QString> columns;
    std::vector<std::vector<QVariant>> rows;

    [[nodiscard]] int rowCount() const { return static_cast<int>(rows.size()); }
    [[nodiscard]] int columnCount() const { return static_cast<int>(columns.size()); }
    [[nodiscard]] bool isEmpty() const { return rows.empty(); }
    [[nodiscard]] int column(QStringView name) const;
    [[nodiscard]] const QVariant& value(int row, QStringView name) const;

    /// The value as it is shown: empty for null, numbers in plain decimal text.
    [[nodiscard]] QString text(int row, QStringView name) const;
    /// The value as a whole number or number; nothing for null and for a text that is no number.
    [[nodiscard]] std::optional<int> integer(int row, QStringView name) const;
    [[nodiscard]] std::optional<double> number(int row, QStringView name) const;
    /// The value as a date; invalid for null and for a text that is no ISO date.
    [[nodiscard]] QDate date(int row, QStringView name) const;
};

/// The rows that have a key in a column. Another program may have stored one that no key of ours looks like: it is
/// passed over, and hides none of the others.
ResultSet keyed(ResultSet result, QStringView key);

/// A value of a result set as it is shown.
QString displayText(const QVariant& value);

/// Text equality as the database compares text columns: without regard to the case of the letters A to Z.
bool sameText(QStringView left, QStringView right);

/// Whether two texts are one name to a person: without regard to letter case in any alphabet ("Élan" and "élan").
bool sameName(QStringView left, QStringView right);

/// Negative, 0 or positive, in the order in which the database sorts text columns.
int compareText(QStringView left, QStringView right);

/// A result set for lists, grids and navigators. Headers are the column names; DisplayRole is the shown text, EditRole
/// the value itself. match() compares texts as the database does, and as names where that finds none.
class ResultModel : public QAbstractTableModel {
public:
    explicit ResultModel(ResultSet result, QObject* parent = nullptr);

    [[nodiscard]] const ResultSet& result() const { return m_result; }

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    [[nodiscard]] QModelIndexList match(const QModelIndex& start, int role, const QVariant& value, int hits,
                                        Qt::MatchFlags flags) const override;

private:
    ResultSet m_result;
};

}  // namespace kelvora
