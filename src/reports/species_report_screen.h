#pragma once

#include "controls/captioned_grid.h"
#include "data/result_set.h"
#include "reports/report_screen.h"

class QLayout;

namespace kelvora {

/// The frame of a report about one species in one year: the list of the species, and a search that needs both.
class SpeciesReportScreen : public ReportScreen {
    Q_OBJECT

protected:
    SpeciesReportScreen(const QString& caption, const Context& context, const Sql& years);

    /// Shows the report of a species, given by its number, in a year; returns whether anything was found.
    virtual bool showReport(int year, int fishno) = 0;
    /// What the report is about: "2004, Upeneus vittatus".
    [[nodiscard]] QString listed() const override;

    /// The first row of a report: year, species, search and export.
    QLayout* choiceRow();
    /// The export of a table under a title that names the year.
    [[nodiscard]] QStringList exportOf(const QString& title, const Grid& table) const;

    void search() override;
    void refillChoices() override;

private:
    BoundList* m_species;
    QPushButton* m_search;
};

/// Shows what was found, or else blank columns.
void showFound(Grid* grid, ResultSet found, GridColumns columns, GridColumns blank);

}  // namespace kelvora
