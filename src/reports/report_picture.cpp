#include "reports/report_picture.h"

#include "data/dates.h"
#include "data/numbers.h"
#include "reports/length_frequency_report.h"

#include <QAbstractItemModel>
#include <QLocale>

#include <algorithm>
#include <cmath>
#include <numeric>

using namespace Qt::StringLiterals;

namespace kelvora {
namespace {

constexpr int kMonths = 12;

QString textAt(const QAbstractItemModel& table, int row, int column) {
    return table.index(row, column).data().toString();
}

std::optional<double> numberAt(const QAbstractItemModel& table, int row, int column) {
    return toNumber(textAt(table, row, column));
}

/// The month of a name in the system's language, 1 to 12; 13 for another text.
int monthCalled(const QString& name) {
    int month = 1;
    while (month <= kMonths && monthName(month) != name) {
        ++month;
    }
    return month;
}

/// Puts values into the order of their keys, equal ones as they come.
template <typename Key>
std::vector<int> inOrder(int first, int last, const Key& keyOf) {
    std::vector<int> places(static_cast<std::size_t>(std::max(0, last - first)));
    std::iota(places.begin(), places.end(), first);
    std::ranges::stable_sort(places, {}, keyOf);
    return places;
}

/// A series of a column: its value in each of the given rows, 0 where there is none.
PictureSeries seriesOf(const QAbstractItemModel& table, const std::vector<int>& rows, int column) {
    PictureSeries series{table.headerData(column, Qt::Horizontal).toString(), {}};
    for (const int row : rows) {
        series.values.push_back(numberAt(table, row, column).value_or(0));
    }
    return series;
}

/// A round number for the distance between marks: 1, 2 or 5 times a power of ten, not below a distance.
double roundStep(double distance) {
    const double power = std::pow(10, std::floor(std::log10(distance)));
    for (const double factor : {1.0, 2.0, 5.0}) {
        if (distance <= power * factor) {
            return power * factor;
        }
    }
    return power * 10;
}

}  // namespace

ReportPicture barsOf(const QAbstractItemModel& table, int column) {
    ReportPicture picture;
    PictureSeries series{table.headerData(column, Qt::Horizontal).toString(), {}};
    for (int row = 0; row < table.rowCount(); ++row) {
        if (const auto value = numberAt(table, row, column)) {
            picture.groups.append(textAt(table, row, 0));
            series.values.push_back(*value);
        }
    }
    if (!picture.groups.isEmpty()) {
        picture.series.push_back(std::move(series));
    }
    return picture;
}

ReportPicture largestFirst(ReportPicture picture) {
    if (picture.series.empty()) {
        return picture;
    }
    const QStringList groups = std::exchange(picture.groups, {});
    const std::vector<double> values = std::exchange(picture.series.front().values, {});
    const auto value = [&](int place) { return values[static_cast<std::size_t>(place)]; };
    const std::vector<int> places =
        inOrder(0, static_cast<int>(groups.size()), [&](int place) { return -value(place); });
    double others = 0;
    for (const int place : places) {
        if (picture.groups.size() < kMostBars) {
            picture.groups.append(groups[place]);
            picture.series.front().values.push_back(value(place));
        } else {
            others = asRead(others + value(place));
        }
    }
    if (groups.size() > kMostBars) {
        picture.groups.append(u"others"_s);
        picture.series.front().values.push_back(others);
    }
    return picture;
}

ReportPicture histogramOf(const QAbstractItemModel& table) {
    ReportPicture picture;
    picture.standing = true;
    std::vector<int> rows;
    const auto months = inOrder(kClassColumns, table.columnCount(), [&](int column) {
        return monthCalled(table.headerData(column, Qt::Horizontal).toString());
    });
    for (int row = 0; row < table.rowCount() && !months.empty(); ++row) {
        rows.push_back(row);
        picture.groups.append(textAt(table, row, 0));
    }
    for (const int month : months) {
        picture.series.push_back(seriesOf(table, rows, month));
    }
    return picture;
}

ReportPicture monthsOf(const QAbstractItemModel& table) {
    ReportPicture picture;
    picture.standing = true;
    std::vector<int> rows = inOrder(0, table.rowCount(), [&](int row) { return monthCalled(textAt(table, row, 0)); });
    std::erase_if(rows, [&](int row) { return textAt(table, row, 0).isEmpty(); });
    if (rows.empty()) {
        return picture;
    }
    for (const int row : rows) {
        const int month = monthCalled(textAt(table, row, 0));
        picture.groups.append(month > kMonths ? textAt(table, row, 0)
                                              : QLocale().standaloneMonthName(month, QLocale::ShortFormat));
    }
    const auto columns = inOrder(1, table.columnCount(), [&](int column) {
        return leadingNumber(table.headerData(column, Qt::Horizontal).toString());
    });
    for (const int column : columns) {
        picture.series.push_back(seriesOf(table, rows, column));
    }
    return picture;
}

PictureScale scaleOf(const ReportPicture& picture) {
    double lowest = 0;
    double highest = 0;
    bool whole = true;
    for (std::size_t group = 0; group < static_cast<std::size_t>(picture.groups.size()); ++group) {
        double below = 0;
        double above = 0;
        for (const PictureSeries& series : picture.series) {
            const double value = series.values[group];
            (value < 0 ? below : above) += value;
            whole = whole && value == std::floor(value);
        }
        lowest = std::min(lowest, below);
        highest = std::max(highest, above);
    }
    if (lowest == highest) {
        return {};
    }
    constexpr double steps = 5;
    double step = roundStep((highest - lowest) / steps);
    if (whole) {
        step = std::max(step, 1.0);
    }
    return {std::floor(lowest / step) * step, std::ceil(highest / step) * step, step};
}

}  // namespace kelvora
