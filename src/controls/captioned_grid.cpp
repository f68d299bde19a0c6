#include "controls/captioned_grid.h"

#include "controls/record_navigator.h"
#include "controls/text_table.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QHelpEvent>
#include <QIdentityProxyModel>
#include <QKeyEvent>
#include <QPushButton>
#include <QRegularExpression>
#include <QToolTip>

#include <algorithm>
#include <numeric>

using namespace Qt::StringLiterals;

namespace kelvora {

/// A source under the captions and alignments of the grid.
class Grid::Presented : public QIdentityProxyModel {
public:
    explicit Presented(const GridColumns& columns) : m_columns(columns) {}

    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override {
        if (orientation != Qt::Horizontal || section >= static_cast<int>(m_columns.size())) {
            return QIdentityProxyModel::headerData(section, orientation, role);
        }
        const GridColumn& column = m_columns[static_cast<std::size_t>(section)];
        if (role == Qt::TextAlignmentRole) {
            return QVariant::fromValue(column.alignment | Qt::AlignVCenter);
        }
        return role == Qt::DisplayRole ? QVariant(column.caption.trimmed()) : QVariant();
    }

    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override {
        if (role == Qt::TextAlignmentRole && index.column() < static_cast<int>(m_columns.size())) {
            return QVariant::fromValue(m_columns[static_cast<std::size_t>(index.column())].alignment |
                                       Qt::AlignVCenter);
        }
        return QIdentityProxyModel::data(index, role);
    }

private:
    const GridColumns& m_columns;
};

Grid::Grid(const QString& name, QWidget* parent)
    : QTableView(parent), m_presented(std::make_unique<Presented>(m_columns)) {
    setAccessibleName(name);
    setModel(m_presented.get());
    setSelectionBehavior(QAbstractItemView::SelectRows);
    setSelectionMode(QAbstractItemView::ExtendedSelection);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setTabKeyNavigation(false);
    setAlternatingRowColors(true);
    setShowGrid(false);
    setWordWrap(false);
    setCornerButtonEnabled(false);
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 8);
    horizontalHeader()->setHighlightSections(false);
    horizontalHeader()->setMinimumSectionSize(fontMetrics().averageCharWidth() * 4);
    setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    // The selection model is the presented model's: it outlives every source.
    connect(selectionModel(), &QItemSelectionModel::currentRowChanged, this, [this](const QModelIndex& current) {
        if (current.isValid()) {
            Q_EMIT rowChosen(current.row());
        }
    });
}

Grid::~Grid() {
    setModel(nullptr);
}

void Grid::show(std::unique_ptr<QAbstractItemModel> source, GridColumns columns) {
    show(source.get(), std::move(columns));
    m_source = std::move(source);
}

void Grid::show(QAbstractItemModel* source, GridColumns columns) {
    m_columns = std::move(columns);
    m_presented->setSourceModel(source);
    m_source.reset();
    const auto widest = std::ranges::max_element(m_columns, {}, &GridColumn::width);
    const bool unequal = !m_columns.empty() && std::ranges::count(m_columns, widest->width, &GridColumn::width) == 1;
    m_names = unequal ? static_cast<int>(widest - m_columns.begin()) : -1;
    for (int i = 0; i < static_cast<int>(m_columns.size()); ++i) {
        setColumnHidden(i, m_columns[static_cast<std::size_t>(i)].hidden);
    }
    fitColumns();
}

void Grid::showBlank(GridColumns columns) {
    auto blank = std::make_unique<TextTable>(static_cast<int>(columns.size()));
    blank->appendRow({});
    show(std::move(blank), std::move(columns));
}

int Grid::rowCount() const {
    return m_presented->rowCount();
}

QString Grid::text(int row, int column) const {
    return m_presented->index(row, column).data().toString();
}

QStringList Grid::headers() const {
    QStringList texts;
    for (int i = 0; i < m_presented->columnCount(); ++i) {
        texts.append(m_presented->headerData(i, Qt::Horizontal, Qt::DisplayRole).toString());
    }
    return texts;
}

int Grid::currentRow() const {
    return currentIndex().row();
}

void Grid::bringIntoView(int column, const QString& text) {
    const auto found = m_presented->match(m_presented->index(0, column), Qt::DisplayRole, text, -1, Qt::MatchExactly);
    if (!found.isEmpty()) {
        scrollTo(found.last());
    }
}

void Grid::setCurrentRow(int row) {
    if (row != currentRow()) {
        selectRow(row);
    }
}

QSize Grid::sizeHint() const {
    constexpr int rows = 5;
    return {240, horizontalHeader()->sizeHint().height() + rows * verticalHeader()->defaultSectionSize() + 4};
}

void Grid::keyPressEvent(QKeyEvent* event) {
    if (event->matches(QKeySequence::Copy)) {
        copySelection();
        return;
    }
    QTableView::keyPressEvent(event);
}

void Grid::resizeEvent(QResizeEvent* event) {
    QTableView::resizeEvent(event);
    fitColumns();
}

