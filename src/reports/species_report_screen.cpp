#include "reports/species_report_screen.h"

#include "controls/bound_list.h"
#include "controls/dialogs.h"
#include "controls/fields.h"
#include "records/species.h"
#include "reports/csv_export.h"
#include "reports/gonad_maturity_report.h"
#include "reports/length_frequency_report.h"
#include "reports/report_chart.h"

#include <QGridLayout>
#include <QPushButton>
#include <QSplitter>
#include <QTabWidget>

using namespace Qt::StringLiterals;

namespace kelvora {
namespace {

SpeciesReport lengthReport() {
    const GridColumn number{QString(), 80, Qt::AlignRight};
    const GridColumns classes{
        {u"Lower"_s, 80, Qt::AlignRight}, {u"Upper"_s, 80, Qt::AlignRight}, {u"Mid Length"_s, 80, Qt::AlignRight}};
    return {.caption = u"Length Frequency Report"_s,
            .exported = u"Length Frequency data In "_s,
            .years = lengthYears(),
            .tables = {{u"Result"_s, classes, number, classes, u"Length frequency "_s}},
            .find = [](Connection& connection, int year,
                       int fishno) { return std::vector{lengthsByMonth(connection, year, fishno)}; },
            .draw = histogramOf,
            .groupTitle = u"Lower limit of the length class (cm)"_s};
}

SpeciesReport gonadReport() {
    const auto table = [](const QString& caption, const QString& first, int width, std::size_t blank,
                          const QString& picture) {
        return SpeciesTable{caption,
                            {{first, 133, Qt::AlignHCenter}, {QString(), 90, Qt::AlignHCenter}},
                            {QString(), width, Qt::AlignHCenter},
                            GridColumns(blank),
                            picture};
    };
    const QString stages = u"Month/Stage"_s;
    return {.caption = u"Gonad Matuarity Report"_s,
            .exported = u"Gonad Maturity data In "_s,
            .years = gonadYears(),
            .tables = {table(u"Month by sex"_s, u"Month/SEX"_s, 66, 4, u"Sexes "_s),
                       table(u"FEMALE"_s, stages, 80, 2, u"Maturity stages of females "_s),
                       table(u"MALE"_s, stages, 80, 2, u"Maturity stages of males "_s),
                       table(u"NONE IDENTIFY"_s, stages, 80, 2, u"Maturity stages of fish of unidentified sex "_s)},
            .find = gonadTables,
            .draw = monthsOf,
            .groupTitle = u"Month"_s};
}

void fill(Grid* grid, const SpeciesTable& table, ResultSet found) {
    if (found.isEmpty()) {
        grid->showBlank(table.blank);
        return;
    }
    GridColumns columns = table.columns;
    columns.resize(found.columns.size(), table.further);
    for (std::size_t i = 0; i < columns.size(); ++i) {
        columns[i].caption = columns[i].caption.isEmpty() ? found.columns[i] : columns[i].caption;
    }
    grid->show(std::make_unique<ResultModel>(std::move(found)), std::move(columns));
}

}  // namespace

SpeciesReportScreen::SpeciesReportScreen(SpeciesReport report, const Context& context)
    : ReportScreen(report.caption, context, report.years),
      m_report(std::move(report)),
      m_species(new BoundList(this)),
      m_search(new QPushButton(u"&Search"_s, this)) {
    auto* layout = new QVBoxLayout(this);
    layout->setSpacing(12);
    layout->addLayout(choiceRow());
    QWidget* beside = tables();
    m_chart = new ReportChart(context, this);
    layout->addWidget(besideTable(beside, m_chart), 1);
}

QLayout* SpeciesReportScreen::choiceRow() {
    m_species->setMinimumContentsLength(32);
    m_species->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    m_species->setSource(connection().model(catalogueSpecies()), u"sp"_s, u"fishno"_s);
    searchOnEnterIn(m_species);
    watch(m_species);
    onClick(m_search, [this] { search(); });
    // What a report puts below comes behind.
    setReadingOrder({yearList(), m_species, m_search, exportButton()});

    auto* row = new QGridLayout;
    row->setHorizontalSpacing(8);
    addField(row, 0, 0, u"Year"_s, yearList());
    row->setColumnMinimumWidth(2, 16);
    addField(row, 0, 3, u"Species"_s, m_species);
    row->addWidget(m_search, 0, 5);
    row->setColumnStretch(6, 1);
    row->addWidget(rowsLine(), 1, 0, 1, 8);
    row->addWidget(exportButton(), 0, 7);
    return row;
}

/// The table; several in tabs.
QWidget* SpeciesReportScreen::tables() {
    m_tabs = m_report.tables.size() > 1 ? new QTabWidget(this) : nullptr;
    for (const SpeciesTable& table : m_report.tables) {
        m_grids.push_back(new Grid(table.caption, this));
        fill(m_grids.back(), table, {});
        if (m_tabs != nullptr) {
            m_tabs->addTab(m_grids.back(), table.caption);
        }
    }
    if (m_tabs == nullptr) {
        return m_grids.front();
    }
    connect(m_tabs, &QTabWidget::currentChanged, this, &SpeciesReportScreen::drawFront);
    return m_tabs;
}

void SpeciesReportScreen::refillChoices() {
    m_species->refill(connection().model(catalogueSpecies()), u"sp"_s, u"fishno"_s);
}

QString SpeciesReportScreen::listed() const {
    return u"%1, %2"_s.arg(yearList()->text(), m_species->text());
}

/// A year or a species that the lists do not offer is none.
void SpeciesReportScreen::search() {
    const std::optional<int> chosen = year();
    const QVariant fishno = m_species->key();
    if (!chosen || !fishno.isValid()) {
        return;
    }
    std::vector<ResultSet> found = m_report.find(connection(), *chosen, fishno.toInt());
    const bool any = !found.front().isEmpty();
    exportButton()->setEnabled(any);
    for (std::size_t i = 0; i < found.size(); ++i) {
        fill(m_grids[i], m_report.tables[i], std::move(found[i]));
    }
    m_drawn = listed();
    drawFront();
    showsListed(any);
    if (!any) {
        dialogs().message(u"RESULT"_s, u"No data in this year"_s);
    }
}

/// Draws the table in front.
void SpeciesReportScreen::drawFront() {
    const auto front = static_cast<std::size_t>(m_tabs == nullptr ? 0 : m_tabs->currentIndex());
    m_chart->draw(titled(m_report.draw(*m_grids[front]->model()), m_report.tables[front].picture + m_drawn,
                         m_report.groupTitle, u"Number of fish"_s));
}

QStringList SpeciesReportScreen::exported(int year) {
    return QStringList{m_report.exported + QString::number(year), u"Species "_s + m_species->text(),
                       exportDateLine(QDate::currentDate())} +
           csvTable(*m_grids.front()->model());
}

LengthFrequencyReportScreen::LengthFrequencyReportScreen(const Context& context)
    : SpeciesReportScreen(lengthReport(), context) {}

GonadMaturityReportScreen::GonadMaturityReportScreen(const Context& context)
    : SpeciesReportScreen(gonadReport(), context) {}

}  // namespace kelvora
