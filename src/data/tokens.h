#pragma once

#include <string>
#include <utility>
#include <vector>

/// A statement taken apart, for the dialect layer alone.
namespace kelvora::dialect {

enum class Kind { Space, Word, Text, Mark };

struct Token {
    Kind kind = Kind::Space;
    std::string text;
};

using Tokens = std::vector<Token>;

/// The places where the clauses of a statement begin, at its outermost level; the end for one that it does not have.
struct Clauses {
    std::size_t from, where, group, order, pivot, end;
};

Tokens tokenize(const std::string& statement);
Clauses clauses(const Tokens& tokens);

std::string lower(std::string text);
std::string trimmed(const std::string& text);
std::string joined(const Tokens& tokens, std::size_t first, std::size_t last);
/// What stands behind "GROUP BY" or "ORDER BY" at a position, up to an end.
std::string behindBy(const Tokens& tokens, std::size_t clause, std::size_t end);
/// An expression without blanks and letter case, to find it again elsewhere in the statement.
std::string bare(const std::string& expression);

bool isMark(const Tokens& tokens, std::size_t at, char mark);
bool isWord(const Tokens& tokens, std::size_t at, const char* word);
std::size_t skipSpace(const Tokens& tokens, std::size_t at);
/// The token in front of a position that is no blank; tokens.size() if there is none.
std::size_t before(const Tokens& tokens, std::size_t at);
/// The closing parenthesis of the one opened at a position, and the other way; tokens.size() if it is missing.
std::size_t closing(const Tokens& tokens, std::size_t open);
std::size_t opening(const Tokens& tokens, std::size_t close);

/// The parts of a list between its outermost commas.
std::vector<std::string> listed(const std::string& list);
/// An expression and the alias behind it (without the alias' quotes); the alias is empty if there is none.
std::pair<std::string, std::string> withAlias(const std::string& text);

}  // namespace kelvora::dialect
