#include "data/sql.h"

#include "data/numbers.h"

#include <cmath>
#include <stdexcept>
#include <utility>

namespace kelvora {

Sql operator<<(Sql left, Literal piece) {
    left.m_text += piece.text();
    return left;
}

Sql operator<<(Sql left, const Sql& right) {
    left.m_text += right.m_text;
    left.m_values.insert(left.m_values.end(), right.m_values.begin(), right.m_values.end());
    return left;
}

Sql operator<<(Sql left, const QDate& date) {
    return std::move(left) << date.toString(Qt::ISODate);
}

void Sql::bind(Value value) {
    m_text += '?';
    m_values.push_back(std::move(value));
}

void Sql::bindNumber(double value) {
    // The largest numbers of all are no numbers any more with fifteen digits.
    const double read = readable(value);
    if (!std::isfinite(read)) {
        throw std::invalid_argument("a number in a statement must be finite");
    }
    constexpr double exactlyWhole = 1e15;
    if (read == std::floor(read) && std::fabs(read) < exactlyWhole) {
        bind(static_cast<std::int64_t>(read));
    } else {
        bind(read);
    }
}

}  // namespace kelvora
