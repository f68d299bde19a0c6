#include "reference/import_file.h"

#include <QLocale>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace kelvora {

bool headerFits(const ImportLayout& layout, const QStringList& fields) {
    if (fields.size() != layout.width()) {
        return false;
    }
    int first = 0;
    for (const int count : layout.headerGroups) {
        int differing = 0;
        for (int i = first; i < first + count; ++i) {
            differing += fields[i] != layout.columns[static_cast<std::size_t>(i)].header ? 1 : 0;
        }
        if (differing == count) {
            return false;
        }
        first += count;
    }
    return true;
}

QString unevenRecord(const ImportLayout& layout, const std::vector<CsvRecord>& records) {
    const auto uneven =
        std::ranges::find_if(records, [&](const CsvRecord& record) { return record.fields.size() != layout.width(); });
    if (uneven == records.end()) {
        return {};
    }
    return u"Line %1 does not hold %2 fields, but %3. Nothing was loaded."_s.arg(uneven->line)
        .arg(layout.width())
        .arg(uneven->fields.size());
}

QString counted(qsizetype number) {
    return QLocale(QLocale::English).toString(static_cast<qlonglong>(number));
}

QString outcomeLine(const ImportOutcome& outcome) {
    return u"stored %1, already known %2, refused %3"_s.arg(counted(outcome.stored), counted(outcome.known),
                                                            counted(static_cast<qsizetype>(outcome.refused.size())));
}

QString refusalText(const std::vector<RefusedRecord>& refused) {
    constexpr std::size_t most = 10;
    constexpr qsizetype longest = 40;  // letters of a name, so that ten lines fit into a box
    QStringList lines = {
        u"Not stored, since a number is missing or not numeric: %1. These rows stay in the preview.\n"_s.arg(
            counted(static_cast<qsizetype>(refused.size())))};
    for (std::size_t i = 0; i < std::min(most, refused.size()); ++i) {
        const auto& [record, columns] = refused[i];
        const QString name = record.fields.first().simplified();
        lines.append(u"line %1, %2: %3"_s.arg(QString::number(record.line),
                                              name.size() <= longest ? name : name.first(longest) + u"…"_s,
                                              columns.join(u", "_s)));
    }
    if (refused.size() > most) {
        lines.append(u"and %1 more"_s.arg(counted(static_cast<qsizetype>(refused.size() - most))));
    }
    return lines.join(u'\n');
}

}  // namespace kelvora
