#include "search/operation_frame.h"

#include <QGridLayout>
#include <QLineEdit>
#include <QRadioButton>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace kelvora {
namespace {

/// Degrees or minutes to read.
QLineEdit* angleBox() {
    auto* box = new QLineEdit;
    box->setReadOnly(true);
    box->setFrame(false);
    box->setFocusPolicy(Qt::ClickFocus);
    box->setTextMargins(-2, 0, 0, 0);
    QPalette flat = box->palette();
    flat.setBrush(QPalette::Base, Qt::transparent);
    box->setPalette(flat);
    box->setFixedSize(box->fontMetrics().averageCharWidth() * 8, box->fontMetrics().height() + 4);
    return box;
}

/// Selects an option or not. None can be pressed, but the selected one is a value to read and not greyed out.
void select(QRadioButton& option, bool on) {
    // Without an operation none is selected. A screen reader takes an option that is not exclusive for a check box.
    option.setAutoExclusive(false);
    option.setChecked(on);
    option.setAutoExclusive(true);
    QPalette palette;
    if (on) {
        palette.setColor(QPalette::Disabled, QPalette::WindowText, palette.color(QPalette::Active, QPalette::Text));
    }
    option.setPalette(palette);
}

}  // namespace

OperationFrame::OperationFrame() : QGroupBox(u"Fishing Operation"_s) {
    auto* form = new QGridLayout(this);
    form->setHorizontalSpacing(12);
    form->setVerticalSpacing(3);
    constexpr int gap = 16;
    layOutInThree(form, gap,
                  [=, this](const OperationField& field, int row, int column) { add(form, row, column, field); });
    const int noteRow = form->rowCount();
    for (int row = 0; row < noteRow; ++row) {
        form->setRowMinimumHeight(row, fontMetrics().height() + 6);
    }
    m_details.addNote(form, noteRow, 2);
}

void OperationFrame::add(QGridLayout* form, int row, int column, const OperationField& field) {
    if (!field.part.isEmpty()) {
        QLineEdit* box = angleBox();
        QHBoxLayout* line = addAngle(form, row, column, field.captions.search, field, box);
        line->setSpacing(6);
        if (field.part == u"Min") {
            line->addStretch();
        }
        m_details.add(field.shown, [box](const QString& text) { box->setText(text); });
    } else if (field.shown == u"fishingtime") {
        m_times = addFishingTime(form, row, column, 10);
        for (QRadioButton* time : m_times) {
            time->setEnabled(false);
        }
    } else {
        m_details.add(form, row, column, field.captions.search, field.shown);
    }
}

void OperationFrame::fill(const ResultSet& details) {
    m_details.fill(details);
    const QString stored = details.text(0, u"fishingtime");
    // What is neither day nor night is both.
    const auto isStored = [&](const QRadioButton* time) { return sameText(time->text(), stored); };
    const auto found = std::find_if(m_times.begin(), m_times.end() - 1, isStored);
    for (QRadioButton* time : m_times) {
        select(*time, time == *found);
    }
}

void OperationFrame::clear() {
    m_details.clear();
    for (QRadioButton* time : m_times) {
        select(*time, false);
    }
}

}  // namespace kelvora
