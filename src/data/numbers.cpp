#include "data/numbers.h"

#include <QLocale>

#include <array>
#include <charconv>
#include <cmath>
#include <limits>

using namespace Qt::StringLiterals;

namespace kelvora {
namespace {

constexpr int kSignificantDigits = 15;
constexpr double kExactlyWhole = 1e15;  // from here on a number of so many digits has no decimals

qsizetype skipDigits(QStringView text, qsizetype at) {
    while (at < text.size() && text[at] >= u'0' && text[at] <= u'9') {
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

}  // namespace

std::optional<double> toNumber(QStringView text) {
    const QStringView number = text.trimmed();
    const qsizetype length = numberLength(number);
    if (length == 0 || length != number.size()) {
        return std::nullopt;
    }
    // Too large a number reads as an infinity, too small a one as 0.
    const double value = number.toDouble();
    return std::isfinite(readable(value)) ? std::optional(value) : std::nullopt;
}

bool isNumeric(QStringView text) {
    return toNumber(text).has_value();
}

double leadingNumber(QStringView text) {
    const QStringView number = text.trimmed();
    const qsizetype length = numberLength(number);
    const double value = length == 0 ? 0 : number.first(length).toDouble();
    return std::isfinite(readable(value)) ? value : readable(value);
}

QString plainText(double value) {
    const double read = readable(value);
    const double size = std::fabs(read);
    if (std::isnan(read) || size == 0) {
        return std::isnan(read) ? QString() : u"0"_s;
    }
    if (size < 1e-9 || size >= 1e21) {
        return QString::number(read, 'g', kSignificantDigits);
    }
    if (size >= kExactlyWhole) {
        return QString::number(read, 'f', QLocale::FloatingPointShortest);
    }
    std::array<char, 32> text{};
    const auto end = std::to_chars(text.begin(), text.end(), read, std::chars_format::fixed).ptr;
    return QString::fromLatin1(text.data(), end - text.begin());
}

QString twoDecimals(double value) {
    const double size = std::fabs(readable(value));
    if (!std::isfinite(size)) {
        return plainText(value);
    }
    const bool whole = size >= kExactlyWhole;
    const double hundredths = whole ? size : std::round(readable(size * 100));
    QString text = hundredths < kExactlyWhole ? QString::number(std::llround(hundredths))
                                              : QString::number(hundredths, 'f', QLocale::FloatingPointShortest);
    text = whole ? text + u"00"_s : text.rightJustified(3, u'0');
    text.insert(text.size() - 2, u'.');
    return value < 0 && hundredths > 0 ? u'-' + text : text;
}

double readable(double value) {
    if (value == std::trunc(value) && std::fabs(value) < kExactlyWhole) {
        return value;  // most of an import are whole numbers, which need no digits left out
    }
    std::array<char, 32> text{};
    const auto end =
        std::to_chars(text.begin(), text.end(), value, std::chars_format::scientific, kSignificantDigits - 1).ptr;
    double read = std::copysign(std::numeric_limits<double>::infinity(), value);  // if that is too large a number
    std::from_chars(text.begin(), end, read);
    return read;
}

}  // namespace kelvora
