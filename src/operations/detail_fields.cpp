#include "operations/detail_fields.h"

#include "controls/fields.h"
#include "data/dates.h"

#include <QGridLayout>
#include <QLocale>
#include <QPlainTextEdit>

using namespace Qt::StringLiterals;

namespace kelvora {
namespace {

QString detailText(const Detail& detail, const ResultSet& result, int row) {
    const QString text = operationText(result, row, detail.column);
    return detail.minutes.isEmpty() ? text : u"Dec "_s + text + u" Min "_s + operationText(result, row, detail.minutes);
}

}  // namespace

QString operationText(const ResultSet& result, int row, const QString& column) {
    return column == u"optdate" ? QLocale().toString(result.date(row, column), fullYearFormat())
                                : result.text(row, column);
}

void DetailFields::add(QGridLayout* form, int column, const std::vector<Detail>& details) {
    int line = 0;
    for (const Detail& detail : details) {
        auto* label = new ValueLabel;
        addField(form, line++, column, detail.caption, label);
        m_shown.push_back({label, detail});
    }
}

void DetailFields::addNote(QGridLayout* form, int row, const QString& caption, int lines) {
    m_note = new QPlainTextEdit;
    m_note->setReadOnly(true);
    m_note->setTabChangesFocus(true);
    // The lines are broken at the edge: a bar below them would only take the place of one.
    m_note->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_note->setFrameShape(QFrame::NoFrame);
    m_note->document()->setDocumentMargin(0);
    QPalette flat = m_note->palette();
    flat.setBrush(QPalette::Base, Qt::transparent);
    m_note->setPalette(flat);
    m_note->setFixedHeight(m_note->fontMetrics().lineSpacing() * lines);
    addField(form, row, 0, caption, m_note)->setAlignment(Qt::AlignTop);
    form->addWidget(m_note, row, 1, 1, -1);
    setNote({});
}

void DetailFields::setNote(const QString& note) const {
    m_note->setPlainText(note);
    // Tab stops at a note that can be scrolled through, and passes where there is none.
    m_note->setFocusPolicy(note.isEmpty() ? Qt::ClickFocus : Qt::StrongFocus);
}

void DetailFields::fill(const ResultSet& result, int row) const {
    for (const Shown& shown : m_shown) {
        shown.label->setText(detailText(shown.detail, result, row));
    }
    setNote(result.text(row, u"note"));
}

void DetailFields::clear() const {
    for (const Shown& shown : m_shown) {
        shown.label->clear();
    }
    setNote({});
}

}  // namespace kelvora
