#pragma once

#include "reports/report_screen.h"

#include <vector>

class QButtonGroup;
class QGroupBox;
class QLabel;
class QLayout;

namespace kelvora {

class Grid;
class ReportChart;
class ValueLabel;

/// The estimated catch of every species in a part of a year's operations, and its share of the year's catch.
class SpeciesCompositionReportScreen : public ReportScreen {
    Q_OBJECT

public:
    explicit SpeciesCompositionReportScreen(const Context& context);

protected:
    void search() override;
    QStringList exported(int year) override;
    void refillChoices() override;
    [[nodiscard]] QString listed() const override;

private:
    QLayout* yearRow();
    QLayout* messageRow();
    void addOptions();

    void showNoData(int year);
    void chooseOption(int option);
    void selectOption(int option);
    void clearChoices();
    void showComposition(int option);
    void showNoSpecies();
    [[nodiscard]] QString selection() const;

    QPushButton* m_search;
    ValueLabel* m_totalLabel;
    QGroupBox* m_optionFrame;
    QButtonGroup* m_options;
    std::vector<BoundList*> m_choices;  ///< the choice list of each option
    QLabel* m_message;
    Grid* m_grid;
    ReportChart* m_chart;
    QString m_total;      ///< of the year that was searched for, in kg as it is shown
    int m_selected = -1;  ///< the selected option; -1 if there is none
    int m_offered = 0;    ///< the year of its choices
};

}  // namespace kelvora
