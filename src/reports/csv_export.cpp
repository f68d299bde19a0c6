#include "reports/csv_export.h"

#include "data/dates.h"
#include "data/store_files.h"

#include <QAbstractItemModel>

using namespace Qt::StringLiterals;

namespace kelvora {

QStringList csvRows(const QAbstractItemModel& table) {
    QStringList lines;
    for (int row = 0; row < table.rowCount(); ++row) {
        QString& line = lines.emplace_back();
        for (int column = 0; column < table.columnCount(); ++column) {
            line += table.index(row, column).data().toString() + u',';
        }
    }
    return lines;
}

QStringList csvTable(const QAbstractItemModel& table) {
    QString captions;
    for (int column = 0; column < table.columnCount(); ++column) {
        captions += table.headerData(column, Qt::Horizontal).toString() + u',';
    }
    return QStringList{captions} + csvRows(table);
}

QString exportDateLine(const QDate& day) {
    return u"EXPORT Date : "_s + shortDate(day);
}

void saveCsv(const QString& path, const QStringList& lines, const QString& databasePath) {
    QString text;
    for (const QString& line : lines) {
        text += line + u"\r\n"_s;
    }
    writeWholeFile(path, text.toLocal8Bit(), u"The export could not be written"_s, databasePath);
}

}  // namespace kelvora
