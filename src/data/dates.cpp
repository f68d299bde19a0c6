#include "data/dates.h"

#include <QLocale>

using namespace Qt::StringLiterals;

namespace kelvora {

QString shortDate(const QDate& date) {
    return QLocale().toString(date, QLocale::ShortFormat);
}

QString fullYearFormat() {
    QString format = QLocale().dateFormat(QLocale::ShortFormat);
    return format.contains(u"yyyy") ? format : format.replace(u"yy"_s, u"yyyy"_s);
}

QString monthName(int month) {
    return month >= 1 && month <= 12 ? QLocale().standaloneMonthName(month) : QString();
}

}  // namespace kelvora
