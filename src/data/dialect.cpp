#include "data/dialect.h"

#include "data/distinct.h"
#include "data/grouping.h"
#include "data/numbers.h"
#include "data/tokens.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <stdexcept>
#include <unordered_map>

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

std::string written(const Sql& sql) {
    struct Writer {
        std::string operator()(std::int64_t value) const { return std::to_string(value); }
        std::string operator()(double value) const { return plainText(value).toStdString(); }
        std::string operator()(const std::string& value) const {
            return '\'' + QString::fromStdString(value).replace(u'\'', QLatin1String("''")).toStdString() + '\'';
        }
    };
    std::string text;
    std::size_t from = 0;
    for (const Sql::Value& value : sql.values()) {
        const std::size_t place = sql.prepared().find('?', from);
        text.append(sql.prepared(), from, place - from).append(std::visit(Writer(), value));
        from = place + 1;
    }
    return text.append(sql.prepared(), from);
}

RunnableSql translated(const Sql& sql) {
    const std::string& text = sql.prepared();
    if (lower(text).find("year") != std::string::npos) {
        return {translate(written(sql)), {}};
    }
    constexpr std::size_t most = 256;
    thread_local std::unordered_map<std::string, std::string> known;
    auto found = known.find(text);
    if (found == known.end()) {
        if (known.size() >= most) {
            known.clear();
        }
        found = known.emplace(text, translate(text)).first;
    }
    return {found->second, sql.values()};
}

}  // namespace kelvora
