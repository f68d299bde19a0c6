#pragma once

#include "data/result_set.h"
#include "reports/catch_summary.h"
#include "reports/report_screen.h"

class QButtonGroup;
class QGroupBox;
class QLabel;
class QLayout;

namespace kelvora {

class Grid;
class ReportChart;
class SearchButton;
class ValueLabel;

/// The fishing operations of a year: how many, their estimated catch, and both by one of seven groupings.
class CatchSummaryScreen : public ReportScreen {
    Q_OBJECT

public:
    explicit CatchSummaryScreen(const Context& context);

protected:
    void search() override;
    QStringList exported(int year) override;
    [[nodiscard]] QString listed() const override;

private:
    QLayout* yearRow();
    QLayout* headingRow();
    void addOptions();

    void chooseGrouping(int option);
    void showGrouping(int option, int year, ResultSet groups);
    void showGroups(const CatchGrouping& grouping, ResultSet groups);
    void showNoData();
    void draw(int year);

    SearchButton* m_search;
    ValueLabel* m_recordsLabel;
    ValueLabel* m_totalLabel;
    QGroupBox* m_optionFrame;
    QButtonGroup* m_options;
    ValueLabel* m_word;
    QLabel* m_kept;  ///< says so when a grouping has no row and left rows and picture as they were
    Grid* m_grid;
    ReportChart* m_chart;
    ResultSet m_groups;  ///< what the grid shows
    QString m_total;     ///< of the year that was searched for, in kg as it is shown
    int m_chosen = 0;    ///< the grouping whose option is selected
};

}  // namespace kelvora
