#include "records/import_file.h"

#include <QLocale>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace kelvora {
namespace {

constexpr qsizetype kLongestName = 40;  // letters, so that ten lines fit into a box

}  // namespace

std::optional<FormatFault> headerFault(const ImportLayout& layout, const CsvRecord& header) {
    if (header.fields.size() != layout.width()) {
        return fieldCountFault(header, layout.width());
    }
    int first = 0;
    for (const int count : layout.headerGroups) {
        int differing = 0;
        for (int i = first; i < first + count; ++i) {
            differing += header.fields[i] != layout.columns[static_cast<std::size_t>(i)].header ? 1 : 0;
        }
        if (differing == count) {
            return FormatFault(header.line, u"field %1 is \"%2\", not \"%3\""_s.arg(first + 1).arg(
                                                header.fields[first].left(kLongestName),
                                                layout.columns[static_cast<std::size_t>(first)].header));
        }
        first += count;
    }
    return std::nullopt;
}

QString unevenRecord(const ImportLayout& layout, const CsvRecord& record) {
    if (record.fields.size() == layout.width()) {
        return {};
    }
    return u"Line %1 does not hold %2 fields, but %3. Nothing was loaded."_s.arg(record.line)
        .arg(layout.width())
        .arg(record.fields.size());
}

QByteArray importFileOf(const ImportLayout& layout, const std::vector<CsvRecord>& records) {
    QString text;
    const auto addLine = [&text](const QStringList& fields) {
        QStringList quoted;
        for (QString field : fields) {
            quoted.append(u'"' + field.replace(u'"', u"\"\""_s) + u'"');
        }
        text += quoted.join(u',') + u"\r\n"_s;
    };
    QStringList header;
    for (const ImportColumn& column : layout.columns) {
        header.append(column.header);
    }
    addLine(header);
    for (const CsvRecord& record : records) {
        addLine(record.fields);
    }
    return text.toUtf8();
}

QString countLine(qsizetype rows, int passedOver) {
    const QString line = u"rows: %1"_s.arg(counted(rows));
    return passedOver == 0 ? line : line + u", empty lines passed over: %1"_s.arg(counted(passedOver));
}

QString counted(qsizetype number) {
    return QLocale(QLocale::English).toString(static_cast<qlonglong>(number));
}

QString outcomeLine(const ImportOutcome& outcome) {
    const auto others = static_cast<qsizetype>(outcome.others.size());
    QString known = counted(outcome.known + outcome.repeated + others);
    if (outcome.repeated + others > 0) {
        known +=
            u" (%1 the same vessel, %2 another boat of that name)"_s.arg(counted(outcome.repeated), counted(others));
    }
    return u"stored %1, already known %2, refused %3"_s.arg(counted(outcome.stored), known,
                                                            counted(static_cast<qsizetype>(outcome.refused.size())));
}

QString refusalText(const std::vector<RefusedRecord>& refused) {
    constexpr std::size_t most = 10;
    QStringList lines = {
        u"Not stored, since a number is missing or not numeric: %1. These rows stay in the preview.\n"_s.arg(
            counted(static_cast<qsizetype>(refused.size())))};
    for (std::size_t i = 0; i < std::min(most, refused.size()); ++i) {
        const auto& [record, columns] = refused[i];
        const QString name = record.fields.first().simplified();
        lines.append(u"line %1, %2: %3"_s.arg(QString::number(record.line),
                                              name.size() <= kLongestName ? name : name.first(kLongestName) + u"…"_s,
                                              columns.join(u", "_s)));
    }
    if (refused.size() > most) {
        lines.append(u"and %1 more"_s.arg(counted(static_cast<qsizetype>(refused.size() - most))));
    }
    return lines.join(u'\n');
}

}  // namespace kelvora