/// A text that is cut off in the picture is read whole under the mouse.
bool Grid::viewportEvent(QEvent* event) {
    if (event->type() == QEvent::ToolTip) {
        const auto* help = static_cast<QHelpEvent*>(event);
        const QModelIndex cell = indexAt(help->pos());
        const bool cut = cell.isValid() && sizeHintForIndex(cell).width() > columnWidth(cell.column());
        QToolTip::showText(help->globalPos(), cut ? cell.data().toString() : QString(), this);
        return true;
    }
    return QTableView::viewportEvent(event);
}

void Grid::copySelection() const {
    QModelIndexList rows = selectionModel()->selectedRows();
    std::ranges::sort(rows, {}, &QModelIndex::row);
    static const QRegularExpression lineBreakOrTab(u"[\\t\\r\\n]+"_s);
    QStringList lines;
    for (const QModelIndex& row : rows) {
        QStringList texts;
        for (int column = 0; column < m_presented->columnCount(); ++column) {
            if (!isColumnHidden(column)) {
                // A note of several lines stays one cell in a spreadsheet.
                texts.append(text(row.row(), column).replace(lineBreakOrTab, u" "_s));
            }
        }
        lines.append(texts.join(u'\t'));
    }
    if (!lines.isEmpty()) {
        QGuiApplication::clipboard()->setText(lines.join(u'\n'));
    }
}

/// The widths of the columns for themselves, in pixels; where room is tight numbers are no wider than they have to be.
std::vector<int> Grid::wantedWidths(bool tight) const {
    constexpr int headerMargin = 14;
    std::vector<int> widths;
    for (int i = 0; i < static_cast<int>(m_columns.size()); ++i) {
        const GridColumn& column = m_columns[static_cast<std::size_t>(i)];
        const bool numbers = i != m_names && column.alignment != Qt::AlignLeft;
        const int caption = horizontalHeader()->fontMetrics().horizontalAdvance(column.caption) + headerMargin;
        const int usual = tight && numbers ? 0 : column.width * logicalDpiX() / 96;
        const int whole = numbers ? sizeHintForColumn(i) : 0;
        widths.push_back(column.hidden ? 0 : std::max({caption, usual, whole}));
    }
    return widths;
}

void Grid::fitColumns() {
    const int room = viewport()->width();
    std::vector<int> widths = wantedWidths(false);
    int total = std::reduce(widths.begin(), widths.end());
    if (total > room && m_names >= 0) {
        std::vector<int> tight = wantedWidths(true);
        int& names = tight[static_cast<std::size_t>(m_names)];
        const int left = room - std::reduce(tight.begin(), tight.end()) + names;
        if (left >= fontMetrics().averageCharWidth() * 8) {
            names = left;
            widths = std::move(tight);
            total = room;
        }
    }
    int used = 0;
    for (std::size_t i = 0; i < widths.size() && total > 0; ++i) {
        const bool grows = room > total;
        int width = grows ? widths[i] * room / total : widths[i];
        if (grows && i + 1 == widths.size()) {
            width = room - used;
        }
        used += width;
        if (widths[i] > 0) {
            setColumnWidth(static_cast<int>(i), width);
        }
    }
}

CaptionedGrid::CaptionedGrid(const QString& caption, QWidget* parent)
    : QGroupBox(caption, parent), m_grid(new Grid(caption, this)), m_footer(new QHBoxLayout) {
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_grid, 1);
    layout->addLayout(m_footer);
}

void CaptionedGrid::setCaption(const QString& caption) {
    // The caption may hold a name: thousands of characters must not widen the screen, and an "&" in it is no mnemonic.
    const int room = fontMetrics().averageCharWidth() * 54;
    setTitle(fontMetrics().elidedText(caption, Qt::ElideMiddle, room).replace(u'&', u"&&"_s));
    m_grid->setAccessibleName(caption);
}

RecordNavigator* CaptionedGrid::addNavigator(const QString& name) {
    auto* navigator = new RecordNavigator(name, this);
    m_footer->addWidget(navigator, 1);
    connect(navigator, &RecordNavigator::arrived, this, [this](int row) {
        if (row >= 0) {
            m_grid->setCurrentRow(row);
        }
    });
    connect(m_grid, &Grid::rowChosen, navigator, &RecordNavigator::moveTo);
    // The row that is marked already is gone to by a click or Enter, where the navigator stands on none.
    for (const auto signal : {&Grid::clicked, &Grid::activated}) {
        connect(m_grid, signal, navigator, [navigator](const QModelIndex& cell) { navigator->moveTo(cell.row()); });
    }
    // What a button under the grid does, it does to the row that the navigator stands on: no other is to look chosen.
    m_grid->setSelectionMode(QAbstractItemView::SingleSelection);
    return navigator;
}

QPushButton* CaptionedGrid::addButton(const QString& caption) {
    auto* button = new QPushButton(caption, this);
    m_footer->addWidget(button);
    return button;
}

}  // namespace kelvora
