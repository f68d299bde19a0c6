#pragma once

#include "controls/captioned_grid.h"
#include "data/result_set.h"
#include "reports/report_picture.h"
#include "reports/report_screen.h"

class QTabWidget;

namespace kelvora {

class ReportChart;

/// A table of a report about one species.
struct SpeciesTable {
    QString caption;
    GridColumns columns;  ///< the first ones; one without a caption has that of what was found
    GridColumn further;   ///< width and alignment of all behind them
    GridColumns blank;    ///< without data
    QString picture;      ///< what its picture is called, in front of year and species
};

/// A report about one species in one year.
struct SpeciesReport {
    QString caption;
    QString exported;  ///< title of the export, in front of the year
    Sql years;
    std::vector<SpeciesTable> tables;  ///< the first is the one that is exported
    std::vector<ResultSet> (*find)(Connection& connection, int year, int fishno);
    ReportPicture (*draw)(const QAbstractItemModel& table);
    QString groupTitle;  ///< caption of the groups of the pictures
};

/// Its screen: the lists of years and species, a search that needs both, the table or tables with their picture.
class SpeciesReportScreen : public ReportScreen {
    Q_OBJECT

protected:
    SpeciesReportScreen(SpeciesReport report, const Context& context);

    void search() override;
    QStringList exported(int year) override;
    void refillChoices() override;
    [[nodiscard]] QString listed() const override;

private:
    QLayout* choiceRow();
    QWidget* tables();
    void drawFront();

    SpeciesReport m_report;
    BoundList* m_species;
    QPushButton* m_search;
    std::vector<Grid*> m_grids;
    QTabWidget* m_tabs = nullptr;  ///< of several tables
    ReportChart* m_chart = nullptr;
    QString m_drawn;  ///< year and species of the tables
};

/// How many fish of each length class were measured in each month of a year.
class LengthFrequencyReportScreen : public SpeciesReportScreen {
    Q_OBJECT

public:
    explicit LengthFrequencyReportScreen(const Context& context);
};

/// The sexes of a species in each month of a year, and the maturity stages of the females, the males and the fish whose
/// sex was not identified.
class GonadMaturityReportScreen : public SpeciesReportScreen {
    Q_OBJECT

public:
    explicit GonadMaturityReportScreen(const Context& context);
};

}  // namespace kelvora
