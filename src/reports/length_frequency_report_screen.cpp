#include "reports/length_frequency_report_screen.h"

#include "controls/captioned_grid.h"
#include "controls/dialogs.h"
#include "reports/length_frequency_report.h"
#include "reports/report_chart.h"

#include <QPushButton>
#include <QSplitter>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace kelvora {
namespace {

constexpr int kWidth = 80;

/// The columns of the length classes, and one of each month behind them.
GridColumns columns(const std::vector<QString>& found) {
    GridColumns columns{{u"Lower"_s, kWidth, Qt::AlignRight},
                        {u"Upper"_s, kWidth, Qt::AlignRight},
                        {u"Mid Length"_s, kWidth, Qt::AlignRight}};
    for (auto month = static_cast<std::size_t>(kClassColumns); month < found.size(); ++month) {
        columns.push_back({found[month], kWidth, Qt::AlignRight});
    }
    return columns;
}

}  // namespace

LengthFrequencyReportScreen::LengthFrequencyReportScreen(const Context& context)
    : SpeciesReportScreen(u"Length Frequency Report"_s, context, lengthYears(), lengthSpecies()),
      m_grid(new Grid(u"Result"_s, this)),
      m_chart(new ReportChart(context, this)) {
    auto* layout = new QVBoxLayout(this);
    layout->setSpacing(12);
    layout->addLayout(choiceRow());
    layout->addWidget(besideTable(m_grid, m_chart), 1);
    m_grid->showBlank(columns({}));
}

void LengthFrequencyReportScreen::showReport(int year, int fishno) {
    ResultSet found = lengthsByMonth(db(), year, fishno);
    exportButton()->setEnabled(!found.isEmpty());
    if (found.isEmpty()) {
        m_grid->showBlank(columns({}));
        m_chart->draw({});
        showsNothing();
        dialogs().message(u"RESULT"_s, u"No data in this year"_s);
        return;
    }
    GridColumns shown = columns(found.columns);
    m_grid->show(std::make_unique<ResultModel>(std::move(found)), std::move(shown));
    showsListed();
    ReportPicture picture = histogramOf(*m_grid->model());
    picture.title = u"Length frequency %1, %2"_s.arg(year).arg(speciesText());
    picture.groupTitle = u"Lower limit of the length class (cm)"_s;
    picture.valueTitle = u"Number of fish"_s;
    m_chart->draw(std::move(picture));
}

CsvText LengthFrequencyReportScreen::exported(int year) {
    return lengthFrequencyCsv(year, speciesText(), *m_grid->model(), QDate::currentDate());
}

}  // namespace kelvora
