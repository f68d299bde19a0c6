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
ResultSet withoutData(std::size_t rows) {
    return {std::vector<QString>(4), {rows, std::vector<QVariant>(4)}};
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
      m_recordsLabel(figure(this)),
      m_totalLabel(figure(this)),
      m_optionFrame(new QGroupBox(u"Number of Record and estimate Total catch"_s, this)),
      m_options(new QButtonGroup(this)),
      m_word(figure(this)),
      m_kept(new QLabel(this)),
      m_grid(new Grid(u"Result"_s, this)),
      m_chart(new ReportChart(context, this)),
      m_groups(withoutData(0)) {
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
    m_grid->show(std::make_unique<ResultModel>(m_groups), columnsOf(groupingAt(0)));
}

QLayout* CatchSummaryScreen::yearRow() {
    auto* row = new QGridLayout;
    row->setHorizontalSpacing(8);
    addField(row, 0, 0, u"Year"_s, yearList());
    onClick(m_search, [this] { search(); });
    row->addWidget(m_search, 0, 2);
    row->setColumnMinimumWidth(3, 24);
    addField(row, 0, 4, u"Total Record"_s, m_recordsLabel);
    row->setColumnMinimumWidth(6, 24);
    addField(row, 0, 7, u"Total catch of this year (kg.)"_s, m_totalLabel);
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

void CatchSummaryScreen::search() {
    const std::optional<int> chosen = year();
    if (!chosen) {
        return;
    }
    const ResultSet totals = catchTotals(connection(), *chosen);
    if (totals.integer(0, u"totalc").value_or(0) == 0) {
        dialogs().message(u"RESULT"_s, u"No data in this year!"_s);
        showNoData();
        return;
    }
    const QString total = totals.text(0, u"totals");
    ResultSet byState = catchByGroup(connection(), groupingAt(0), *chosen, leadingNumber(total));
    m_total = total;
    m_totalLabel->setText(total);
    m_recordsLabel->setText(totals.text(0, u"totalc"));
    m_optionFrame->setEnabled(true);
    exportButton()->setEnabled(true);
    showGrouping(0, *chosen, std::move(byState));
    m_options->button(m_chosen)->setChecked(true);
}

/// Shows a grouping of the year in the list; its shares refer to the total that is shown, also when that is still the
/// total of another year. Without a year, or when the figures cannot be read, the option before it stays selected.
void CatchSummaryScreen::chooseGrouping(int option) {
    guard([this, option] {
        const std::optional<int> chosen = neededYear();
        if (!chosen) {
            return;
        }
        showGrouping(option, *chosen, catchByGroup(connection(), groupingAt(option), *chosen, leadingNumber(m_total)));
    });
    m_options->button(m_chosen)->setChecked(true);
}

/// One without a row leaves rows and picture of the grouping before, and says so.
void CatchSummaryScreen::showGrouping(int option, int year, ResultSet groups) {
    const bool any = !groups.isEmpty();
    m_chosen = option;
    showGroups(groupingAt(option), std::move(groups));
    if (any) {
        showsListed();
        draw(year);
    } else {
        m_kept->setText(u"no group in %1"_s.arg(year));
        compareRows();
    }
}

/// Shows the rows of a grouping under its captions. A grouping without a row leaves the rows as they are.
void CatchSummaryScreen::showGroups(const CatchGrouping& grouping, ResultSet groups) {
    if (!groups.isEmpty()) {
        m_groups = std::move(groups);
    }
    m_grid->show(std::make_unique<ResultModel>(m_groups), columnsOf(grouping));
    m_word->setText(grouping.word);
    m_kept->clear();
}

void CatchSummaryScreen::showNoData() {
    m_recordsLabel->clear();
    m_total.clear();
    m_totalLabel->clear();
    exportButton()->setEnabled(false);
    showGroups(groupingAt(0), withoutData(1));
    m_word->clear();
    showsListed(false);
    m_chart->draw({});
}

void CatchSummaryScreen::draw(int year) {
    constexpr int catchColumn = 2;
    ReportPicture picture = barsOf(*m_grid->model(), catchColumn);
    if (picture.groups.size() > kMostBars) {
        picture = largestFirst(std::move(picture));
    }
    const CatchGrouping& grouping = groupingAt(m_chosen);
    m_chart->draw(titled(std::move(picture), u"Estimated catch %1 by %2"_s.arg(year).arg(grouping.word),
                         grouping.header, u"Estimated catch (kg)"_s));
}

QString CatchSummaryScreen::listed() const {
    return u"%1 by %2"_s.arg(yearList()->text(), groupingAt(m_chosen).word);
}

QStringList CatchSummaryScreen::exported(int year) {
    return catchSummaryCsv(connection(), groupingAt(m_chosen), year, m_total, QDate::currentDate());
}

}  // namespace kelvora
