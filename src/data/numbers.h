#pragma once

#include <QString>

#include <optional>

namespace kelvora {

/// Every identifier lies between 1 and this (16 bits).
inline constexpr int kLargestKey = 32767;

/// The value of a text that is a number as a whole: optional blanks around, optional sign, digits with "." as decimal
/// point, optional exponent. Nothing for anything else ("", "abc", "1,000", "inf", "0x10") and for a number that is
/// too large for a double at 15 significant digits.
std::optional<double> toNumber(QStringView text);

/// Whether toNumber has a value for the text.
bool isNumeric(QStringView text);

/// The value of the number at the start of a text, in the form of toNumber; 0 for a text that does not start with one.
/// A number too large for a double gives an infinity, which fails every range test.
double leadingNumber(QStringView text);

/// Plain decimal text in shortest form, at most 15 significant digits: 11, 10.25, 0.00001. Values of 1e21 and more, or
/// closer to 0 than 1e-9, are written with an exponent.
QString plainText(double value);

/// Decimal text with exactly two decimals and at least one integer digit. The decimal value (at 15 significant digits)
/// is rounded, half away from zero: 1.005 gives "1.01". Never "-0.00".
QString twoDecimals(double value);

/// The value at 15 significant digits, as a person reads it: weights are compared and summed in this form, so that
/// 0.1 and 0.2 fit a total of 0.3.
double readable(double value);

}  // namespace kelvora
