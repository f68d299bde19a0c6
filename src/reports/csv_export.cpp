#include "reports/csv_export.h"

#include "data/dates.h"
#include "data/store_files.h"

#include <QAbstractItemModel>

using namespace Qt::StringLiterals;

namespace kelvora {

void CsvText::addLine(const QString& text) {
    m_text += text + u"\r\n"_s;
}

void CsvText::addValues(const QStringList& values) {
    for (const QString& value : values) {
        m_text += value + u',';
    }
    addLine();
}

void CsvText::addGrid(const QAbstractItemModel& grid) {
    const auto addRow = [&](const auto& textOf) {
        QStringList values;
        for (int column = 0; column < grid.columnCount(); ++column) {
            values.append(textOf(column).toString());
        }
        addValues(values);
    };
    addRow([&](int column) { return grid.headerData(column, Qt::Horizontal); });
    for (int row = 0; row < grid.rowCount(); ++row) {
        addRow([&](int column) { return grid.index(row, column).data(); });
    }
}

QString exportDateLine(const QDate& day) {
    return u"EXPORT Date : "_s + shortDate(day);
}

void saveCsv(const QString& path, const CsvText& csv, const QString& databasePath) {
    writeWholeFile(path, csv.text().toLocal8Bit(), u"The export could not be written"_s, databasePath);
}

}  // namespace kelvora
