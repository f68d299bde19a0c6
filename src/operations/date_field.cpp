#include "operations/date_field.h"

#include <QLocale>
#include <QWheelEvent>

namespace kelvora {

DateField::DateField(QWidget* parent) : QDateEdit(QDate::currentDate(), parent) {
    QString format = QLocale().dateFormat(QLocale::ShortFormat);
    if (!format.contains(u"yyyy")) {
        format.replace(u"yy"_qs, u"yyyy"_qs);
    }
    setDisplayFormat(format);
    setCalendarPopup(true);
    setFocusPolicy(Qt::StrongFocus);
}

/// One Tab a field: day, month and year are reached with the arrow keys.
bool DateField::focusNextPrevChild(bool next) {
    return QWidget::focusNextPrevChild(next);  // NOLINT(bugprone-parent-virtual-call)
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
