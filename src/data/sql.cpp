#include "data/sql.h"

#include "data/dates.h"
#include "data/numbers.h"

#include <cmath>
#include <stdexcept>

namespace kelvora {

Sql operator<<(Sql left, Literal piece) {
    left.m_text += piece.text();
    return left;
}

Sql operator<<(Sql left, const Sql& right) {
    for (const auto& [begin, length] : right.m_places) {
        left.m_places.emplace_back(left.m_text.size() + begin, length);
    }
    left.m_values.insert(left.m_values.end(), right.m_values.begin(), right.m_values.end());
    left.m_text += right.m_text;
    return left;
}

Sql operator<<(Sql left, const QDate& date) {
    left.appendText(isoText(date));
    return left;
}

std::string Sql::form() const {
    std::string form;
    std::size_t from = 0;
    for (const auto& [begin, length] : m_places) {
        form.append(m_text, from, begin - from).append("?");
        from = begin + length;
    }
    return form.append(m_text, from);
}

void Sql::append(const std::string& written, Value value) {
    m_places.emplace_back(m_text.size(), written.size());
    m_values.push_back(std::move(value));
    m_text += written;
}

void Sql::appendText(const QString& value) {
    std::string plain;
    std::string quoted = "'";
    for (const char c : value.toUtf8()) {
        if (c == '\0') {
            continue;
        }
        plain += c;
        quoted += c;
        if (c == '\'') {
            quoted += c;
        }
    }
    append(quoted + '\'', std::move(plain));
}

void Sql::appendNumber(double value) {
    // The largest numbers of all are no numbers any more when they are written with fifteen digits.
    if (!std::isfinite(asRead(value))) {
        throw std::invalid_argument("a number in a statement must be finite");
    }
    // As it is written: a whole number without a decimal point is one for the engine too.
    constexpr double exactlyWritten = 1e15;
    const QString written = plainText(value);
    const double read = written.toDouble();
    if (read == std::floor(read) && std::fabs(read) < exactlyWritten) {
        append(written.toStdString(), static_cast<std::int64_t>(read));
    } else {
        append(written.toStdString(), read);
    }
}

}  // namespace kelvora
