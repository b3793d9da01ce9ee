#pragma once

#include <QString>

namespace norvane {

/// The one rule by which text becomes a number: blanks in front are passed over, a sign and leading
/// digits are taken, conversion stops at the first character that is no part of a number, no digit
/// gives 0. Decimal point and exponent belong to a number.
double numericPrefix(const QString &text);

/// numericPrefix() rounded to a whole number (halves to even). Raises 6 when it does not fit.
int numericPrefixInt(const QString &text);

/// numericPrefix() as a 16-bit whole number. Raises 6 when it does not fit.
qint16 numericPrefixInt16(const QString &text);

/// Rounds to the nearest whole number, halves to even.
qint64 roundHalfEven(double value);

} // namespace norvane
