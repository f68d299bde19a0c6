#pragma once

#include <string>
#include <vector>

/// The answers of the screens, asked of the engine directly: for each the best statement known.
namespace kelvora::bench {

using Statements = std::vector<std::string>;

Statements operator+(Statements left, const Statements& right);

/// The lists that screens are opened with.
Statements choices(const std::vector<std::string>& tables);
inline const std::string kSpeciesList = "SELECT fishno, genus || ' ' || fishname FROM fish WHERE fishno <> 0";

/// The years with rows of a table: the next year that has operations is sought on the date index, and of that year the
/// first operation with a row of the table.
Statements years(const std::string& table);

/// The keys of the operations that fit a condition, and the details of the first.
Statements foundBy(const std::string& condition);
/// The details of an operation, alone or with all that was sampled from it.
Statements details(int operation);
Statements samples(int operation);

inline const std::string kOfTheYear = " WHERE optdate BETWEEN '2025-01-01' AND '2025-12-31'";

/// Count, catch and share of the groups of a year: what they are called, and the tables behind fishoperation.
std::string catches(const std::string& name, const std::string& joined);
/// What a composition can be chosen by in a year: the name, the tables behind fishoperation.
std::string compositionChoices(const std::string& name, const std::string& joined);
/// Species, weight and share of a choice.
std::string composition(const std::string& joined, const std::string& condition);
std::string lengths(int species);
/// Fish by month, sex and stage: what the four tables of the gonad report are made of.
std::string gonads(int species);

/// Statements of a save, as one transaction.
Statements saved(const Statements& inserts);

}  // namespace kelvora::bench
