#include "reference/import_preview.h"

#include "controls/captioned_grid.h"
#include "controls/dialogs.h"
#include "controls/fields.h"
#include "controls/progress.h"
#include "controls/text_table.h"
#include "data/store_files.h"

#include <QGroupBox>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QScopeGuard>
#include <QStyledItemDelegate>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace kelvora {
namespace {

constexpr QColor kHighlight(192, 192, 192);

/// Paints the row that the preview stands on in bold on grey, in the dark mode too, where the text would be light.
class RowHighlight : public QStyledItemDelegate {
public:
    explicit RowHighlight(Grid* grid) : QStyledItemDelegate(grid), m_grid(grid) {}

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override {
        QStyledItemDelegate::initStyleOption(option, index);
        if (index.row() != m_grid->currentRow()) {
            return;
        }
        const bool coloured = index.data(Qt::ForegroundRole).isValid();
        option->font.setBold(true);
        option->state &= ~(QStyle::State_Selected | QStyle::State_HasFocus);
        option->backgroundBrush = kHighlight;
        option->palette.setColor(QPalette::Text, coloured ? QColor(Qt::blue) : QColor(Qt::black));
    }

private:
    Grid* m_grid;
};

GridColumns columnsOf(const ImportLayout& layout) {
    GridColumns columns;
    for (const ImportColumn& column : layout.columns) {
        columns.push_back({column.caption, column.width});
    }
    return columns;
}

}  // namespace

ImportPreview::ImportPreview(const ImportKind& kind, Connection& connection, Dialogs& dialogs)
    : ReferencePanel(connection, dialogs),
      m_kind(kind),
      m_frame(new QGroupBox(kind.captions.frame)),
      m_path(new QLineEdit),
      m_grid(new Grid(kind.captions.preview)),
      m_table(new TextTable(kind.layout.width(), m_grid)),
      m_line(new ValueLabel),
      m_save(new QPushButton(kind.captions.save)),
      m_remove(new QPushButton(kind.captions.remove)),
      m_clear(new QPushButton(kind.captions.clear)),
      m_saveOthers(new QPushButton(u"Save other boats"_s)) {
    auto* outer = new QVBoxLayout(this);
    outer->setContentsMargins({});
    outer->addWidget(m_frame);
    auto* rows = new QVBoxLayout(m_frame);
    if (!kind.isFramed) {
        constexpr int gap = 4;
        m_frame->setFlat(true);
        m_frame->setContentsMargins(0, m_frame->fontMetrics().height() + gap, 0, 0);
        rows->setContentsMargins({});
    }

    auto* file = new QHBoxLayout;
    rows->addLayout(file);
    m_path->setAccessibleName(kind.captions.file);
    m_path->setPlaceholderText(u"No file chosen"_s);
    m_path->setReadOnly(true);
    file->addWidget(m_path, 1);
    auto* import = new QPushButton(u"Import"_s);
    file->addWidget(import);

    m_grid->setItemDelegate(new RowHighlight(m_grid));
    m_grid->setSelectionMode(QAbstractItemView::SingleSelection);
    m_grid->show(m_table, columnsOf(kind.layout));
    rows->addWidget(m_grid, 1);

    auto* footer = new QHBoxLayout;
    rows->addLayout(footer);
    footer->addWidget(m_line, 1);
    for (QPushButton* button : {m_saveOthers, m_save, m_remove, m_clear}) {
        footer->addWidget(button);
    }

    onClick(import, [this] { chooseFile(); });
    onClick(m_save, [this] { save(); });
    onClick(m_saveOthers, [this] { saveOthers(); });
    onClick(m_remove, [this] { removeRow(); });
    onClick(m_clear, [this] { clear(); });
    clear();
    if (kind.isOfSpecies) {
        m_clear->setEnabled(false);
        connect(m_grid, &Grid::rowChosen, this, &ImportPreview::colourRow);
    }
}

void ImportPreview::chooseFile() {
    const auto path = dialogs().openFile(Dialogs::FileKind::Csv);
    if (!path) {
        return;
    }
    // The box names a file only as long as the file is what the preview shows.
    m_path->setText(*path);
    auto notRead = qScopeGuard([this] { m_path->clear(); });
    if (read(*path)) {
        notRead.dismiss();
    }
}

