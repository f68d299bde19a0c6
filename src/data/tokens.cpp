#include "data/tokens.h"

#include <algorithm>
#include <cctype>

namespace kelvora::dialect {
namespace {

bool isWordCharacter(char c) {
    return std::isalnum(static_cast<unsigned char>(c)) != 0 || c == '_' || static_cast<unsigned char>(c) >= 0x80;
}

/// Where the quoted text that begins at a position ends (behind its closing quote, doubled quotes belonging to it).
std::size_t endOfText(const std::string& statement, std::size_t start) {
    const char quote = statement[start];
    for (std::size_t at = start + 1; at < statement.size(); ++at) {
        if (statement[at] != quote) {
            continue;
        }
        if (at + 1 < statement.size() && statement[at + 1] == quote) {
            ++at;
            continue;
        }
        return at + 1;
    }
    return statement.size();
}

}  // namespace

std::string lower(std::string text) {
    std::ranges::transform(text, text.begin(), [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return text;
}

Tokens tokenize(const std::string& statement) {
    Tokens tokens;
    std::size_t at = 0;
    while (at < statement.size()) {
        const char c = statement[at];
        std::size_t end = at + 1;
        Kind kind = Kind::Mark;
        const auto take = [&](auto belongs) {
            while (end < statement.size() && belongs(statement[end])) {
                ++end;
            }
        };
        if (std::isspace(static_cast<unsigned char>(c)) != 0) {
            kind = Kind::Space;
            take([](char x) { return std::isspace(static_cast<unsigned char>(x)) != 0; });
        } else if (c == '\'' || c == '"') {
            kind = Kind::Text;
            end = endOfText(statement, at);
        } else if (c == '[') {
            kind = Kind::Word;
            const std::size_t close = statement.find(']', at);
            end = close == std::string::npos ? statement.size() : close + 1;
        } else if (isWordCharacter(c)) {
            kind = Kind::Word;
            take(isWordCharacter);
        }
        tokens.push_back({kind, statement.substr(at, end - at)});
        at = end;
    }
    return tokens;
}

std::string joined(const Tokens& tokens, std::size_t first, std::size_t last) {
    std::string text;
    for (std::size_t i = first; i < last; ++i) {
        text += tokens[i].text;
    }
    return text;
}

bool isMark(const Tokens& tokens, std::size_t at, char mark) {
    return at < tokens.size() && tokens[at].kind == Kind::Mark && tokens[at].text[0] == mark;
}

bool isWord(const Tokens& tokens, std::size_t at, const char* word) {
    return at < tokens.size() && tokens[at].kind == Kind::Word && lower(tokens[at].text) == word;
}

std::size_t skipSpace(const Tokens& tokens, std::size_t at) {
    while (at < tokens.size() && tokens[at].kind == Kind::Space) {
        ++at;
    }
    return at;
}

std::size_t before(const Tokens& tokens, std::size_t at) {
    while (at > 0) {
        --at;
        if (tokens[at].kind != Kind::Space) {
            return at;
        }
    }
    return tokens.size();
}

std::size_t closing(const Tokens& tokens, std::size_t open) {
    int depth = 0;
    for (std::size_t i = open; i < tokens.size(); ++i) {
        depth += isMark(tokens, i, '(') ? 1 : isMark(tokens, i, ')') ? -1 : 0;
        if (depth == 0) {
            return i;
        }
    }
    return tokens.size();
}

std::size_t opening(const Tokens& tokens, std::size_t close) {
    int depth = 0;
    for (std::size_t i = close + 1; i-- > 0;) {
        depth += isMark(tokens, i, ')') ? 1 : isMark(tokens, i, '(') ? -1 : 0;
        if (depth == 0) {
            return i;
        }
    }
    return tokens.size();
}

Clauses clauses(const Tokens& tokens) {
    std::size_t end = tokens.size();
    while (end > 0 && (tokens[end - 1].kind == Kind::Space || isMark(tokens, end - 1, ';'))) {
        --end;
    }
    Clauses found{end, end, end, end, end, end};
    int depth = 0;
    for (std::size_t i = 0; i < end; ++i) {
        depth += isMark(tokens, i, '(') ? 1 : isMark(tokens, i, ')') ? -1 : 0;
        if (depth != 0 || tokens[i].kind != Kind::Word) {
            continue;
        }
        const bool by = isWord(tokens, skipSpace(tokens, i + 1), "by");
        if (isWord(tokens, i, "from")) {
            found.from = std::min(found.from, i);
        } else if (isWord(tokens, i, "where")) {
            found.where = std::min(found.where, i);
        } else if (by && isWord(tokens, i, "group")) {
            found.group = i;
        } else if (by && isWord(tokens, i, "order")) {
            found.order = i;
        } else if (isWord(tokens, i, "pivot")) {
            found.pivot = i;
        }
    }
    return found;
}

std::string behindBy(const Tokens& tokens, std::size_t clause, std::size_t end) {
    return joined(tokens, skipSpace(tokens, clause + 1) + 1, end);
}

std::string trimmed(const std::string& text) {
    const std::size_t first = text.find_first_not_of(" \t\r\n");
    return first == std::string::npos ? "" : text.substr(first, text.find_last_not_of(" \t\r\n") - first + 1);
}

std::vector<std::string> listed(const std::string& list) {
    std::vector<std::string> parts(1);
    int depth = 0;
    for (const Token& token : tokenize(list)) {
        const char mark = token.kind == Kind::Mark ? token.text[0] : '\0';
        depth += mark == '(' ? 1 : mark == ')' ? -1 : 0;
        if (mark == ',' && depth == 0) {
            parts.emplace_back();
        } else {
            parts.back() += token.text;
        }
    }
    std::ranges::transform(parts, parts.begin(), trimmed);
    return parts;
}

std::pair<std::string, std::string> withAlias(const std::string& text) {
    const Tokens tokens = tokenize(text);
    for (std::size_t i = 0; i < tokens.size(); ++i) {
        if (isWord(tokens, i, "as")) {
            std::string alias = joined(tokens, skipSpace(tokens, i + 1), tokens.size());
            if (alias.size() >= 2 && (alias[0] == '\'' || alias[0] == '[')) {
                alias = alias.substr(1, alias.size() - 2);
            }
            return {trimmed(joined(tokens, 0, i)), alias};
        }
    }
    return {text, ""};
}

std::string bare(const std::string& expression) {
    std::string text = lower(expression);
    std::erase_if(text, [](unsigned char c) { return std::isspace(c) != 0; });
    return text;
}

}  // namespace kelvora::dialect
