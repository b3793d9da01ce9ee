#include "shell/numeric_prefix.h"

#include "platform/RuntimeError.h"
#include "platform/errors.h"

#include <QRegularExpression>
#include <cmath>
#include <limits>

namespace norvane {

namespace {

template <typename Integer> Integer toInteger(const QString &text)
{
    const double value = std::nearbyint(numericPrefix(text));
    if (value < static_cast<double>(std::numeric_limits<Integer>::min()) ||
        value > static_cast<double>(std::numeric_limits<Integer>::max()))
        throw RuntimeError(kErrorOverflow, QStringLiteral("Overflow"));
    return static_cast<Integer>(value);
}

} // namespace

double numericPrefix(const QString &text)
{
    static const QRegularExpression number(
        QStringLiteral("^\\s*([+-]?(?:[0-9]+\\.?[0-9]*|\\.[0-9]+)(?:[eE][+-]?[0-9]+)?)"));
    const QRegularExpressionMatch match = number.match(text);
    return match.hasMatch() ? match.captured(1).toDouble() : 0.0;
}

int numericPrefixInt(const QString &text)
{
    return toInteger<int>(text);
}

qint16 numericPrefixInt16(const QString &text)
{
    return toInteger<qint16>(text);
}

qint64 roundHalfEven(double value)
{
    // The default rounding mode is to nearest, halves to even.
    return static_cast<qint64>(std::nearbyint(value));
}

} // namespace norvane
