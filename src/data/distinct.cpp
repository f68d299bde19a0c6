#include "data/distinct.h"

#include "data/schema.h"

#include <algorithm>
#include <array>
#include <optional>

namespace kelvora::dialect {
namespace {

bool isSelectDistinct(const Tokens& tokens) {
    const std::size_t select = skipSpace(tokens, 0);
    return isWord(tokens, select, "select") && isWord(tokens, skipSpace(tokens, select + 1), "distinct");
}

/// A table or column as it is called, without brackets and letter case.
std::string name(const Token& token) {
    std::string text = lower(token.text);
    std::erase_if(text, [](char c) { return c == '[' || c == ']'; });
    return text;
}

/// The positions of the next tokens that are no blanks.
template <std::size_t N>
std::array<std::size_t, N> following(const Tokens& tokens, std::size_t at) {
    std::array<std::size_t, N> found{};
    for (std::size_t& position : found) {
        position = at = skipSpace(tokens, at);
        ++at;
    }
    return found;
}

/// "a INNER JOIN b ON a.x = b.y" with nothing more to the condition.
struct PlainJoin {
    std::size_t first, second, condition, end;  ///< positions of a, b, the condition, and one behind it
};

std::optional<PlainJoin> plainJoin(const Tokens& tokens, std::size_t at) {
    const auto [a, inner, join, b, on, leftTable, leftDot, leftColumn, equals, rightTable, rightDot, rightColumn,
                next] = following<13>(tokens, at);
    const bool words = isWord(tokens, inner, "inner") && isWord(tokens, join, "join") && isWord(tokens, on, "on") &&
                       isMark(tokens, leftDot, '.') && isMark(tokens, equals, '=') && isMark(tokens, rightDot, '.');
    if (!words || rightColumn >= tokens.size() || tokens[a].kind != Kind::Word || tokens[b].kind != Kind::Word ||
        name(tokens[leftTable]) != name(tokens[a]) || name(tokens[rightTable]) != name(tokens[b])) {
        return std::nullopt;
    }
    const bool ends = next >= tokens.size() || isMark(tokens, next, ')') || isMark(tokens, next, ';') ||
                      isWord(tokens, next, "inner") || isWord(tokens, next, "where") || isWord(tokens, next, "order");
    return ends ? std::optional(PlainJoin{a, b, leftTable, rightColumn + 1}) : std::nullopt;
}

/// Whether the statement uses a table outside of a join: by its name, or one of its columns without a name.
bool usedOutside(const Tokens& tokens, const PlainJoin& join) {
    const std::string table = name(tokens[join.first]);
    std::vector<std::string> names{table};
    for (const Table& known : tables()) {
        if (lower(known.name) == table) {
            for (const std::string column : known.columns) {
                names.push_back(lower(column.substr(0, column.find(' '))));
            }
        }
    }
    for (std::size_t i = 0; i < tokens.size(); ++i) {
        const bool within = i >= join.first && i < join.end;
        const std::size_t dot = before(tokens, i);
        const bool qualified = isMark(tokens, dot, '.');
        if (!within && tokens[i].kind == Kind::Word && !qualified && std::ranges::count(names, name(tokens[i])) > 0) {
            return true;
        }
    }
    return names.size() == 1;  // not a table of ours: its columns are not known
}

void addCondition(Tokens& tokens, const std::string& condition) {
    const Clauses found = clauses(tokens);
    const auto at = [&](std::size_t k) { return tokens.begin() + static_cast<std::ptrdiff_t>(k); };
    const std::size_t end = std::min(found.order, found.end);
    if (found.where == found.end) {
        tokens.insert(at(end), {{Kind::Space, " "}, {Kind::Word, "WHERE"}, {Kind::Text, " " + condition + " "}});
        return;
    }
    tokens.insert(at(end), Token{Kind::Text, ") "});
    tokens.insert(at(found.where + 1), Token{Kind::Text, " " + condition + " AND ("});
}

}  // namespace

void semiJoin(Tokens& tokens) {
    if (!isSelectDistinct(tokens)) {
        return;
    }
    for (std::size_t i = 0; i < tokens.size(); ++i) {
        const std::optional<PlainJoin> join = tokens[i].kind == Kind::Word ? plainJoin(tokens, i) : std::nullopt;
        if (!join || usedOutside(tokens, *join)) {
            continue;
        }
        const std::string condition = "EXISTS (SELECT 1 FROM " + tokens[join->first].text + " WHERE " +
                                      joined(tokens, join->condition, join->end) + ")";
        tokens[i] = tokens[join->second];
        const auto at = [&](std::size_t k) { return tokens.begin() + static_cast<std::ptrdiff_t>(k); };
        tokens.erase(at(i + 1), at(join->end));
        addCondition(tokens, condition);
        return;
    }
}

std::string yearsSought(const Tokens& tokens, const Clauses& found) {
    if (!isSelectDistinct(tokens) || found.from == found.end || found.group != found.end) {
        return "";
    }
    const std::size_t distinct = skipSpace(tokens, skipSpace(tokens, 0) + 1);
    const auto [selected, alias] = withAlias(trimmed(joined(tokens, distinct + 1, found.from)));
    Tokens item = tokenize(selected);
    if (isMark(item, 0, '(') && closing(item, 0) + 1 == item.size()) {
        item = tokenize(trimmed(joined(item, 1, item.size() - 1)));
    }
    const std::size_t open = skipSpace(item, 1);
    const std::string years = joined(item, 0, item.size());
    const std::string order = found.order == found.end ? years : behindBy(tokens, found.order, found.end);
    if (!isWord(item, 0, "year") || !isMark(item, open, '(') || closing(item, open) + 1 != item.size() ||
        bare(order) != bare(years)) {
        return "";
    }
    const std::string date = trimmed(joined(item, open + 1, item.size() - 1));
    const std::size_t end = std::min(found.order, found.end);
    const std::string from = joined(tokens, found.from, std::min(found.where, end)) + " WHERE " +
                             (found.where >= end ? "" : "(" + joined(tokens, found.where + 1, end) + ") AND ") + date;
    const auto first = [&](const std::string& condition) {
        return "(SELECT " + date + " " + from + condition + " ORDER BY " + date + " LIMIT 1)";
    };
    // Behind a year follows the first date after its last day; behind a text that is no date, the next text.
    const std::string last = "printf('%04d" + std::string(kEndOfYear) + "', year(day))";
    const std::string next = first(" > CASE WHEN year(day) IS NULL THEN day ELSE " + last + " END");
    const std::string dates = "SELECT day FROM sought WHERE day IS NOT NULL";
    const std::string noDate = "SELECT NULL WHERE EXISTS (SELECT 1 " + from + " IS NULL)";
    return "WITH RECURSIVE sought(day) AS (SELECT " + first(" >= ''") + " UNION ALL SELECT " + next +
           " FROM sought WHERE day IS NOT NULL) SELECT DISTINCT year(day) AS \"" + (alias.empty() ? "year" : alias) +
           "\" FROM (" + dates + " UNION ALL " + noDate + ") ORDER BY 1";
}

}  // namespace kelvora::dialect
