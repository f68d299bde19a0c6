#include "operations/date_field.h"

#include "data/dates.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QLocale>
#include <QRegularExpression>
#include <QWheelEvent>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace kelvora {
namespace {

/// A date as a person writes it, its parts in the order of a format (year first, if it begins with one of four digits):
/// any separators or none, the month as a number or by its name, the year with two digits being the last one of that
/// ending up to this one (samples are of the past). Invalid if it is none of these.
QDate dateWritten(const QString& written, const QString& format) {
    static const QRegularExpression separators(u"[^\\p{L}\\p{N}]+"_s);
    static const QRegularExpression yearInFront(u"^\\d{4}\\b"_s);
    const QString parts = written.split(separators, Qt::SkipEmptyParts).join(u' ');
    QStringList order{u"y"_s, u"M"_s, u"d"_s};
    if (!parts.contains(yearInFront)) {
        std::ranges::sort(order, {}, [&](const QString& part) { return format.indexOf(part); });
    }
    const QString spaced = order.join(u' ');
    const QString digits = order.join(QString()).replace(u'd', u"dd"_s).replace(u'M', u"MM"_s);
    for (QString form :
         {spaced, QString(spaced).replace(u'M', u"MMM"_s), QString(spaced).replace(u'M', u"MMMM"_s), digits}) {
        if (const QDate read = QLocale().toDate(parts, form.replace(u'y', u"yyyy"_s)); read.isValid()) {
            return read;
        }
        if (const QDate read = QLocale().toDate(parts, form.replace(u"yyyy"_s, u"yy"_s)); read.isValid()) {
            return read.addYears((QDate::currentDate().year() - read.year()) / 100 * 100);
        }
    }
    return {};
}

}  // namespace

DateField::DateField(QWidget* parent) : QDateEdit(QDate::currentDate(), parent) {
    setDisplayFormat(fullYearFormat());
    setCalendarPopup(true);
    setFocusPolicy(Qt::StrongFocus);
}

/// One Tab a field: day, month and year are reached with the arrow keys, and by typing the date as it is written.
bool DateField::event(QEvent* event) {
    if (event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key == Qt::Key_Tab || key == Qt::Key_Backtab) {
            return QWidget::focusNextPrevChild(key == Qt::Key_Tab);  // NOLINT(bugprone-parent-virtual-call)
        }
    }
    return QDateEdit::event(event);
}

/// A part that is complete is left by itself, so the separator typed behind it must not leave the next one too: else
/// "15/01/2017" would skip the month. What is typed over the whole selected date begins with the first part.
void DateField::keyPressEvent(QKeyEvent* event) {
    const QString text = event->text();
    if (text.isEmpty() || !text.front().isPrint()) {
        if (event->key() == Qt::Key_Up || event->key() == Qt::Key_Down) {
            completed();
        }
        if (event->key() != Qt::Key_Shift) {
            m_typed.clear();
            m_partBegun = false;
        }
        QDateEdit::keyPressEvent(event);
        return;
    }
    if (lineEdit()->selectedText() == this->text()) {
        m_typed.clear();
        setCurrentSectionIndex(0);
        setSelectedSection(currentSection());
    }
    m_typed += text;
    if (!text.front().isLetterOrNumber() && !m_partBegun) {
        return;
    }
    const int part = currentSectionIndex();
    QDateEdit::keyPressEvent(event);
    m_partBegun = currentSectionIndex() == part;
}

/// The toolkit fits a day to the month that stood there before, so that "31/12" typed in November became the 30th, and
/// drops a year of two digits: the date is read from what was typed.
QDate DateField::completed() {
    for (const QString& written : {m_typed, text()}) {
        if (const QDate read = dateWritten(written, displayFormat()); read.isValid()) {
            setDate(read);
            break;
        }
    }
    m_typed.clear();
    return date();
}

void DateField::focusInEvent(QFocusEvent* event) {
    m_typed.clear();
    m_partBegun = false;
    QDateEdit::focusInEvent(event);
}

void DateField::focusOutEvent(QFocusEvent* event) {
    completed();
    QDateEdit::focusOutEvent(event);
}

/// The wheel over a date without the focus belongs to the window.
void DateField::wheelEvent(QWheelEvent* event) {
    if (hasFocus()) {
        QDateEdit::wheelEvent(event);
    } else {
        event->ignore();
    }
}

}  // namespace kelvora
