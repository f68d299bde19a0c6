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
    left.m_text += right.m_text;
    return left;
}

Sql operator<<(Sql left, const QDate& date) {
    left.appendText(isoText(date));
    return left;
}

void Sql::appendText(const QString& value) {
    m_text += '\'';
    for (const char c : value.toUtf8()) {
        if (c == '\0') {
            continue;
        }
        m_text += c;
        if (c == '\'') {
            m_text += c;
        }
    }
    m_text += '\'';
}

void Sql::appendNumber(double value) {
    // The largest numbers of all are no numbers any more when they are written with fifteen digits.
    if (!std::isfinite(asRead(value))) {
        throw std::invalid_argument("a number in a statement must be finite");
    }
    m_text += plainText(value).toStdString();
}

}  // namespace kelvora
