#pragma once

#include <QDate>
#include <QString>

#include <concepts>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
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
            throw "a value needs no quotes: leave them out of the literal";
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
/// The values are bound: in the statement stands "?" for each of them. Numbers have at most 15 significant digits, and
/// a whole one is a whole number for the engine too; dates are ISO text. U+0000 is left out of texts, since no other
/// program expects it in one. A number that is not finite throws std::invalid_argument. A raw string does not compile.
class Sql {
public:
    explicit Sql(Literal piece) : m_text(piece.text()) {}

    friend Sql operator<<(Sql left, Literal piece);
    friend Sql operator<<(Sql left, const Sql& right);
    friend Sql operator<<(Sql left, const QDate& date);

    template <std::same_as<QString> Text>
    friend Sql operator<<(Sql left, const Text& value) {
        left.bind(QString(value).remove(QChar(u'\0')).toStdString());
        return left;
    }
    template <std::integral Integer>
    requires(!std::same_as<Integer, bool> && !std::same_as<Integer, char>) friend Sql operator<<(Sql left,
                                                                                                 Integer value) {
        left.bind(static_cast<std::int64_t>(value));
        return left;
    }
    template <std::floating_point Number>
    friend Sql operator<<(Sql left, Number value) {
        left.bindNumber(value);
        return left;
    }

    using Value = std::variant<std::int64_t, double, std::string>;

    /// The statement as it is prepared (UTF-8), and the values for its "?".
    [[nodiscard]] const std::string& prepared() const { return m_text; }
    [[nodiscard]] const std::vector<Value>& values() const { return m_values; }

private:
    void bind(Value value);
    void bindNumber(double value);

    std::string m_text;
    std::vector<Value> m_values;
};

}  // namespace kelvora
