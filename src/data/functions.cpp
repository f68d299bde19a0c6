#include "data/functions.h"

#include "data/dates.h"
#include "data/numbers.h"

#include <QLocale>
#include <SQLiteCpp/Database.h>
#include <sqlite3.h>

#include <array>
#include <charconv>
#include <string_view>

namespace kelvora {
namespace {

std::string_view textOf(sqlite3_value* value) {
    const auto* text = reinterpret_cast<const char*>(sqlite3_value_text(value));
    return text == nullptr ? std::string_view()
                           : std::string_view(text, static_cast<std::size_t>(sqlite3_value_bytes(value)));
}

void resultText(sqlite3_context* context, const QByteArray& utf8) {
    sqlite3_result_text(context, utf8.constData(), static_cast<int>(utf8.size()), SQLITE_TRANSIENT);
}

struct YearMonth {
    int year = 0, month = 0;
};

/// The year and month of an ISO text, whatever time of day another tool wrote behind the day. A report asks for the
/// months of tens of thousands of rows: they are read without a text object.
YearMonth dateOf(sqlite3_value* value) {
    const std::string_view text = sqlite3_value_type(value) == SQLITE_TEXT ? textOf(value) : std::string_view();
    constexpr std::string_view form = "dddd-dd-dd";
    const auto digit = [text](std::size_t at) { return text[at] >= '0' && text[at] <= '9'; };
    if (text.size() < form.size() || (text.size() > form.size() && digit(form.size()))) {
        return {};
    }
    for (std::size_t i = 0; i < form.size(); ++i) {
        if (form[i] == 'd' ? !digit(i) : text[i] != form[i]) {
            return {};
        }
    }
    YearMonth read;
    std::from_chars(text.data(), text.data() + 4, read.year);
    std::from_chars(text.data() + 5, text.data() + 7, read.month);
    return read.month >= 1 && read.month <= 12 ? read : YearMonth{};
}

void yearFunction(sqlite3_context* context, int /*count*/, sqlite3_value** values) {
    if (const YearMonth date = dateOf(values[0]); date.month > 0) {
        sqlite3_result_int(context, date.year);
    }
}

void monthFunction(sqlite3_context* context, int /*count*/, sqlite3_value** values) {
    if (const YearMonth date = dateOf(values[0]); date.month > 0) {
        sqlite3_result_int(context, date.month);
    }
}

/// The name of a month, looked up once for each language.
const QByteArray& monthText(int month) {
    thread_local QLocale language = QLocale::c();
    thread_local std::array<QByteArray, 13> names;
    if (const QLocale now; now != language || names[1].isEmpty()) {
        language = now;
        for (int i = 1; i <= 12; ++i) {
            names.at(static_cast<std::size_t>(i)) = monthName(i).toUtf8();
        }
    }
    return names.at(static_cast<std::size_t>(month));
}

void twoDecimalsFunction(sqlite3_context* context, int /*count*/, sqlite3_value** values) {
    const int type = sqlite3_value_numeric_type(values[0]);
    if (type == SQLITE_INTEGER || type == SQLITE_FLOAT) {
        resultText(context, twoDecimals(sqlite3_value_double(values[0])).toUtf8());
    } else {
        sqlite3_result_value(context, values[0]);
    }
}

void monthNameFunction(sqlite3_context* context, int /*count*/, sqlite3_value** values) {
    if (const YearMonth date = dateOf(values[0]); date.month > 0) {
        resultText(context, monthText(date.month));
    }
}

}  // namespace

void registerFunctions(SQLite::Database& database) {
    // The month names follow the language of the system, which does not change while a connection is open.
    database.createFunction("two_decimals", 1, true, nullptr, twoDecimalsFunction);
    database.createFunction("year_number", 1, true, nullptr, yearFunction);
    database.createFunction("month_number", 1, true, nullptr, monthFunction);
    database.createFunction("month_name", 1, true, nullptr, monthNameFunction);
}

}  // namespace kelvora
