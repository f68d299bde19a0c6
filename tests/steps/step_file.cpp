#include "step_file.h"

#include <QDate>
#include <QFile>
#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace kelvora::test {
namespace {

struct Line {
    int number = 0;
    QString text;
};

QString filled(QString line) {
    static const QRegularExpression repeated(u"\\{([^{}]+)\\*(\\d+)\\}"_s);
    for (auto found = repeated.match(line); found.hasMatch(); found = repeated.match(line)) {
        line.replace(found.capturedStart(), found.capturedLength(),
                     found.captured(1).repeated(found.captured(2).toInt()));
    }
    const QDate today = QDate::currentDate();
    line.replace(u"{today}"_s, today.toString(Qt::ISODate)).replace(u"{today/}"_s, today.toString(u"dd/MM/yyyy"_s));
    return line.replace(u"\\n"_s, u"\n"_s);
}

/// The lines between "each" and "end", once for each row of values: {1}, {2} … stand for its cells.
QList<Line> repeated(const QList<Line>& lines) {
    QList<Line> all;
    for (qsizetype at = 0; at < lines.size(); ++at) {
        if (lines[at].text.section(u' ', 0, 0) != u"each") {
            all.append(lines[at]);
            continue;
        }
        QList<QStringList> rows;
        for (const QString& value : lines[at].text.mid(5).split(u'|', Qt::SkipEmptyParts)) {
            rows.append({value.trimmed()});
        }
        for (; lines[at + 1].text.startsWith(u'|'); ++at) {
            rows.append(lines[at + 1].text.mid(1).split(u'|'));
        }
        qsizetype end = at + 1;
        while (end < lines.size() && lines[end].text != u"end") {
            ++end;
        }
        for (const QStringList& row : rows) {
            for (Line line : lines.mid(at + 1, end - at - 1)) {
                for (qsizetype cell = row.size(); cell-- > 0;) {
                    line.text.replace(u"{%1}"_s.arg(cell + 1), row[cell].trimmed().replace(u'¦', u'|'));
                }
                all.append(line);
            }
        }
        at = end;
    }
    return all;
}

/// A step with the boxes behind it; or a line that belongs to the step before it.
void append(QList<Step>& steps, const Line& line) {
    static const QRegularExpression betweenBoxes(u" {3}(?=[?!] )"_s), betweenRows(u" // (?=[+-] )"_s);
    const QString& text = line.text;
    if (text.startsWith(u"+ "_s) || text.startsWith(u"- "_s)) {
        for (const QString& rows : text.split(betweenRows)) {
            for (const QString& row : rows.sliced(2).split(u" // "_s)) {
                steps.last().changes.append(rows.first(2) + filled(row));
            }
        }
    } else if (text.startsWith(u'|')) {
        steps.last().block.append(filled(text.mid(text.startsWith(u"| "_s) ? 2 : 1)));
    } else if (text == u"once") {
        steps.last().once = true;
    } else {
        for (const QString& part : text.split(betweenBoxes)) {
            if (part.startsWith(u"? "_s) || part.startsWith(u"! "_s)) {
                steps.last().boxes.append(PlannedBox::of(filled(part)));
            } else {
                steps.append({line.number, part.section(u' ', 0, 0), filled(part.section(u' ', 1))});
            }
        }
    }
}

}  // namespace

QList<StepCase> casesOf(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        qFatal("no step file %s", qPrintable(path));
    }
    QList<StepCase> cases;
    QList<QList<Line>> lines;
    int number = 0;
    for (const QString& line : QString::fromUtf8(file.readAll()).split(u'\n')) {
        ++number;
        const QString text = line.trimmed();
        if (text.startsWith(u"* "_s)) {
            cases.append({text.mid(2), path.section(u'/', -1), {}});
            lines.append(QList<Line>());
        } else if (!text.isEmpty() && !text.startsWith(u'#') && !cases.isEmpty()) {
            lines.last().append({number, text});
        }
    }
    for (qsizetype i = 0; i < cases.size(); ++i) {
        for (const Line& line : repeated(lines[i])) {
            append(cases[i].steps, line);
        }
    }
    return cases;
}

}  // namespace kelvora::test
