#include "data/numbers.h"

#include <array>
#include <charconv>
#include <cmath>
#include <string>

using namespace Qt::StringLiterals;

namespace kelvora {
namespace {

bool isDigit(QChar c) {
    return c >= u'0' && c <= u'9';
}

qsizetype skipDigits(QStringView text, qsizetype at) {
    while (at < text.size() && isDigit(text[at])) {
        ++at;
    }
    return at;
}

/// How many characters of a text (already without blanks in front) belong to the number it starts with; 0 for none.
qsizetype numberLength(QStringView text) {
    qsizetype at = !text.isEmpty() && (text[0] == u'+' || text[0] == u'-') ? 1 : 0;
    const qsizetype integerStart = at;
    at = skipDigits(text, at);
    qsizetype digits = at - integerStart;
    if (at < text.size() && text[at] == u'.') {
        const qsizetype end = skipDigits(text, at + 1);
        digits += end - at - 1;
        at = digits > 0 ? end : at;
    }
    if (digits == 0) {
        return 0;
    }
    if (at < text.size() && (text[at] == u'e' || text[at] == u'E')) {
        const bool sign = at + 1 < text.size() && (text[at + 1] == u'+' || text[at + 1] == u'-');
        const qsizetype exponent = at + (sign ? 2 : 1);
        const qsizetype end = skipDigits(text, exponent);
        at = end > exponent ? end : at;
    }
    return at;
}

/// The significant decimal digits of a finite value and the power of ten of the first one.
struct Decimal {
    bool negative = false;
    std::string digits;
    int exponent = 0;
};

constexpr int kSignificantDigits = 15;

/// "1.25000000000000e+01" for 12.5. The one place that rounds to the significant digits.
std::string scientific(double value) {
    std::array<char, 32> text{};
    const auto end = std::to_chars(text.data(), text.data() + text.size(), value, std::chars_format::scientific,
                                   kSignificantDigits - 1)
                         .ptr;
    return {text.data(), end};
}

Decimal decimal(double value) {
    const std::string written = scientific(std::fabs(value));
    const std::size_t e = written.find('e');
    Decimal result;
    result.negative = std::signbit(value) && value != 0;
    result.digits = written.substr(0, 1) + written.substr(2, e - 2);
    result.exponent = std::stoi(written.substr(e + 1));
    while (result.digits.size() > 1 && result.digits.back() == '0') {
        result.digits.pop_back();
    }
    return result;
}

/// Digits and exponent written out without an exponent.
std::string writtenOut(const Decimal& d) {
    const int integerDigits = d.exponent + 1;
    const int count = static_cast<int>(d.digits.size());
    if (integerDigits <= 0) {
        return "0." + std::string(static_cast<std::size_t>(-integerDigits), '0') + d.digits;
    }
    if (integerDigits >= count) {
        return d.digits + std::string(static_cast<std::size_t>(integerDigits - count), '0');
    }
    const auto split = static_cast<std::size_t>(integerDigits);
    return d.digits.substr(0, split) + "." + d.digits.substr(split);
}

/// Digits and exponent as "1.5e+21".
std::string withExponent(const Decimal& d) {
    const std::string exponent = std::to_string(std::abs(d.exponent));
    return d.digits.substr(0, 1) + (d.digits.size() > 1 ? "." + d.digits.substr(1) : "") + "e" +
           (d.exponent < 0 ? "-" : "+") + (exponent.size() < 2 ? "0" : "") + exponent;
}

/// Adds one to the last digit of a text of digits.
std::string plusOne(std::string digits) {
    for (std::size_t i = digits.size(); i-- > 0;) {
        if (digits[i] != '9') {
            ++digits[i];
            return digits;
        }
        digits[i] = '0';
    }
    return "1" + digits;
}

}  // namespace

std::optional<double> toNumber(QStringView text) {
    const QStringView number = text.trimmed();
    const qsizetype length = numberLength(number);
    if (length == 0 || length != number.size()) {
        return std::nullopt;
    }
    // Too large a number reads as an infinity, too small a one as 0.
    const double value = number.toDouble();
    return std::isfinite(asRead(value)) ? std::optional(value) : std::nullopt;
}

bool isNumeric(QStringView text) {
    return toNumber(text).has_value();
}

double leadingNumber(QStringView text) {
    const QStringView number = text.trimmed();
    const qsizetype length = numberLength(number);
    const double value = length == 0 ? 0 : number.first(length).toDouble();
    return std::isfinite(asRead(value)) ? value : asRead(value);
}

QString plainText(double value) {
    if (!std::isfinite(value)) {
        return std::isnan(value) ? QString() : QString::fromLatin1(value < 0 ? "-inf" : "inf");
    }
    if (value == 0) {
        return u"0"_s;
    }
    const Decimal d = decimal(value);
    const bool extreme = d.exponent >= 21 || d.exponent < -9;
    return QString::fromStdString((d.negative ? "-" : "") + (extreme ? withExponent(d) : writtenOut(d)));
}

QString twoDecimals(double value) {
    if (!std::isfinite(value)) {
        return plainText(value);
    }
    const Decimal d = decimal(value);
    // The value in hundredths: its digits up to the second decimal, rounded by the digit behind.
    const int kept = d.exponent + 3;
    std::string hundredths;
    if (kept >= 0) {
        const auto count = static_cast<std::size_t>(kept);
        hundredths = d.digits.substr(0, count);
        hundredths.resize(count, '0');
        if (count < d.digits.size() && d.digits[count] >= '5') {
            hundredths = plusOne(hundredths);
        }
    }
    if (hundredths.size() < 3) {
        hundredths.insert(0, 3 - hundredths.size(), '0');
    }
    const bool zero = hundredths.find_first_not_of('0') == std::string::npos;
    hundredths.insert(hundredths.size() - 2, ".");
    return QString::fromStdString((d.negative && !zero ? "-" : "") + hundredths);
}

double asRead(double value) {
    constexpr double fifteenDigits = 1e15;
    if (value == std::trunc(value) && std::fabs(value) < fifteenDigits) {
        return value;  // most of an import are whole numbers, which need no digits left out
    }
    return std::isfinite(value) ? QString::fromStdString(scientific(value)).toDouble() : value;
}

}  // namespace kelvora
