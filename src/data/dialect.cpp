#include "data/dialect.h"

#include "data/distinct.h"
#include "data/grouping.h"
#include "data/tokens.h"

#include <algorithm>
#include <array>
#include <cctype>

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

}  // namespace kelvora
