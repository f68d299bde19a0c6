#pragma once

#include "reports/species_report_screen.h"

namespace kelvora {

class ReportChart;

/// How many fish of each length class were measured in each month of a year.
class LengthFrequencyReportScreen : public SpeciesReportScreen {
    Q_OBJECT

public:
    explicit LengthFrequencyReportScreen(const Context& context);

protected:
    bool showReport(int year, int fishno) override;
    QStringList exported(int year) override;

private:
    Grid* m_grid;
    ReportChart* m_chart;
};

}  // namespace kelvora
