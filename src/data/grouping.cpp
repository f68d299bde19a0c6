#include "data/grouping.h"

#include "data/schema.h"

#include <algorithm>

namespace kelvora::dialect {
namespace {

/// The column of a table that is its whole-number key; empty if it has none.
std::string keyOf(const std::string& table) {
    for (const Table& known : tables()) {
        for (const std::string column : lower(known.name) == table ? known.columns : std::vector<const char*>()) {
            if (column.ends_with(" INTEGER PRIMARY KEY")) {
                return column.substr(0, column.find(' '));
            }
        }
    }
    return "";
}

/// The table of all columns that are joined to a text; empty for another expression.
std::string tableOfText(const Tokens& expression) {
    std::string table;
    bool text = false;
    for (std::size_t i = 0; i < expression.size(); ++i) {
        text = text || isMark(expression, i, '&');
        if (expression[i].kind != Kind::Word || isMark(expression, before(expression, i), '.')) {
            continue;
        }
        const std::string found = lower(expression[i].text);
        if (!isMark(expression, i + 1, '.') || (!table.empty() && found != table)) {
            return "";
        }
        table = found;
    }
    return text ? table : "";
}

/// The selected columns with "Sum(x)" replaced by the sum of the parts; empty unless there is one x, and everything
/// else is made of the table's columns and format().
std::string ofParts(const Tokens& selected, const std::string& table, std::string& summed) {
    std::string text;
    for (std::size_t i = 0; i < selected.size(); ++i) {
        const std::size_t open = skipSpace(selected, i + 1);
        if (isWord(selected, i, "sum") && isMark(selected, open, '(')) {
            const std::size_t close = closing(selected, open);
            const std::string found = joined(selected, open + 1, close);
            if (close == selected.size() || (!summed.empty() && bare(found) != bare(summed))) {
                return "";
            }
            summed = found;
            text += "Sum(parts.part)";
            i = close;
            continue;
        }
        const std::size_t previous = before(selected, i);
        const bool known = selected[i].kind != Kind::Word || isMark(selected, previous, '.') ||
                           isWord(selected, i, "as") || isWord(selected, previous, "as") ||
                           (isWord(selected, i, "format") && isMark(selected, open, '(')) ||
                           (isWord(selected, i, table.c_str()) && isMark(selected, i + 1, '.')) ||
                           selected[i].text.find_first_not_of("0123456789") == std::string::npos;
        if (!known) {
            return "";
        }
        text += selected[i].text;
    }
    return summed.empty() ? "" : text;
}

}  // namespace

void sumByKey(Tokens& tokens) {
    const Clauses found = clauses(tokens);
    const std::size_t select = skipSpace(tokens, 0);
    const std::size_t end = std::min(found.order, found.end);
    if (!isWord(tokens, select, "select") || found.group == found.end || found.pivot != found.end ||
        found.order < found.group) {
        return;
    }
    const std::string group = behindBy(tokens, found.group, end);
    const std::string table = tableOfText(tokenize(group));
    const std::string key = keyOf(table);
    std::string summed;
    const std::string selected = key.empty() ? ""
                                             : ofParts(Tokens(tokens.begin() + static_cast<std::ptrdiff_t>(select) + 1,
                                                              tokens.begin() + static_cast<std::ptrdiff_t>(found.from)),
                                                       table, summed);
    if (selected.empty()) {
        return;
    }
    const std::string column = table + "." + key;
    tokens =
        tokenize("SELECT" + selected + "FROM (SELECT " + column + " AS groupkey, Sum(" + summed + ") AS part " +
                 joined(tokens, found.from, found.group) + " GROUP BY " + column + ") AS parts INNER JOIN " + table +
                 " ON " + column + " = parts.groupkey GROUP BY " + group + joined(tokens, end, tokens.size()));
}

}  // namespace kelvora::dialect
