#pragma once

#include <QDate>
#include <QString>

#include <concepts>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

namespace kelvora {

/// A piece of a statement as it stands in the program's own text. Only a string literal becomes one, and its quotes
/// must be balanced, so that nothing a sampler typed can end up as a part of the statement itself.
class Literal {
public:
    template <std::size_t N>
    // NOLINTNEXTLINE(modernize-avoid-c-arrays): that is what a literal is
    consteval Literal(const char (&text)[N]) : m_text(text, N - 1) {
        std::size_t quotes = 0;
        for (const char c : m_text) {
            quotes += c == '\'' ? 1 : 0;
        }
        if (quotes % 2 != 0) {
            throw "a text value brings its own quotes: leave them out of the literal";
        }
    }

    [[nodiscard]] constexpr std::string_view text() const { return m_text; }

private:
    std::string_view m_text;
};

/// One statement, built from literals and typed values:
///
///     Sql("select * from state where statename = ") << name
///
/// Whole numbers and numbers are written bare (numbers in plain decimal text of at most 15 significant digits), texts
/// between single quotes with their own quotes doubled, dates as ISO text between single quotes. U+0000 is left out of
/// texts, since no statement can carry it. A number that is not finite throws std::invalid_argument.
/// A raw string does not compile.
class Sql {
public:
    explicit Sql(Literal piece) : m_text(piece.text()) {}

    friend Sql operator<<(Sql left, Literal piece);
    friend Sql operator<<(Sql left, const Sql& right);
    friend Sql operator<<(Sql left, const QDate& date);

    template <std::same_as<QString> Text>
    friend Sql operator<<(Sql left, const Text& value) {
        left.appendText(value);
        return left;
    }
    template <std::integral Integer>
    requires(!std::same_as<Integer, bool> && !std::same_as<Integer, char>) friend Sql operator<<(Sql left,
                                                                                                 Integer value) {
        left.append(std::to_string(value), static_cast<std::int64_t>(value));
        return left;
    }
    template <std::floating_point Number>
    friend Sql operator<<(Sql left, Number value) {
        left.appendNumber(value);
        return left;
    }

    /// The statement, UTF-8.
    [[nodiscard]] const std::string& text() const { return m_text; }

    using Value = std::variant<std::int64_t, double, std::string>;

    /// The statement with "?" in the place of each value, and these values: statements of one form are prepared once.
    [[nodiscard]] std::string form() const;
    [[nodiscard]] const std::vector<Value>& values() const { return m_values; }

private:
    void append(const std::string& written, Value value);
    void appendText(const QString& value);
    void appendNumber(double value);

    std::string m_text;
    std::vector<Value> m_values;
    std::vector<std::pair<std::size_t, std::size_t>> m_places;  ///< of each value in the text: begin and length
};

}  // namespace kelvora
