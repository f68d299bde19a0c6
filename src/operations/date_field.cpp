#include "operations/date_field.h"

#include "data/dates.h"

#include <QCalendarWidget>
#include <QKeyEvent>
#include <QLocale>
#include <QRegularExpression>
#include <QStyle>
#include <QToolButton>
#include <QVBoxLayout>

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace kelvora {
namespace {

/// A year as written: one of two digits is the last one of that ending up to this one, since samples are of the past.
int yearWritten(const QString& text) {
    constexpr int century = 100;
    bool number = false;
    const int year = text.toInt(&number);
    const int now = QDate::currentDate().year();
    return number && text.size() == 2 ? now - (now - year) % century : text.size() == 4 ? year : 0;
}

/// A month by its number or its name; 0 if it is none.
int monthWritten(const QString& text) {
    bool number = false;
    int month = text.toInt(&number);
    const auto is = [&](QString name) { return name.remove(u'.').compare(text, Qt::CaseInsensitive) == 0; };
    const QLocale language;
    for (int named = 12; !number && named >= 1; --named) {
        for (const auto form : {QLocale::LongFormat, QLocale::ShortFormat}) {
            month =
                is(language.monthName(named, form)) || is(language.standaloneMonthName(named, form)) ? named : month;
        }
    }
    return month;
}

/// A date as a person writes it, its parts in the order of a format (year first, if it begins with one of four digits):
/// any separators or none, the month as a number or by its name. Invalid if it is none of these.
QDate dateWritten(QString written, const QString& format) {
    static const QRegularExpression separators(u"[^\\p{L}\\p{M}\\p{N}]+"_s);
    static const QRegularExpression yearInFront(u"^\\d{4}\\b"_s);
    for (QChar& character : written) {
        character = character.isDigit() ? QChar(u'0' + character.digitValue()) : character;
    }
    QStringList parts = written.split(separators, Qt::SkipEmptyParts);
    std::array<QChar, 3> order{u'y', u'M', u'd'};
    if (!parts.join(u' ').contains(yearInFront)) {
        std::ranges::sort(order, {}, [&](QChar part) { return format.indexOf(part); });
    }
    if (const QString digits = parts.value(0); parts.size() == 1 && (digits.size() == 6 || digits.size() == 8)) {
        parts.clear();
        for (qsizetype at = 0; const QChar part : order) {
            parts.append(digits.sliced(at, part == u'y' ? digits.size() - 4 : 2));
            at += parts.last().size();
        }
    }
    if (parts.size() != 3) {
        return {};
    }
    const auto partOf = [&](QChar part) { return parts[std::ranges::find(order, part) - order.begin()]; };
    return {yearWritten(partOf(u'y')), monthWritten(partOf(u'M')), partOf(u'd').toInt()};
}

}  // namespace

DateField::DateField(QWidget* parent)
    : QLineEdit(parent), m_format(fullYearFormat()), m_calendar(new QToolButton(this)) {
    setDate(QDate::currentDate());
    m_calendar->setArrowType(Qt::DownArrow);
    m_calendar->setAutoRaise(true);
    m_calendar->setFocusPolicy(Qt::NoFocus);
    m_calendar->setCursor(Qt::ArrowCursor);
    m_calendar->setAccessibleName(u"Calendar"_s);
    m_calendar->setToolTip(u"Calendar (Alt+Down)"_s);
    connect(m_calendar, &QToolButton::clicked, this, &DateField::openCalendar);
}

QDate DateField::date() const {
    const QDate shown = QLocale().toDate(text(), m_format);
    return shown.isValid() ? shown : dateWritten(text(), m_format);
}

void DateField::setDate(const QDate& date) {
    setText(QLocale().toString(date, m_format));
}

QString DateField::example() const {
    return QLocale().toString(QDate(2017, 12, 31), m_format);
}

void DateField::openCalendar() {
    setFocus(Qt::OtherFocusReason);
    auto* popup = new QFrame(this, Qt::Popup);
    popup->setAttribute(Qt::WA_DeleteOnClose);
    popup->setFrameShape(QFrame::StyledPanel);
    auto* calendar = new QCalendarWidget(popup);
    calendar->setSelectedDate(date().isValid() ? date() : QDate::currentDate());
    auto* layout = new QVBoxLayout(popup);
    layout->setContentsMargins(1, 1, 1, 1);
    layout->addWidget(calendar);
    const auto choose = [this, popup](const QDate& date) {
        setDate(date);
        popup->close();
        selectAll();
    };
    connect(calendar, &QCalendarWidget::clicked, this, choose);
    connect(calendar, &QCalendarWidget::activated, this, choose);
    popup->move(mapToGlobal(rect().bottomLeft()));
    popup->show();
    calendar->setFocus();
}

/// The calendar, a menu or another program in front is no leaving: the keyboard comes back.
void DateField::focusOutEvent(QFocusEvent* event) {
    QLineEdit::focusOutEvent(event);
    if (event->reason() == Qt::PopupFocusReason || event->reason() == Qt::ActiveWindowFocusReason ||
        event->reason() == Qt::MenuBarFocusReason) {
        return;
    }
    if (const QDate written = date(); written.isValid()) {
        setDate(written);
    } else {
        Q_EMIT leftWithoutDate();
    }
}

/// The next or the previous day; the calendar by the keys that open a list.
void DateField::keyPressEvent(QKeyEvent* event) {
    const bool down = event->key() == Qt::Key_Down;
    if ((down && (event->modifiers() & Qt::AltModifier) != 0) || event->key() == Qt::Key_F4) {
        openCalendar();
    } else if (const QDate written = date(); (down || event->key() == Qt::Key_Up) && written.isValid()) {
        setDate(written.addDays(down ? -1 : 1));
        selectAll();
    } else {
        QLineEdit::keyPressEvent(event);
    }
}

void DateField::resizeEvent(QResizeEvent* event) {
    QLineEdit::resizeEvent(event);
    const int inset = style()->pixelMetric(QStyle::PM_DefaultFrameWidth);
    const int side = height() - 2 * inset;
    m_calendar->setGeometry(isRightToLeft() ? inset : width() - inset - side, inset, side, side);
    setTextMargins(isRightToLeft() ? side : 0, 0, isRightToLeft() ? 0 : side, 0);
}

}  // namespace kelvora
