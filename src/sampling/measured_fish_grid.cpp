#include "sampling/measured_fish_grid.h"

#include "controls/captioned_grid.h"
#include "controls/dialogs.h"
#include "controls/fields.h"
#include "controls/screen.h"
#include "controls/text_table.h"

#include <QKeyEvent>
#include <QLabel>
#include <QVBoxLayout>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace kelvora {
namespace {

GridColumns measuredColumns() {
    GridColumns columns{{u"No."_s, 33, Qt::AlignRight}};
    for (const FishColumn& column : kFishFields) {
        const bool stage = column.field == &GonadFish::stage;
        const bool text = stage || column.field == &GonadFish::sex;
        columns.push_back(
            {QString::fromLatin1(column.caption), stage ? 46 : 53, text ? Qt::AlignHCenter : Qt::AlignRight});
    }
    return columns;
}

QStringList gridRow(std::size_t number, const GonadFish& fish) {
    QStringList row{QString::number(number)};
    for (const FishColumn& column : kFishFields) {
        row.append(fish.*column.field);
    }
    return row;
}

}  // namespace

MeasuredFishGrid::MeasuredFishGrid(Dialogs& dialogs)
    : m_dialogs(dialogs),
      m_grid(new Grid(u"Measured fish"_s)),
      m_rows(new TextTable(static_cast<int>(measuredColumns().size()), this)),
      m_line(new ValueLabel) {
    m_grid->show(m_rows, measuredColumns());
    m_grid->setSelectionMode(QAbstractItemView::SingleSelection);  // the Delete key takes one fish
    m_grid->installEventFilter(this);
    auto* note = new QLabel(u"* Double Click for delete row"_s);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->addWidget(m_grid, 1);
    layout->addWidget(m_line);
    layout->addWidget(note);
    connect(m_grid, &Grid::doubleClicked, this, [this](const QModelIndex& index) { askAndDelete(index.row()); });
    showFish();
}

void MeasuredFishGrid::setFish(std::vector<GonadFish> fish) {
    m_fish = std::move(fish);
    showFish();
}

void MeasuredFishGrid::append(const GonadFish& fish) {
    m_fish.push_back(fish);
    m_rows->setRow(m_rows->rowCount() - 1, gridRow(m_fish.size(), fish));
    m_rows->appendRow({});
    m_grid->setEnabled(true);
    m_grid->scrollToBottom();
    say();
}

bool MeasuredFishGrid::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::KeyPress && static_cast<QKeyEvent*>(event)->key() == Qt::Key_Delete) {
        askAndDelete(m_grid->currentRow());
        return true;
    }
    return QWidget::eventFilter(watched, event);
}

void MeasuredFishGrid::askAndDelete(int row) {
    const int count = static_cast<int>(m_fish.size());
    if (row < 0 || row >= count) {
        return;
    }
    runGuarded(m_dialogs, [&] {
        if (!m_dialogs.confirm(u"Confirm"_s, u"Are you sure for delete sampling '%1'"_s.arg(row + 1),
                               Dialogs::Question::Deleting)) {
            return;
        }
        m_fish.erase(m_fish.begin() + row);
        m_rows->removeRow(row);
        for (int i = row; i < count - 1; ++i) {
            m_rows->setRow(i, gridRow(static_cast<std::size_t>(i) + 1, m_fish[static_cast<std::size_t>(i)]));
        }
        m_grid->setEnabled(!m_fish.empty());
        if (!m_fish.empty()) {
            m_grid->selectRow(std::min(row, count - 2));
        }
        say();
        Q_EMIT deleted();
    });
}

void MeasuredFishGrid::showFish() {
    std::vector<QStringList> rows;
    rows.reserve(m_fish.size() + 1);
    for (const GonadFish& one : m_fish) {
        rows.push_back(gridRow(rows.size() + 1, one));
    }
    rows.emplace_back();
    m_rows->setRows(std::move(rows));
    m_grid->setEnabled(!m_fish.empty());
    m_grid->scrollToTop();
    say();
}

void MeasuredFishGrid::say(const QString& words) {
    QStringList parts{words, storedOtherwise(m_fish)};
    parts.removeAll(QString());
    m_line->setText(parts.join(u"; "_s));
    m_line->setToolTip(m_line->text());
    m_line->setVisible(!parts.isEmpty());
}

}  // namespace kelvora
