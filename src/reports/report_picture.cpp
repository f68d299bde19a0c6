#include "reports/report_picture.h"

#include "data/dates.h"
#include "data/numbers.h"
#include "reports/length_frequency_report.h"

#include <QAbstractItemModel>
#include <QLocale>

#include <algorithm>
#include <cmath>
#include <iterator>
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

/// A series of a column: its value in each of the given rows, 0 where there is none, or no such row.
PictureSeries seriesOf(const QAbstractItemModel& table, const std::vector<int>& rows, int column) {
    PictureSeries series{table.headerData(column, Qt::Horizontal).toString(), {}};
    for (const int row : rows) {
        series.values.push_back(numberAt(table, row, column).value_or(0));
    }
    return series;
}

/// A row of a table in a picture; none for what keeps an empty place.
struct Place {
    QString name;
    int row = -1;
};

std::vector<int> rowsOf(const std::vector<Place>& places) {
    std::vector<int> rows;
    std::ranges::transform(places, std::back_inserter(rows), &Place::row);
    return rows;
}

QStringList namesOf(const std::vector<Place>& places) {
    QStringList names;
    std::ranges::transform(places, std::back_inserter(names), &Place::name);
    return names;
}

/// The length classes of a table and those that are missing between them, which are as wide as the one before.
std::vector<Place> lengthClasses(const QAbstractItemModel& table) {
    // One fish of a wrong length must not leave the others a hair's breadth.
    constexpr double mostMissing = 100;
    std::vector<Place> places;
    double end = 0;
    double width = 0;
    for (int row = 0; row < table.rowCount(); ++row) {
        const double lower = numberAt(table, row, 0).value_or(0);
        const double upper = numberAt(table, row, 1).value_or(lower);
        constexpr double rounding = 1e-6;
        const double missing = width > 0 ? std::floor((lower - end) / width + rounding) : 0;
        for (int i = 0; missing <= mostMissing && i < missing; ++i) {
            places.push_back({plainText(readable(end + i * width))});
        }
        const QString limit = textAt(table, row, 0);
        const bool shared = textAt(table, row - 1, 0) == limit || textAt(table, row + 1, 0) == limit;
        places.push_back({shared ? limit + u'–' + textAt(table, row, 1) : limit, row});
        end = row == 0 ? upper : std::max(end, upper);
        width = upper - lower;
    }
    return places;
}

/// The number of the colour of a stage or a sex, the same whichever others are in the table.
int colourOf(const QString& column, int place) {
    const int stage = static_cast<int>(leadingNumber(column));
    static const QStringList sexes{u"male"_s, u"none"_s, u"juvenile"_s, u"female"_s};
    const auto sex = static_cast<int>(sexes.indexOf(column.toLower()));
    return stage > 0 ? stage - 1 : sex >= 0 ? sex : static_cast<int>(sexes.size()) + place;
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

ReportPicture titled(ReportPicture picture, const QString& title, const QString& groupTitle,
                     const QString& valueTitle) {
    picture.title = title;
    picture.groupTitle = groupTitle;
    picture.valueTitle = valueTitle;
    return picture;
}

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
            others = readable(others + value(place));
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
    picture.byMonth = true;
    const auto months = inOrder(kClassColumns, table.columnCount(), [&](int column) {
        return monthCalled(table.headerData(column, Qt::Horizontal).toString());
    });
    const std::vector<Place> classes = months.empty() ? std::vector<Place>() : lengthClasses(table);
    picture.groups = namesOf(classes);
    for (const int month : months) {
        picture.series.push_back(seriesOf(table, rowsOf(classes), month));
        picture.series.back().colour = monthCalled(picture.series.back().name) - 1;
    }
    return picture;
}

ReportPicture monthsOf(const QAbstractItemModel& table) {
    ReportPicture picture;
    picture.standing = true;
    std::vector<Place> months;
    for (int month = 1; month <= kMonths; ++month) {
        months.push_back({QLocale().standaloneMonthName(month, QLocale::ShortFormat)});
    }
    for (int row = 0; row < table.rowCount(); ++row) {
        const QString name = textAt(table, row, 0);
        if (const int month = monthCalled(name); month <= kMonths) {
            months[static_cast<std::size_t>(month - 1)].row = row;
        } else if (!name.isEmpty()) {
            months.push_back({name, row});
        }
    }
    if (std::ranges::all_of(months, [](const Place& month) { return month.row < 0; })) {
        return picture;
    }
    picture.groups = namesOf(months);
    const auto columns = inOrder(1, table.columnCount(), [&](int column) {
        return leadingNumber(table.headerData(column, Qt::Horizontal).toString());
    });
    for (const int column : columns) {
        picture.series.push_back(seriesOf(table, rowsOf(months), column));
        picture.series.back().colour = colourOf(picture.series.back().name, column);
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
