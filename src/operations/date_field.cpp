#include "operations/date_field.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QLocale>
#include <QRegularExpression>
#include <QWheelEvent>

namespace kelvora {
namespace {

/// A date as a person writes it in a format: its parts short or long, or digits without separators, the year with two
/// digits being the last one of that ending up to this one (samples are of the past). Invalid if it is none of these.
QDate dateWritten(const QString& written, const QString& format) {
    const QString shortParts = QString(format).replace(u"dd"_qs, u"d"_qs).replace(u"MM"_qs, u"M"_qs);
    const QString digits = QString(format).remove(QRegularExpression(u"[^dMy]"_qs));
    const QLocale locale;
    for (const QString& form : {format, shortParts, digits}) {
        if (const QDate read = locale.toDate(written, form); read.isValid()) {
            return read;
        }
        const QDate read = locale.toDate(written, QString(form).replace(u"yyyy"_qs, u"yy"_qs));
        if (read.isValid()) {
            return read.addYears((QDate::currentDate().year() - read.year()) / 100 * 100);
        }
    }
    return {};
}

}  // namespace

DateField::DateField(QWidget* parent) : QDateEdit(QDate::currentDate(), parent) {
    QString format = QLocale().dateFormat(QLocale::ShortFormat);
    if (!format.contains(u"yyyy")) {
        format.replace(u"yy"_qs, u"yyyy"_qs);
    }
    setDisplayFormat(format);
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
