#include "sampling/length_class_grid.h"

#include "controls/dialogs.h"
#include "controls/fields.h"
#include "controls/text_table.h"
#include "data/numbers.h"

#include <QLineEdit>

using namespace Qt::StringLiterals;

namespace kelvora {
namespace {

GridColumns countedColumns() {
    return {{u"Lower"_s, 80, Qt::AlignRight},
            {u"Upper"_s, 80, Qt::AlignRight},
            {u"Mid-Length"_s, 100, Qt::AlignRight},
            {u"Frequency"_s, 100, Qt::AlignRight}};
}

QStringList rowOf(const LengthClass& c, const QString& frequency = {}) {
    return {plainText(c.lower), plainText(c.upper), plainText(c.middle()), frequency};
}

}  // namespace

LengthClassGrid::LengthClassGrid(const QString& name) : Grid(name), m_rows(new TextTable(4, this)) {
    show(m_rows, countedColumns());
}

void LengthClassGrid::showNothing() {
    m_rows->setRows({QStringList()});
}

void LengthClassGrid::showTable(double interval) {
    std::vector<QStringList> rows;
    for (const LengthClass& c : classTable(interval)) {
        rows.push_back(rowOf(c));
    }
    rows.emplace_back();
    rows.push_back({u"TOTAL"_s});
    m_rows->setRows(std::move(rows));
    scrollToTop();
}

void LengthClassGrid::startWith(const LengthClass& first) {
    m_rows->setRows({rowOf(first)});
    highlight(0);
}

void LengthClassGrid::enter(const CountedClass& counted, const LengthClass& next) {
    const int last = rowCount() - 1;
    m_rows->setRow(last, rowOf(counted.limits, plainText(counted.frequency)));
    highlight(last);
    m_rows->appendRow(rowOf(next));
    scrollToBottom();
}

void LengthClassGrid::highlight(int row) {
    // A light blue, with a text colour that is read on it in dark mode too.
    m_rows->setRowColours(row, QColor(0xb0, 0xd5, 0xe6), QColor(0x1f, 0x2a, 0x30));
}

std::optional<double> typedFrequency(Dialogs& dialogs, QLineEdit* box) {
    const QString typed = box->text();
    if (const auto refusal = frequencyRefusal(typed)) {
        dialogs.message(refusal->title, refusal->message);
        box->clear();
        focusOn(box);
        return std::nullopt;
    }
    return leadingNumber(typed);
}

}  // namespace kelvora
