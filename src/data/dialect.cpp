#include "data/dialect.h"

#include "data/dates.h"
#include "data/distinct.h"
#include "data/grouping.h"
#include "data/numbers.h"
#include "data/tokens.h"

#include <QLocale>
#include <SQLiteCpp/Database.h>
#include <sqlite3.h>

#include <algorithm>
#include <array>
#include <cctype>
#include <stdexcept>

namespace kelvora {

using namespace dialect;

namespace {

/// The first token of the column, text, call or parenthesis that ends at a position.
std::size_t operandStart(const Tokens& tokens, std::size_t last) {
    std::size_t start = last;
    if (isMark(tokens, last, ')')) {
        start = opening(tokens, last);
        const bool called = start > 0 && start < tokens.size() && tokens[start - 1].kind == Kind::Word;
        return called ? start - 1 : start;
    }
    while (start >= 2 && isMark(tokens, start - 1, '.') && tokens[start - 2].kind == Kind::Word) {
        start -= 2;
    }
    return start;
}

/// One behind the last token of the column, text, call or parenthesis that begins at a position.
std::size_t operandEnd(const Tokens& tokens, std::size_t first) {
    std::size_t last = first;
    while (isMark(tokens, last + 1, '.') && last + 2 < tokens.size()) {
        last += 2;
    }
    if (!isMark(tokens, last, '(') && isMark(tokens, last + 1, '(')) {
        ++last;
    }
    return std::min(isMark(tokens, last, '(') ? closing(tokens, last) + 1 : last + 1, tokens.size());
}

std::string nullSafe(const std::string& operand) {
    return operand.starts_with('\'') ? operand : "ifnull(" + translate(operand) + ",'')";
}

/// Joins of texts: "a & b & c" as one joined text that compares as the text columns do.
Tokens joinTexts(Tokens tokens) {
    for (std::size_t i = 0; i < tokens.size(); ++i) {
        if (!isMark(tokens, i, '&')) {
            continue;
        }
        const std::size_t left = before(tokens, i);
        if (left == tokens.size()) {
            continue;
        }
        const std::size_t start = operandStart(tokens, left);
        if (start == tokens.size()) {
            continue;
        }
        std::string text = "(" + nullSafe(joined(tokens, start, left + 1));
        std::size_t end = i;
        for (std::size_t mark = i; isMark(tokens, mark, '&'); mark = skipSpace(tokens, end)) {
            const std::size_t first = skipSpace(tokens, mark + 1);
            if (first == tokens.size()) {
                end = first;
                break;
            }
            end = operandEnd(tokens, first);
            text += " || " + nullSafe(joined(tokens, first, end));
        }
        const auto at = [&](std::size_t k) { return tokens.begin() + static_cast<std::ptrdiff_t>(k); };
        tokens[start] = {Kind::Text, text + ") COLLATE NOCASE"};
        tokens.erase(at(start + 1), at(end));
        i = start;
    }
    return tokens;
}

std::string yearText(int year) {
    const std::string digits = std::to_string(year);
    return std::string(digits.size() < 4 ? 4 - digits.size() : 0, '0') + digits;
}

/// "year(column) = 2004", the call within any number of parentheses, as a range of the column's ISO text.
void yearAsRange(Tokens& tokens) {
    for (std::size_t i = 0; i < tokens.size(); ++i) {
        const std::size_t open = skipSpace(tokens, i + 1);
        if (!isWord(tokens, i, "year") || !isMark(tokens, open, '(')) {
            continue;
        }
        const std::size_t close = closing(tokens, open);
        std::size_t first = i;
        std::size_t next = skipSpace(tokens, close + 1);
        while (isMark(tokens, next, ')') && isMark(tokens, before(tokens, first), '(')) {
            first = before(tokens, first);
            next = skipSpace(tokens, next + 1);
        }
        const std::size_t number = skipSpace(tokens, next + 1);
        const bool digits = number < tokens.size() && tokens[number].kind == Kind::Word &&
                            tokens[number].text.size() <= 4 &&
                            tokens[number].text.find_first_not_of("0123456789") == std::string::npos;
        if (!isMark(tokens, next, '=') || !digits || isMark(tokens, number + 1, '.')) {
            continue;
        }
        const int year = std::stoi(tokens[number].text);
        std::string range = "(" + joined(tokens, open + 1, close);
        range.append(" BETWEEN '").append(yearText(year)).append("-01-01' AND '");
        range.append(yearText(year)).append(kEndOfYear).append("')");
        const auto at = [&](std::size_t k) { return tokens.begin() + static_cast<std::ptrdiff_t>(k); };
        tokens[first] = {Kind::Text, std::move(range)};
        tokens.erase(at(first + 1), at(number + 1));
        i = first;
    }
}

/// The columns of a "SELECT DISTINCT" by their numbers, to order by; empty for another statement.
std::string orderOfDistinct(const Tokens& tokens, const Clauses& found) {
    const std::size_t select = skipSpace(tokens, 0);
    const std::size_t distinct = skipSpace(tokens, select + 1);
    if (!isWord(tokens, select, "select") || !isWord(tokens, distinct, "distinct")) {
        return "";
    }
    const std::size_t columns = listed(joined(tokens, distinct + 1, found.from)).size();
    std::string order = " 1";
    for (std::size_t i = 2; i <= columns; ++i) {
        order += ", " + std::to_string(i);
    }
    return order;
}

/// Takes " DESC" or " ASC" from the end of an order term; returns its direction.
int takeDirection(std::string& term) {
    const std::string text = lower(term);
    if (text.ends_with(" desc")) {
        term = trimmed(term.substr(0, term.size() - 5));
        return -1;
    }
    if (text.ends_with(" asc")) {
        term = trimmed(term.substr(0, term.size() - 4));
    }
    return 1;
}

// The functions of the connection ------------------------------------------------------------------------------------

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
    if (sqlite3_value_type(value) != SQLITE_TEXT) {
        return {};
    }
    const std::string_view text = textOf(value);
    const auto digit = [](char c) { return c >= '0' && c <= '9'; };
    constexpr std::string_view form = "dddd-dd-dd";
    bool date = text.size() >= form.size() && (text.size() == form.size() || !digit(text[form.size()]));
    for (std::size_t i = 0; date && i < form.size(); ++i) {
        date = form[i] == 'd' ? digit(text[i]) : text[i] == form[i];
    }
    const auto number = [text](std::size_t at, std::size_t digits) {
        int read = 0;
        for (const char c : text.substr(at, digits)) {
            read = read * 10 + (c - '0');
        }
        return read;
    };
    const YearMonth read = date ? YearMonth{number(0, 4), number(5, 2)} : YearMonth{};
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

void formatFunction(sqlite3_context* context, int /*count*/, sqlite3_value** values) {
    if (sqlite3_value_type(values[0]) == SQLITE_NULL) {
        return;
    }
    const char* pattern = textOf(values[1]).data();
    const auto is = [pattern](const char* known) { return pattern != nullptr && sqlite3_stricmp(pattern, known) == 0; };
    const bool number = is("m");
    if (number || is("mmmm")) {
        if (const YearMonth date = dateOf(values[0]); date.month > 0) {
            resultText(context, number ? QByteArray::number(date.month) : monthText(date.month));
        }
        return;
    }
    const int type = sqlite3_value_numeric_type(values[0]);
    if ((type == SQLITE_INTEGER || type == SQLITE_FLOAT) && (is("#0.00") || is("0.00") || is("fixed"))) {
        resultText(context, twoDecimals(sqlite3_value_double(values[0])).toUtf8());
        return;
    }
    sqlite3_result_value(context, values[0]);
}

}  // namespace

std::string translate(const std::string& statement) {
    Tokens tokens = tokenize(statement);
    semiJoin(tokens);
    sumByKey(tokens);
    tokens = joinTexts(std::move(tokens));
    yearAsRange(tokens);
    const Clauses found = clauses(tokens);
    if (std::string sought = yearsSought(tokens, found); !sought.empty()) {
        return sought;
    }
    if (found.order != found.end) {
        return joined(tokens, 0, tokens.size());
    }
    const std::string order =
        found.group != found.end ? behindBy(tokens, found.group, found.end) : orderOfDistinct(tokens, found);
    return joined(tokens, 0, found.end) + (order.empty() ? "" : " ORDER BY" + order);
}

void registerFunctions(SQLite::Database& database) {
    // The month names follow the language of the system, which does not change while a connection is open.
    database.createFunction("year", 1, true, nullptr, yearFunction);
    database.createFunction("month", 1, true, nullptr, monthFunction);
    database.createFunction("format", 2, true, nullptr, formatFunction);
}

std::optional<Crosstab> parseCrosstab(const std::string& statement) {
    constexpr std::string_view keyword = "transform";
    if (lower(trimmed(statement).substr(0, keyword.size())) != keyword) {
        return std::nullopt;
    }
    const Tokens tokens = tokenize(statement);
    const std::size_t transform = skipSpace(tokens, 0);
    if (!isWord(tokens, transform, "transform")) {
        return std::nullopt;
    }
    std::size_t select = transform;
    while (select < tokens.size() && !isWord(tokens, select, "select")) {
        ++select;
    }
    const Clauses found = clauses(tokens);
    const std::size_t open = skipSpace(tokens, skipSpace(tokens, transform + 1) + 1);
    if (found.from == found.end || found.group == found.end || found.pivot == found.end || !isMark(tokens, open, '(')) {
        throw std::invalid_argument("malformed crosstab: " + statement);
    }

    Crosstab crosstab;
    const bool count = isWord(tokens, skipSpace(tokens, transform + 1), "count");
    if (!count && !isWord(tokens, skipSpace(tokens, transform + 1), "sum")) {
        throw std::invalid_argument("a crosstab counts or sums: " + statement);
    }
    crosstab.aggregate = count ? Crosstab::Aggregate::Count : Crosstab::Aggregate::Sum;
    const std::string aggregated = trimmed(joined(tokens, open + 1, closing(tokens, open)));
    const std::string pivot = trimmed(joined(tokens, found.pivot + 1, found.end));

    std::vector<std::string> rowExpressions;
    std::string flat = "SELECT ";
    for (const std::string& item : listed(joined(tokens, select + 1, found.from))) {
        const auto [expression, alias] = withAlias(item);
        rowExpressions.push_back(bare(expression));
        crosstab.rowHeaders.push_back(alias.empty() ? expression : alias);
        crosstab.rowOrder.push_back(1);
        flat += expression + ", ";
    }
    crosstab.statement = flat + pivot + ", " + aggregated + " " + joined(tokens, found.from, found.group);

    if (found.order != found.end) {
        for (std::string term : listed(behindBy(tokens, found.order, std::min(found.pivot, found.end)))) {
            const int direction = takeDirection(term);
            const auto row = std::ranges::find(rowExpressions, bare(term));
            if (row != rowExpressions.end()) {
                crosstab.rowOrder[static_cast<std::size_t>(row - rowExpressions.begin())] = direction;
            } else if (bare(term) == bare(pivot)) {
                crosstab.columnOrder = direction;
            }
        }
    }
    return crosstab;
}

}  // namespace kelvora
