#include "reports/length_frequency_report_screen.h"

#include "reports/length_frequency_report.h"
#include "reports/report_chart.h"

#include <QSplitter>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace kelvora {
namespace {

constexpr int kWidth = 80;

/// The columns of the length classes, without those of the months behind them.
GridColumns ofClasses() {
    return {{u"Lower"_s, kWidth, Qt::AlignRight},
            {u"Upper"_s, kWidth, Qt::AlignRight},
            {u"Mid Length"_s, kWidth, Qt::AlignRight}};
}

}  // namespace

LengthFrequencyReportScreen::LengthFrequencyReportScreen(const Context& context)
    : SpeciesReportScreen(u"Length Frequency Report"_s, context, lengthYears()),
      m_grid(new Grid(u"Result"_s, this)),
      m_chart(new ReportChart(context, this)) {
    auto* layout = new QVBoxLayout(this);
    layout->setSpacing(12);
    layout->addLayout(choiceRow());
    layout->addWidget(besideTable(m_grid, m_chart), 1);
    m_grid->showBlank(ofClasses());
}

bool LengthFrequencyReportScreen::showReport(int year, int fishno) {
    ResultSet found = lengthsByMonth(db(), year, fishno);
    const bool any = !found.isEmpty();
    GridColumns columns = ofClasses();
    for (std::size_t month = columns.size(); month < found.columns.size(); ++month) {
        columns.push_back({found.columns[month], kWidth, Qt::AlignRight});
    }
    showFound(m_grid, std::move(found), std::move(columns), ofClasses());
    m_chart->draw(titled(histogramOf(*m_grid->model()), u"Length frequency "_s + listed(),
                         u"Lower limit of the length class (cm)"_s, u"Number of fish"_s));
    return any;
}

QStringList LengthFrequencyReportScreen::exported(int year) {
    return exportOf(u"Length Frequency data In %1"_s.arg(year), *m_grid);
}

}  // namespace kelvora
