#pragma once

#include "reports/report_screen.h"

class QLayout;

namespace kelvora {

/// The frame of a report about one species in one year: the list of the species, and a search that needs both.
class SpeciesReportScreen : public ReportScreen {
    Q_OBJECT

protected:
    /// The species come in the columns fishno and sp.
    SpeciesReportScreen(const QString& caption, const Context& context, const Sql& years, const Sql& species);

    /// Shows the report of a species, given by its number, in a year.
    virtual void showReport(int year, int fishno) = 0;
    /// The species as the list shows it.
    [[nodiscard]] QString speciesText() const;

    /// The first row of a report: year, species, search and export.
    QLayout* choiceRow();

    void search() override;
    void refillChoices() override;
    [[nodiscard]] QString listed() const override;

private:
    Sql m_speciesOffered;
    BoundList* m_species;
    QPushButton* m_search;
};

}  // namespace kelvora
