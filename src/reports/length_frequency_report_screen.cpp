#include "reports/length_frequency_report_screen.h"

#include "controls/captioned_grid.h"
#include "controls/dialogs.h"
#include "reports/length_frequency_report.h"
#include "reports/report_chart.h"

#include <QPushButton>
#include <QSplitter>
#include <QVBoxLayout>

namespace kelvora {
namespace {

constexpr int kWidth = 1200;

/// The columns of the length classes, and one of each month behind them.
GridColumns columns(const std::vector<QString>& found) {
    GridColumns columns{{QStringLiteral("Lower"), kWidth, Qt::AlignRight},
                        {QStringLiteral("Upper"), kWidth, Qt::AlignRight},
                        {QStringLiteral("Mid Length"), kWidth, Qt::AlignRight}};
    for (auto month = static_cast<std::size_t>(kClassColumns); month < found.size(); ++month) {
        columns.push_back({found[month], kWidth, Qt::AlignRight});
    }
    return columns;
}

}  // namespace

LengthFrequencyReportScreen::LengthFrequencyReportScreen(const Context& context)
    : SpeciesReportScreen(tr("Length Frequency Report"), context, lengthYears(), lengthSpecies()),
      m_grid(new Grid(tr("Result"), this)),
      m_chart(new ReportChart(dialogs(), this)) {
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
        dialogs().message(QStringLiteral("RESULT"), QStringLiteral("No data in this year"));
        return;
    }
    GridColumns shown = columns(found.columns);
    m_grid->show(std::make_unique<ResultModel>(std::move(found)), std::move(shown));
    ReportPicture picture = histogramOf(*m_grid->model());
    picture.title = tr("Length frequency %1, %2").arg(year).arg(speciesText());
    picture.groupTitle = tr("Lower limit of the length class (cm)");
    picture.valueTitle = tr("Number of fish");
    m_chart->draw(std::move(picture));
}

CsvText LengthFrequencyReportScreen::exported(int year) {
    return lengthFrequencyCsv(year, speciesText(), *m_grid->model(), QDate::currentDate());
}

}  // namespace kelvora
