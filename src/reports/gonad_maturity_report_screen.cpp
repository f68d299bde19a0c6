#include "reports/gonad_maturity_report_screen.h"

#include "controls/captioned_grid.h"
#include "controls/dialogs.h"
#include "reports/gonad_maturity_report.h"
#include "reports/report_chart.h"

#include <QPushButton>
#include <QSplitter>
#include <QTabWidget>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace kelvora {
namespace {

GridColumns columns(const QString& first, const std::vector<QString>& found, int width) {
    GridColumns columns{{first, 133, Qt::AlignHCenter}};
    for (std::size_t i = 1; i < found.size(); ++i) {
        columns.push_back({found[i], i == 1 ? 90 : width, Qt::AlignHCenter});
    }
    return columns;
}

/// A table of so many columns without a caption and with one blank row; without any result its rows follow.
void show(Grid* grid, ResultSet found, GridColumns columns, std::size_t blankColumns) {
    if (found.isEmpty()) {
        grid->showBlank(GridColumns(blankColumns));
    } else {
        grid->show(std::make_unique<ResultModel>(std::move(found)), std::move(columns));
    }
}

void showSexes(Grid* grid, ResultSet found) {
    GridColumns shown = columns(u"Month/SEX"_s, found.columns, 66);
    show(grid, std::move(found), std::move(shown), 4);
}

void showStages(Grid* grid, ResultSet found) {
    GridColumns shown = columns(u"Month/Stage"_s, found.columns, 80);
    show(grid, std::move(found), std::move(shown), 2);
}

}  // namespace

GonadMaturityReportScreen::GonadMaturityReportScreen(const Context& context)
    : SpeciesReportScreen(u"Gonad Matuarity Report"_s, context, gonadYears(), gonadSpecies()),
      m_tables(new QTabWidget(this)),
      m_sexes(addTable(u"Month by sex"_s)),
      m_stages{addTable(u"FEMALE"_s), addTable(u"MALE"_s), addTable(u"NONE IDENTIFY"_s)},
      m_chart(new ReportChart(context, this)) {
    auto* layout = new QVBoxLayout(this);
    layout->setSpacing(12);
    layout->addLayout(choiceRow());
    layout->addWidget(besideTable(m_tables, m_chart), 1);
    showSexes(m_sexes, {});
    for (Grid* stages : m_stages) {
        showStages(stages, {});
    }
    connect(m_tables, &QTabWidget::currentChanged, this, &GonadMaturityReportScreen::drawFront);
}

Grid* GonadMaturityReportScreen::addTable(const QString& caption) {
    auto* grid = new Grid(caption, this);
    m_tables->addTab(grid, caption);
    return grid;
}

void GonadMaturityReportScreen::showReport(int year, int fishno) {
    ResultSet sexes = sexesByMonth(db(), year, fishno);
    std::array<ResultSet, 3> stages;
    for (const Sex sex : {Sex::Female, Sex::Male, Sex::None}) {
        stages.at(static_cast<std::size_t>(sex)) = stagesByMonth(db(), year, fishno, sex);
    }
    const bool none = sexes.isEmpty();
    exportButton()->setEnabled(!none);
    showSexes(m_sexes, std::move(sexes));
    for (std::size_t i = 0; i < m_stages.size(); ++i) {
        showStages(m_stages[i], std::move(stages[i]));
    }
    m_shown = u"%1, %2"_s.arg(year).arg(speciesText());
    drawFront();
    showsListed();
    if (none) {
        showsNothing();
        dialogs().message(u"RESULT"_s, u"No data in this year"_s);
    }
}

/// Draws the table in front.
void GonadMaturityReportScreen::drawFront() {
    const QStringList titles{u"Sexes %1"_s, u"Maturity stages of females %1"_s, u"Maturity stages of males %1"_s,
                             u"Maturity stages of fish of unidentified sex %1"_s};
    ReportPicture picture = monthsOf(*qobject_cast<Grid*>(m_tables->currentWidget())->model());
    picture.title = titles[m_tables->currentIndex()].arg(m_shown);
    picture.groupTitle = u"Month"_s;
    picture.valueTitle = u"Number of fish"_s;
    m_chart->draw(std::move(picture));
}

CsvText GonadMaturityReportScreen::exported(int year) {
    return gonadMaturityCsv(year, speciesText(), *m_sexes->model(), QDate::currentDate());
}

}  // namespace kelvora
