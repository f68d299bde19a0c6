#include "reports/gonad_maturity_report_screen.h"

#include "reports/gonad_maturity_report.h"
#include "reports/report_chart.h"

#include <QSplitter>
#include <QTabWidget>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace kelvora {
namespace {

/// A table: its tab, the caption of its first column, the width of its third and all further ones, how many columns it
/// has without a fish, and what its picture is called.
struct Table {
    QString tab;
    QString first;
    int width;
    std::size_t blank;
    QString picture;
};

const std::vector<Table>& tables() {
    static const std::vector<Table> all = {
        {u"Month by sex"_s, u"Month/SEX"_s, 66, 4, u"Sexes "_s},
        {u"FEMALE"_s, u"Month/Stage"_s, 80, 2, u"Maturity stages of females "_s},
        {u"MALE"_s, u"Month/Stage"_s, 80, 2, u"Maturity stages of males "_s},
        {u"NONE IDENTIFY"_s, u"Month/Stage"_s, 80, 2, u"Maturity stages of fish of unidentified sex "_s},
    };
    return all;
}

GridColumns columnsOf(const Table& table, const std::vector<QString>& found) {
    GridColumns columns{{table.first, 133, Qt::AlignHCenter}};
    for (std::size_t i = 1; i < found.size(); ++i) {
        columns.push_back({found[i], i == 1 ? 90 : table.width, Qt::AlignHCenter});
    }
    return columns;
}

QTabWidget* newTables(QWidget* parent) {
    auto* tabs = new QTabWidget(parent);
    for (const Table& table : tables()) {
        auto* grid = new Grid(table.tab, parent);
        tabs->addTab(grid, table.tab);
        grid->showBlank(GridColumns(table.blank));
    }
    return tabs;
}

}  // namespace

GonadMaturityReportScreen::GonadMaturityReportScreen(const Context& context)
    : SpeciesReportScreen(u"Gonad Matuarity Report"_s, context, gonadYears()),
      m_tables(newTables(this)),
      m_chart(new ReportChart(context, this)) {
    auto* layout = new QVBoxLayout(this);
    layout->setSpacing(12);
    layout->addLayout(choiceRow());
    layout->addWidget(besideTable(m_tables, m_chart), 1);
    connect(m_tables, &QTabWidget::currentChanged, this, &GonadMaturityReportScreen::drawFront);
}

Grid* GonadMaturityReportScreen::table(int tab) const {
    return qobject_cast<Grid*>(m_tables->widget(tab));
}

bool GonadMaturityReportScreen::showReport(int year, int fishno) {
    std::vector<ResultSet> found = gonadTables(db(), year, fishno);
    const bool any = !found.front().isEmpty();
    for (int tab = 0; ResultSet & rows : found) {
        const Table& shown = tables()[static_cast<std::size_t>(tab)];
        GridColumns columns = columnsOf(shown, rows.columns);
        showFound(table(tab++), std::move(rows), std::move(columns), GridColumns(shown.blank));
    }
    m_shown = listed();
    drawFront();
    return any;
}

/// Draws the table in front.
void GonadMaturityReportScreen::drawFront() {
    const int front = m_tables->currentIndex();
    m_chart->draw(titled(monthsOf(*table(front)->model()), tables()[static_cast<std::size_t>(front)].picture + m_shown,
                         u"Month"_s, u"Number of fish"_s));
}

QStringList GonadMaturityReportScreen::exported(int year) {
    return exportOf(u"Gonad Maturity data In %1"_s.arg(year), *table(0));
}

}  // namespace kelvora
