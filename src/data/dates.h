#pragma once

#include <QDate>
#include <QString>

namespace kelvora {

/// A date in the system's short form, as it is shown and exported. Empty for an invalid date.
QString shortDate(const QDate& date);

/// The system's short form with a year of four digits, in which an operation's date is typed and read.
QString fullYearFormat();

/// The full name of a month (1 is January) in the language of the system; empty outside 1 to 12.
QString monthName(int month);

}  // namespace kelvora
