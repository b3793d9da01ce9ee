#include "browser/dialogs/byte_size.h"

#include "shell/numeric_prefix.h"

#include <cmath>

namespace norvane {

namespace {

constexpr int kBytesOfKb = 1024;
constexpr int kMaskDecimals = 10;
constexpr int kDigits = 15; // that a double keeps

/// By the mask "###,###,###.##########": no digit stands there that says nothing, but always the point.
QString masked(double number, const QLocale &locale)
{
    const QString plain = QString::number(std::abs(number), 'f', kMaskDecimals);
    const qsizetype point = plain.indexOf(u'.');
    QString whole = plain.left(point);
    QString fraction = plain.mid(point + 1);
    if (whole == u'0')
        whole.clear();
    while (fraction.endsWith(u'0'))
        fraction.chop(1);
    constexpr qsizetype kGroup = 3;
    for (qsizetype place = whole.size() - kGroup; place > 0; place -= kGroup)
        whole.insert(place, locale.groupSeparator());
    return (number < 0 ? locale.negativeSign() : QString()) + whole + locale.decimalPoint() + fraction;
}

} // namespace

QString FormatByteSize(double bytes, int unit, bool suffix, bool mask, int decimals, const QLocale &locale)
{
    const QStringView units[] = {u" Kb", u" Mb", u" Gb", u" Tb"};
    if (unit < 0 || unit >= static_cast<int>(std::size(units)))
        return {};
    const double scale = std::pow(10.0, decimals);
    const double inUnit = bytes / std::pow(kBytesOfKb, unit + 1);
    const double rounded = static_cast<double>(roundHalfEven(inUnit * scale)) / scale;
    QString text = mask ? masked(rounded, locale) : QString::number(rounded, 'g', kDigits);
    if (suffix)
        text += units[unit];
    return text;
}

QString fileSizeText(qint64 bytes, const QLocale &locale)
{
    if (bytes < 0)
        return QStringLiteral("0 Byte");
    if (bytes < kBytesOfKb)
        return QStringLiteral("%1 Bytes").arg(bytes);
    return FormatByteSize(static_cast<double>(bytes), 0, true, true, 1, locale);
}

} // namespace norvane
