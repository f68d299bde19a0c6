#include "reports/species_composition_report_screen.h"

#include "controls/bound_list.h"
#include "controls/captioned_grid.h"
#include "controls/dialogs.h"
#include "controls/fields.h"
#include "controls/screen.h"
#include "data/numbers.h"
#include "reports/csv_export.h"
#include "reports/report_chart.h"
#include "reports/species_composition_report.h"

#include <QButtonGroup>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QSplitter>

using namespace Qt::StringLiterals;

namespace kelvora {
namespace {

GridColumns columns() {
    return {{u"Species"_s, 200, Qt::AlignLeft},
            {u"Composition(Kg.)"_s, 133, Qt::AlignRight},
            {u"%Composition"_s, 133, Qt::AlignRight}};
}

const CompositionSubset& subsetAt(int option) {
    return compositionSubsets().at(static_cast<std::size_t>(option));
}

}  // namespace

SpeciesCompositionReportScreen::SpeciesCompositionReportScreen(const Context& context)
    : ReportScreen(u"Species Composition Report"_s, context, compositionYears()),
      m_search(new QPushButton(u"&Search"_s, this)),
      m_totalLabel(new ValueLabel(this)),
      m_optionFrame(new QGroupBox(u"Species composition of"_s, this)),
      m_options(new QButtonGroup(this)),
      m_message(new QLabel(this)),
      m_grid(new Grid(u"Result"_s, this)),
      m_chart(new ReportChart(context, this)) {
    addOptions();
    auto* layout = new QVBoxLayout(this);
    layout->setSpacing(12);
    layout->addLayout(yearRow());
    layout->addWidget(m_optionFrame);
    layout->addLayout(messageRow());
    layout->addWidget(besideTable(m_grid, m_chart), 1);
    QWidgetList fields{yearList(), m_search};
    for (int option = 0; option < static_cast<int>(m_choices.size()); ++option) {
        fields << m_options->button(option) << m_choices[static_cast<std::size_t>(option)];
    }
    setReadingOrder(fields << exportButton() << m_grid << m_chart);
    showNoSpecies();
}

QLayout* SpeciesCompositionReportScreen::yearRow() {
    auto* row = new QGridLayout;
    row->setHorizontalSpacing(8);
    addField(row, 0, 0, u"Year"_s, yearList());
    onClick(m_search, [this] { search(); });
    row->addWidget(m_search, 0, 2);
    row->setColumnMinimumWidth(3, 24);
    QFont bold = m_totalLabel->font();
    bold.setBold(true);
    m_totalLabel->setFont(bold);
    addField(row, 0, 4, u"Total catch of this year(kg.)"_s, m_totalLabel);
    row->setColumnStretch(5, 1);
    return row;
}

void SpeciesCompositionReportScreen::addOptions() {
    constexpr int perRow = 4;
    auto* form = new QGridLayout(m_optionFrame);
    form->setHorizontalSpacing(8);
    for (const CompositionSubset& subset : compositionSubsets()) {
        const int option = static_cast<int>(m_choices.size());
        auto* button = new QRadioButton(subset.option, m_optionFrame);
        button->setEnabled(false);
        m_options->addButton(button, option);
        auto* choices = new BoundList(m_optionFrame);
        choices->setMinimumContentsLength(3);
        nameList(choices, subset.option);
        choices->setEnabled(false);
        m_choices.push_back(choices);
        const int column = option % perRow * 3;
        form->addWidget(button, option / perRow, column);
        form->addWidget(choices, option / perRow, column + 1);
        form->setColumnStretch(column + 1, 1);
        if (column > 0) {
            form->setColumnMinimumWidth(column - 1, 8);
        }
        watch(choices);
        connect(choices, &BoundList::chosen, this, guarded(dialogs(), [this, option] { showComposition(option); }));
    }
    connect(m_options, &QButtonGroup::idClicked, this, &SpeciesCompositionReportScreen::chooseOption);
}

QLayout* SpeciesCompositionReportScreen::messageRow() {
    auto* row = new QHBoxLayout;
    m_message->setTextFormat(Qt::PlainText);
    row->addWidget(m_message);
    row->addSpacing(16);
    row->addWidget(rowsLine(), 1);
    row->addWidget(exportButton());
    return row;
}

/// The rows of an earlier choice stay until another one is made.
void SpeciesCompositionReportScreen::search() {
    const std::optional<int> chosen = year();
    if (!chosen) {
        return;
    }
    if (!hasComposition(connection(), *chosen)) {
        showNoData(*chosen);
        return;
    }
    m_total = compositionTotal(connection(), *chosen);
    m_totalLabel->setText(m_total);
    m_message->setText(u"click option button to see data"_s);
    for (QAbstractButton* option : m_options->buttons()) {
        option->setEnabled(true);
    }
}

void SpeciesCompositionReportScreen::showNoData(int year) {
    m_total.clear();
    m_totalLabel->clear();
    m_message->setText(u"No data in %1"_s.arg(year));
    selectOption(m_selected = -1);
    for (QAbstractButton* option : m_options->buttons()) {
        option->setEnabled(false);
    }
    clearChoices();
    for (BoundList* choices : m_choices) {
        choices->setEnabled(false);
    }
}

/// Offers what an option can be in the year of the list. Without a year, or when the choices cannot be read, the option
/// before it stays selected.
void SpeciesCompositionReportScreen::chooseOption(int option) {
    guard([this, option] {
        const std::optional<int> chosen = year();
        if (!chosen) {
            return;
        }
        auto found = connection().model(compositionChoices(subsetAt(option), *chosen));
        clearChoices();
        BoundList* choices = m_choices[static_cast<std::size_t>(option)];
        choices->setEnabled(found->rowCount() > 0);
        if (found->rowCount() > 0) {
            choices->setSource(std::move(found), u"name"_s, u"key"_s);
        } else {
            choices->setText(u"No data"_s);
        }
        m_selected = option;
        m_offered = *chosen;
    });
    selectOption(m_selected);
}

void SpeciesCompositionReportScreen::selectOption(int option) {
    m_options->setExclusive(false);
    for (QAbstractButton* button : m_options->buttons()) {
        button->setChecked(m_options->id(button) == option);
    }
    m_options->setExclusive(true);
}

/// Empties the choice lists, and the grid with them: its rows belong to a choice.
void SpeciesCompositionReportScreen::clearChoices() {
    for (BoundList* choices : m_choices) {
        choices->clearSource();
    }
    showNoSpecies();
    exportButton()->setEnabled(false);
}

/// Shows the species of what was chosen for an option. The shares refer to the total that is shown, also when that is
/// still the total of another year.
void SpeciesCompositionReportScreen::showComposition(int option) {
    const QVariant choice = m_choices[static_cast<std::size_t>(option)]->key();
    const std::optional<int> chosen = year();
    if (!choice.isValid() || !chosen) {
        return;
    }
    ResultSet found = compositionOf(connection(), subsetAt(option), *chosen, choice, leadingNumber(m_total));
    exportButton()->setEnabled(!found.isEmpty());
    if (found.isEmpty()) {
        showNoSpecies();
        dialogs().message(u"No data"_s);
        return;
    }
    m_grid->show(std::make_unique<ResultModel>(std::move(found)), columns());
    m_chart->draw(titled(largestFirst(barsOf(*m_grid->model(), 1)),
                         u"Species composition %1, %2"_s.arg(*chosen).arg(selection()), u"Species"_s,
                         u"Estimated catch (kg)"_s));
    showsListed();
}

void SpeciesCompositionReportScreen::showNoSpecies() {
    m_grid->showBlank(columns());
    m_chart->draw({});
    showsListed(false);
}

/// The selected option and what was chosen for it; empty when none is selected.
QString SpeciesCompositionReportScreen::selection() const {
    if (m_selected < 0) {
        return {};
    }
    return subsetAt(m_selected).option + u':' + m_choices[static_cast<std::size_t>(m_selected)]->text();
}

/// An option without choices stays so until it is pressed again.
void SpeciesCompositionReportScreen::refillChoices() {
    BoundList* choices = m_selected < 0 ? nullptr : m_choices[static_cast<std::size_t>(m_selected)];
    if (choices != nullptr && choices->isEnabled()) {
        choices->refill(connection().model(compositionChoices(subsetAt(m_selected), m_offered)), u"name"_s, u"key"_s);
    }
}

QString SpeciesCompositionReportScreen::listed() const {
    return u"%1, %2"_s.arg(yearList()->text(), selection());
}

QStringList SpeciesCompositionReportScreen::exported(int year) {
    QStringList titles{u"Species composition data In %1"_s.arg(year), exportDateLine(QDate::currentDate())};
    if (m_selected >= 0) {
        titles << selection();
    }
    return titles + csvTable(*m_grid->model());
}

}  // namespace kelvora
