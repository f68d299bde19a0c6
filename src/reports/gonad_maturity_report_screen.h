#pragma once

#include "reports/species_report_screen.h"

class QTabWidget;

namespace kelvora {

class ReportChart;

/// The sexes of a species in each month of a year, and the maturity stages of the females, the males and the fish whose
/// sex was not identified.
class GonadMaturityReportScreen : public SpeciesReportScreen {
    Q_OBJECT

public:
    explicit GonadMaturityReportScreen(const Context& context);

protected:
    bool showReport(int year, int fishno) override;
    QStringList exported(int year) override;

private:
    [[nodiscard]] Grid* table(int tab) const;
    void drawFront();

    QTabWidget* m_tables;
    ReportChart* m_chart;
    QString m_shown;  ///< the year and species of the tables
};

}  // namespace kelvora
