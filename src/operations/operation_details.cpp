#include "operations/operation_details.h"

#include "controls/fields.h"
#include "data/dates.h"

#include <QGridLayout>
#include <QLineEdit>
#include <QLocale>
#include <QPlainTextEdit>
#include <QRadioButton>

#include <array>

using namespace Qt::StringLiterals;

namespace kelvora {
namespace {

QString shownText(const ResultSet& details, QStringView column) {
    return column == u"optdate" ? QLocale().toString(details.date(0, column), fullYearFormat())
                                : details.text(0, column);
}

}  // namespace

void layOutInThree(QGridLayout* form, int gap,
                   const std::function<void(const OperationField& field, int row, int column)>& add) {
    using enum OperationField::Column;
    int column = 0;
    for (const auto group : {Catch, Landing, Trip}) {
        int row = 0;
        for (const OperationField& field : operationFields()) {
            if (field.column == group) {
                // Minutes stand in the line of their degrees.
                add(field, row, column);
                row += field.part == u"Dec" ? 0 : 1;
            }
        }
        form->setColumnStretch(column + 1, 1);
        if (group != Trip) {
            form->setColumnMinimumWidth(column + 2, gap);
        }
        column += 3;
    }
}

QHBoxLayout* addAngle(QGridLayout* form, int row, int column, QStringView caption, const OperationField& field,
                      QLineEdit* box) {
    if (field.part == u"Dec") {
        auto* label = new QLabel(caption.toString());
        label->setBuddy(box);
        form->addWidget(label, row, column);
        form->addLayout(new QHBoxLayout, row, column + 1);
    }
    // The line's caption is that of two numbers.
    box->setAccessibleName(u"%1 %2"_s.arg(field.captions.finder, field.part));
    auto* line = static_cast<QHBoxLayout*>(form->itemAtPosition(row, column + 1)->layout());
    line->addWidget(new QLabel(field.part.toString()));
    line->addWidget(box);
    return line;
}

std::vector<QRadioButton*> addFishingTime(QGridLayout* form, int row, int column, int spacing) {
    auto* line = new QHBoxLayout;
    line->setSpacing(spacing);
    std::vector<QRadioButton*> options;
    for (const QString& time : {u"Day"_s, u"Night"_s, u"Day and Night"_s}) {
        options.push_back(new QRadioButton(time));
        line->addWidget(options.back());
    }
    line->addStretch();
    auto* label = new QLabel(u"Fishing time"_s);
    label->setBuddy(options.front());
    form->addWidget(label, row, column);
    form->addLayout(line, row, column + 1);
    return options;
}

void OperationDetails::add(QGridLayout* form, int row, int column, QStringView caption, QStringView shown,
                           QStringView minutes) {
    auto* label = new ValueLabel;
    addField(form, row, column, caption.toString(), label);
    m_shown.push_back({shown, minutes, [label](const QString& text) { label->setText(text); }});
}

void OperationDetails::addNote(QGridLayout* form, int row, int lines) {
    auto* note = new QPlainTextEdit;
    note->setReadOnly(true);
    note->setTabChangesFocus(true);
    // The lines are broken at the edge: a bar below them would only take the place of one.
    note->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    note->setFrameShape(QFrame::NoFrame);
    note->document()->setDocumentMargin(0);
    QPalette flat = note->palette();
    flat.setBrush(QPalette::Base, Qt::transparent);
    note->setPalette(flat);
    note->setFixedHeight(note->fontMetrics().lineSpacing() * lines);
    addField(form, row, 0, u"Note"_s, note)->setAlignment(Qt::AlignTop);
    form->addWidget(note, row, 1, 1, -1);
    add(u"note", [note](const QString& text) {
        note->setPlainText(text);
        // Tab stops at a note that can be scrolled through, and passes where there is none.
        note->setFocusPolicy(text.isEmpty() ? Qt::ClickFocus : Qt::StrongFocus);
    });
    clear();
}

void OperationDetails::fill(const ResultSet& details) const {
    for (const auto& [column, minutes, show] : m_shown) {
        const QString text = shownText(details, column);
        show(minutes.isEmpty() ? text : u"Dec "_s + text + u" Min "_s + shownText(details, minutes));
    }
}

void OperationDetails::clear() const {
    for (const Shown& shown : m_shown) {
        shown.show({});
    }
}

}  // namespace kelvora
