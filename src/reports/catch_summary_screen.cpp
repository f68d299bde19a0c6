#include "reports/catch_summary_screen.h"

#include "controls/bound_list.h"
#include "controls/captioned_grid.h"
#include "controls/dialogs.h"
#include "controls/fields.h"
#include "data/numbers.h"
#include "reports/report_chart.h"

#include <QButtonGroup>
#include <QGridLayout>
#include <QGroupBox>
#include <QPushButton>
#include <QRadioButton>
#include <QSplitter>

using namespace Qt::StringLiterals;

namespace kelvora {
namespace {

GridColumns columnsOf(const CatchGrouping& grouping) {
    return {{grouping.header, 200, Qt::AlignLeft},
            {u"Number(Record)"_s, 133, Qt::AlignHCenter},
            {grouping.catchHeader, 133, Qt::AlignHCenter},
            {u"%total catch"_s, 133, Qt::AlignHCenter}};
}

/// A grid without data: the four columns, and a blank row if asked for.
ResultSet withoutData(int rows) {
    ResultSet empty;
    empty.columns.resize(4);
    empty.rows.resize(static_cast<std::size_t>(rows), std::vector<QVariant>(4));
    return empty;
}

const CatchGrouping& groupingAt(int option) {
    return catchGroupings().at(static_cast<std::size_t>(option));
}

/// A value that is read at a glance, as wide as figures and groupings are.
ValueLabel* figure(QWidget* parent) {
    auto* label = new ValueLabel(parent);
    QFont bold = label->font();
    bold.setBold(true);
    label->setFont(bold);
    label->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    return label;
}

}  // namespace

CatchSummaryScreen::CatchSummaryScreen(const Context& context)
    : ReportScreen(u"Number of record and estimate total catch"_s, context, catchYears()),
      m_search(new SearchButton(this)),
      m_records(figure(this)),
      m_total(figure(this)),
      m_optionFrame(new QGroupBox(u"Number of Record and estimate Total catch"_s, this)),
      m_options(new QButtonGroup(this)),
      m_word(figure(this)),
      m_kept(new QLabel(this)),
      m_grid(new Grid(u"Result"_s, this)),
      m_chart(new ReportChart(context, this)) {
    addOptions();
    auto* layout = new QVBoxLayout(this);
    layout->setSpacing(12);
    layout->addLayout(yearRow());
    layout->addWidget(m_optionFrame);
    layout->addLayout(headingRow());
    layout->addWidget(besideTable(m_grid, m_chart), 1);
    QWidgetList fields{yearList(), m_search};
    for (QAbstractButton* option : m_options->buttons()) {
        fields.append(option);
    }
    setReadingOrder(fields << exportButton() << m_grid << m_chart);
    showGroups(groupingAt(0), withoutData(0));
    m_word->clear();
}

QLayout* CatchSummaryScreen::yearRow() {
    auto* row = new QGridLayout;
    row->setHorizontalSpacing(8);
    addField(row, 0, 0, u"Year"_s, yearList());
    searchOn(m_search);
    row->addWidget(m_search, 0, 2);
    row->setColumnMinimumWidth(3, 24);
    addField(row, 0, 4, u"Total Record"_s, m_records);
    row->setColumnMinimumWidth(6, 24);
    addField(row, 0, 7, u"Total catch of this year (kg.)"_s, m_total);
    row->setColumnStretch(9, 1);
    return row;
}

void CatchSummaryScreen::addOptions() {
    auto* row = new QHBoxLayout(m_optionFrame);
    row->setSpacing(18);
    for (const CatchGrouping& grouping : catchGroupings()) {
        auto* option = new QRadioButton(grouping.option, m_optionFrame);
        m_options->addButton(option, static_cast<int>(m_options->buttons().size()));
        row->addWidget(option);
    }
    row->addStretch(1);
    m_optionFrame->setEnabled(false);
    connect(m_options, &QButtonGroup::idClicked, this, &CatchSummaryScreen::chooseGrouping);
}

QLayout* CatchSummaryScreen::headingRow() {
    auto* row = new QGridLayout;
    row->setHorizontalSpacing(8);
    addField(row, 0, 0, u"Number of Record and estimate Total catch by"_s, m_word);
    row->addWidget(m_kept, 0, 2);
    row->addWidget(rowsLine(), 0, 3);
    row->setColumnStretch(4, 1);
    row->addWidget(exportButton(), 0, 5);
    return row;
}

double CatchSummaryScreen::shownTotal() const {
    return leadingNumber(m_total->text());
}

void CatchSummaryScreen::search() {
    const std::optional<int> chosen = year();
    if (!chosen) {
        return;
    }
    const ResultSet totals = catchTotals(db(), *chosen);
    if (totals.integer(0, u"totalc").value_or(0) == 0) {
        dialogs().message(u"RESULT"_s, u"No data in this year!"_s);
        showNoData();
        return;
    }
    const QString total = totals.text(0, u"totals");
    ResultSet byState = catchByGroup(db(), groupingAt(0), *chosen, leadingNumber(total));
    m_records->setText(totals.text(0, u"totalc"));
    m_total->setText(total);
    m_optionFrame->setEnabled(true);
    exportButton()->setEnabled(true);
    m_chosen = 0;
    m_options->button(m_chosen)->setChecked(true);
    showGroups(groupingAt(m_chosen), std::move(byState));
    showsListed();
    draw(*chosen);
}

/// Shows a grouping of the year in the list; its shares refer to the total that is shown, also when that is still the
/// total of another year. Without a year, or when the figures cannot be read, the option before it stays selected.
void CatchSummaryScreen::chooseGrouping(int option) {
    guard([this, option] {
        if (const std::optional<int> chosen = neededYear()) {
            ResultSet groups = catchByGroup(db(), groupingAt(option), *chosen, shownTotal());
            const bool none = groups.isEmpty();
            showGroups(groupingAt(option), std::move(groups));
            m_chosen = option;
            if (none) {
                m_kept->setText(u"no group in %1"_s.arg(*chosen));
                compareRows();
            } else {
                showsListed();
                draw(*chosen);
            }
        }
    });
    m_options->button(m_chosen)->setChecked(true);
}

/// Shows the rows of a grouping under its captions. A grouping without a row leaves the rows as they are.
void CatchSummaryScreen::showGroups(const CatchGrouping& grouping, ResultSet groups) {
    if (!groups.isEmpty() || m_groups == nullptr) {
        auto model = std::make_unique<ResultModel>(std::move(groups));
        m_grid->show(model.get(), columnsOf(grouping));
        m_groups = std::move(model);
    } else {
        m_grid->show(m_groups.get(), columnsOf(grouping));
    }
    m_word->setText(grouping.word);
    m_kept->clear();
}

void CatchSummaryScreen::showNoData() {
    m_records->clear();
    m_total->clear();
    exportButton()->setEnabled(false);
    showGroups(groupingAt(0), withoutData(1));
    m_word->clear();
    showsNothing();
    m_chart->draw({});
}

void CatchSummaryScreen::draw(int year) {
    constexpr int catchColumn = 2;
    ReportPicture picture = barsOf(*m_grid->model(), catchColumn);
    if (picture.groups.size() > kMostBars) {
        picture = largestFirst(std::move(picture));
    }
    picture.title = u"Estimated catch %1 by %2"_s.arg(year).arg(m_word->text());
    picture.groupTitle = groupingAt(m_chosen).header;
    picture.valueTitle = u"Estimated catch (kg)"_s;
    m_chart->draw(std::move(picture));
}

QString CatchSummaryScreen::listed() const {
    return u"%1 by %2"_s.arg(yearList()->text(), m_word->text());
}

CsvText CatchSummaryScreen::exported(int year) {
    return catchSummaryCsv(db(), groupingAt(m_chosen), year, m_total->text(), QDate::currentDate());
}

}  // namespace kelvora
