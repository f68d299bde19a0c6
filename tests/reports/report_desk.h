#pragma once

#include "controls/captioned_grid.h"
#include "data/dates.h"
#include "reports/report_chart.h"
#include "support/screen_driver.h"
#include "support/temporary_store.h"

#include <QAbstractBarSeries>
#include <QBarSet>
#include <QChart>
#include <QFile>

#include <algorithm>

namespace kelvora::test {

using namespace Qt::StringLiterals;

inline const QString kYear = u"Year"_s;
inline const QString kSearch = u"Search"_s;
inline const QString kExport = u"EXPORT"_s;
inline const QString kResult = u"Result"_s;
inline const QString kMackerel = u"Rastrelliger kanagurta"_s;

/// Four operations of 2004, 400 kg in all, the last one on a port, method, vessel and area that are not registered, and
/// one of 999 kg on the first day of 2005.
inline void addWorkedYear(TemporaryStore& store) {
    store.addReferenceRows();
    store.addOperation(1, 1, u"2004-01-10"_s, 1, 100, u"Sea Star"_s, u"A1"_s);
    store.addOperation(2, 3, u"2004-03-05"_s, 3, 297.5, u"Blue Fin"_s, u"A2"_s);
    store.addOperation(3, 2, u"2004-03-20"_s, 2, 2, u"Sea Star"_s, u"A1"_s);
    store.addOperation(4, 99, u"2004-12-31"_s, 99, 0.5, u"Ghost"_s, u"A9"_s);
    store.addOperation(5, 1, u"2005-01-01"_s, 1, 999, u"Sea Star"_s, u"A1"_s);
}

inline QByteArray contents(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("no file");
}

/// The lines of a file of reference results behind its header, or from another line on, each as its fields.
inline std::vector<QStringList> linesOf(const QString& name, qsizetype first = 1) {
    const QByteArray file = contents(u"" KELVORA_TEST_FILES "/"_s + name);
    std::vector<QStringList> lines;
    for (const QString& line : QString::fromUtf8(file).trimmed().split(u'\n').mid(first)) {
        lines.push_back(line.trimmed().split(u','));
    }
    return lines;
}

inline QStringList texts(const char* joined) {
    return QString::fromLatin1(joined).split(u';');
}

inline QByteArray exportDay() {
    return "EXPORT Date : " + shortDate(QDate::currentDate()).toLocal8Bit() + "\r\n";
}

/// What a picture draws, read from the bars themselves: "name: value value …" for each series, from the first group on.
inline QString barsOn(const ReportChart& chart) {
    QStringList lines;
    for (QAbstractSeries* series : chart.chart()->series()) {
        for (const QBarSet* set : qobject_cast<QAbstractBarSeries*>(series)->barSets()) {
            QStringList values;
            for (int i = 0; i < set->count(); ++i) {
                values << QString::number(set->at(chart.picture().standing ? i : set->count() - 1 - i));
            }
            lines << set->label() + u": "_s + values.join(u' ');
        }
    }
    return lines.join(u';');
}

/// A column of rows that are joined by ";", their cells by "|".
inline QStringList column(const QString& rows, int number) {
    QStringList cells;
    for (const QString& row : rows.split(u';')) {
        cells << row.section(u'|', number, number);
    }
    return cells;
}

/// A report, opened over the worked year and what a test added to it.
template <typename ReportScreenClass>
struct Report {
    explicit Report(const std::vector<Literal>& statements = {}) {
        addWorkedYear(store);
        for (const Literal& statement : statements) {
            store.execute(statement);
        }
        screen = std::make_unique<ReportScreenClass>(store.context());
    }
    [[nodiscard]] ScreenDriver ui() const { return ScreenDriver(screen.get()); }
    void search(const QString& year) const {
        ui().choose(kYear, year);
        ui().press(kSearch);
    }
    void search(const QString& year, const QString& species) const {
        ui().choose(u"Species"_s, species);
        search(year);
    }
    [[nodiscard]] QString headers(const QString& grid = kResult) const { return ui().grid(grid)->headers().join(u';'); }
    [[nodiscard]] QString rows(const QString& grid = kResult) const { return ui().rows(grid).join(u';'); }
    [[nodiscard]] const ReportChart& chart() const { return *screen->template findChild<ReportChart*>(); }
    [[nodiscard]] QString drawn() const { return barsOn(chart()); }
    [[nodiscard]] QString drawnGroups() const { return chart().picture().groups.join(u';'); }
    [[nodiscard]] bool canExport() const { return ui().enabled(kExport); }
    [[nodiscard]] QByteArray exported() {
        const QString path = store.file(u"report"_s);
        store.dialogs.expectSaveFile(path);
        ui().press(kExport);
        return contents(path + u".csv"_s);
    }

    TemporaryStore store;
    std::unique_ptr<ReportScreenClass> screen;
};

}  // namespace kelvora::test