bool ImportPreview::read(const QString& path) {
    if (!path.endsWith(u".csv"_s, Qt::CaseSensitive)) {
        dialogs().message(u"Error file type .csv only try again"_s);
        return false;
    }
    showCount();
    std::optional<std::vector<CsvRecord>> records;
    try {
        records = recordsOf(path);
    } catch (const FormatFault& fault) {
        refuse(u"Error File Format"_s, QString::fromUtf8(fault.what()));
    }
    if (!records) {
        return false;
    }
    m_kind.complete(*records);
    show(std::move(*records));
    m_clear->setEnabled(true);
    return true;
}

std::optional<std::vector<CsvRecord>> ImportPreview::recordsOf(const QString& path) {
    CsvReader reader(path);
    Progress progress(u"Reading the file…"_s, reader.size(), Progress::Way::GiveUp);
    bool header = false;
    int passedOver = 0;
    std::vector<CsvRecord> records;
    while (std::optional<CsvRecord> record = reader.next()) {
        if (!progress.reached(reader.done())) {
            m_line->setText(u"given up: nothing was loaded"_s);
            return std::nullopt;
        }
        if (record->isBlank()) {
            ++passedOver;
        } else if (!header) {
            if (const std::optional<FormatFault> fault = headerFault(m_kind.layout, *record)) {
                throw FormatFault(*fault);
            }
            header = true;
        } else if (const QString uneven = unevenRecord(m_kind.layout, *record); !uneven.isEmpty()) {
            refuse(uneven, uneven);
            return std::nullopt;
        } else {
            records.push_back(std::move(*record));
        }
    }
    if (!header) {
        dialogs().message(u"No data in this file"_s);
        return std::nullopt;
    }
    m_passedOver = passedOver;
    return records;
}

void ImportPreview::refuse(const QString& message, const QString& line) {
    m_line->setText(line);
    dialogs().message(u"ERROR"_s, message);
}

void ImportPreview::show(std::vector<CsvRecord> records) {
    std::vector<QStringList> rows;
    rows.reserve(records.size());
    for (const CsvRecord& record : records) {
        rows.push_back(record.fields);
    }
    const bool blank = rows.empty();
    if (blank) {
        rows.emplace_back();
    }
    m_records = std::move(records);
    m_others.clear();
    m_saveOthers->hide();
    m_table->setRows(std::move(rows));
    m_save->setEnabled(!blank);
    m_remove->setEnabled(!blank);
    showCount();
    if (!blank) {
        m_grid->setCurrentRow(0);
    }
}

void ImportPreview::showCount() {
    m_line->setText(countLine(static_cast<qsizetype>(m_records.size()), m_passedOver));
}

void ImportPreview::colourRow(int row) {
    const bool dark = palette().color(QPalette::Base).lightness() < 128;
    m_table->setRowColours(row, QColor(), dark ? QColor(0x8a, 0xb4, 0xf8) : QColor(Qt::blue));
}

void ImportPreview::save() {
    const QString count = QString::number(m_records.size());
    if (!dialogs().confirm(u"CONFIRM"_s, u"Are you sure to insert '%1' data"_s.arg(count))) {
        return;
    }
    const ImportOutcome outcome = storeAll();
    if (outcome.refused.empty()) {
        clear();
    } else {
        std::vector<CsvRecord> left;
        for (const RefusedRecord& refused : outcome.refused) {
            left.push_back(refused.record);
        }
        show(std::move(left));
    }
    m_line->setText(outcomeLine(outcome));
    m_others = outcome.others;
    m_saveOthers->setVisible(!m_others.empty());
    m_kind.stored();
    if (!outcome.refused.empty()) {
        dialogs().message(u"ERROR"_s, refusalText(outcome.refused));
    }
}

ImportOutcome ImportPreview::storeAll() {
    Progress progress(u"Storing the rows…"_s, static_cast<int>(m_records.size()));
    return m_kind.store(m_records, [&progress] { progress.step(); });
}

void ImportPreview::saveOthers() {
    if (const std::optional<QString> path = dialogs().saveCsvFile()) {
        writeWholeFile(withCsvEnding(*path), importFileOf(m_kind.layout, m_others), u"The lines could not be written"_s,
                       connection().path());
    }
}

void ImportPreview::removeRow() {
    const int row = m_grid->currentRow();
    if (row < 0 || m_records.size() < 2) {
        return;
    }
    if (m_kind.isOfSpecies && m_records.at(static_cast<std::size_t>(row)).fields.first().isEmpty()) {
        return;
    }
    m_records.erase(m_records.begin() + row);
    m_table->removeRow(row);
    m_grid->setCurrentRow(std::min(row, m_table->rowCount() - 1));
    showCount();
}

void ImportPreview::clear() {
    m_path->clear();
    m_passedOver = 0;
    show({});
    m_line->clear();
}

}  // namespace kelvora
