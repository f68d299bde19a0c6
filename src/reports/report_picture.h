#pragma once

#include <QString>
#include <QStringList>

#include <vector>

class QAbstractItemModel;

namespace kelvora {

/// The bars of one colour in a picture: a value for each of its groups.
struct PictureSeries {
    QString name;
    std::vector<double> values;
    int colour = 0;  ///< its number among the colours of the picture, the same in every picture

    friend bool operator==(const PictureSeries&, const PictureSeries&) = default;
};

/// What a picture shows: a bar for each group, stacked from the values of the series.
struct ReportPicture {
    QString title;
    QString groupTitle;  ///< caption of the axis of the groups, with its unit
    QString valueTitle;  ///< the same of the values
    QStringList groups;
    std::vector<PictureSeries> series;
    bool standing = false;  ///< bars upwards; otherwise they lie beside the names of their groups
    bool byMonth = false;   ///< the series are months, with colours of their own
};

/// A picture under its title, with the captions of its axes.
ReportPicture titled(ReportPicture picture, const QString& title, const QString& groupTitle, const QString& valueTitle);

/// The most bars whose names can be read.
inline constexpr int kMostBars = 15;

/// A bar for each row of a table that has a number in a column; its group is called by the first column.
ReportPicture barsOf(const QAbstractItemModel& table, int column);

/// The same bars from the largest to the smallest; all behind the fifteenth are put together as "others".
ReportPicture largestFirst(ReportPicture picture);

/// A histogram of a table of length classes: a group for each row, called by its lower limit, and by both limits where
/// classes share the lower one; a series for each month, in the order of the calendar. A missing class keeps its place.
ReportPicture histogramOf(const QAbstractItemModel& table);

/// A table whose rows are months as the months of the whole calendar, by their short names, and a series for each
/// further column; numbered ones come by their numbers.
ReportPicture monthsOf(const QAbstractItemModel& table);

/// The place of the value axis' marks: from, to and the distance between them, so that all bars fit.
struct PictureScale {
    double from = 0;
    double to = 1;
    double step = 1;
};

/// At most six marks at round values. Whole numbers are marked at whole numbers.
PictureScale scaleOf(const ReportPicture& picture);

}  // namespace kelvora
