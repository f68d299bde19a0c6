#pragma once

#include "data/result_set.h"
#include "reports/species_report_screen.h"

#include <array>

class QTabWidget;

namespace kelvora {

class Grid;
class ReportChart;

/// The sexes of a species in each month of a year, and the maturity stages of the females, the males and the fish whose
/// sex was not identified.
class GonadMaturityReportScreen : public SpeciesReportScreen {
    Q_OBJECT

public:
    explicit GonadMaturityReportScreen(const Context& context);

protected:
    void showReport(int year, int fishno) override;
    CsvText exported(int year) override;

private:
    Grid* addTable(const QString& caption);
    void drawFront();

    QTabWidget* m_tables;
    Grid* m_sexes;
    std::array<Grid*, 3> m_stages;  ///< of the females, the males and the others
    ReportChart* m_chart;
    QString m_shown;  ///< the year and species of the tables
};

}  // namespace kelvora
