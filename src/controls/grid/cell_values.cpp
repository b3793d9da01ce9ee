#include "controls/grid/cell_values.h"

#include <QLocale>
#include <cmath>

namespace norvane {

namespace {

constexpr qint64 kFirstDay = 2415019; // Julian day of December 30, 1899
constexpr double kMillisecondsOfDay = 86'400'000;

std::optional<QString> formattedDate(const QDateTime &date, const QString &format)
{
    const QLocale locale;
    if (format == QLatin1String("short date"))
        return locale.toString(date.date(), QLocale::ShortFormat);
    if (format == QLatin1String("long date"))
        return locale.toString(date.date(), QLocale::LongFormat);
    if (format == QLatin1String("short time"))
        return locale.toString(date.time(), QLocale::ShortFormat);
    if (format == QLatin1String("long time"))
        return locale.toString(date.time(), QStringLiteral("HH:mm:ss"));
    return {};
}

std::optional<QString> formattedNumber(double number, QString format)
{
    QLocale locale;
    if (format.startsWith(QLatin1String("#,##")))
        format.remove(0, 4);
    else
        locale.setNumberOptions(QLocale::OmitGroupSeparator);
    if (!format.startsWith(u'0'))
        return {};
    const int decimals = std::max(0, static_cast<int>(format.size()) - 2);
    if (format != QLatin1String("0") && format != QLatin1String("0.") + QString(decimals, u'0'))
        return {};
    return locale.toString(number, 'f', decimals);
}

} // namespace

double dateNumber(const QDateTime &date)
{
    return static_cast<double>(date.date().toJulianDay() - kFirstDay) +
           date.time().msecsSinceStartOfDay() / kMillisecondsOfDay;
}

DayAndTime dayAndTime(double number)
{
    const double day = std::floor(number);
    const QDate date = QDate::fromJulianDay(static_cast<qint64>(day) + kFirstDay);
    const double milliseconds = std::round((number - day) * kMillisecondsOfDay);
    if (milliseconds >= kMillisecondsOfDay)
        return {date.addDays(1), 0};
    return {date, static_cast<int>(milliseconds)};
}

QDateTime dateOfNumber(double number)
{
    const DayAndTime of = dayAndTime(number);
    return QDateTime(of.day, QTime::fromMSecsSinceStartOfDay(of.milliseconds));
}

KeptValue keptValue(const QVariant &value)
{
    if (!value.isValid() || value.isNull())
        return {};
    switch (value.typeId()) {
    case QMetaType::Bool:
        return {CellKind::Boolean, value.toBool() ? -1.0 : 0.0, {}};
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::LongLong:
    case QMetaType::ULongLong:
    case QMetaType::Short:
    case QMetaType::UShort:
        return {CellKind::Whole, value.toDouble(), {}};
    case QMetaType::Double:
    case QMetaType::Float:
        return {CellKind::Real, value.toDouble(), {}};
    case QMetaType::QDate:
    case QMetaType::QDateTime: {
        const QDateTime date = value.toDateTime();
        return date.isValid() ? KeptValue{CellKind::Date, dateNumber(date), {}} : KeptValue{};
    }
    default:
        return {CellKind::Text, 0, value.toString()};
    }
}

QVariant variantOf(const CellValue &value)
{
    switch (value.kind) {
    case CellKind::Unset:
        break;
    case CellKind::Text:
        return *value.text;
    case CellKind::Whole:
        if (std::abs(value.number) <= std::numeric_limits<int>::max())
            return static_cast<int>(value.number);
        return static_cast<qint64>(value.number);
    case CellKind::Real:
        return value.number;
    case CellKind::Date:
        return dateOfNumber(value.number);
    case CellKind::Boolean:
        return value.number != 0;
    }
    return {};
}

QString valueText(const CellValue &value)
{
    switch (value.kind) {
    case CellKind::Whole:
    case CellKind::Real:
        return QString::number(value.number, 'g', 15);
    case CellKind::Date: {
        const QDateTime date = dateOfNumber(value.number);
        const QString day = QLocale().toString(date.date(), QLocale::ShortFormat);
        if (date.time().msecsSinceStartOfDay() == 0)
            return day;
        return day + u' ' + date.time().toString(QStringLiteral("HH:mm:ss"));
    }
    case CellKind::Boolean:
        return value.number != 0 ? QStringLiteral("True") : QStringLiteral("False");
    case CellKind::Text:
    case CellKind::Unset:
        break;
    }
    return *value.text;
}

QString formattedValue(const CellValue &value, const QString &format)
{
    std::optional<QString> formatted;
    if (!format.isEmpty() && value.isDate())
        formatted = formattedDate(dateOfNumber(value.number), format.toLower());
    else if (!format.isEmpty() && (value.kind == CellKind::Whole || value.kind == CellKind::Real))
        formatted = formattedNumber(value.number, format);
    return formatted ? *formatted : valueText(value);
}

std::optional<double> valueNumber(const CellValue &value)
{
    if (value.kind != CellKind::Text)
        return value.number;
    bool isNumber = false;
    const double number = value.text->trimmed().toDouble(&isNumber);
    return isNumber && std::isfinite(number) ? std::optional(number) : std::nullopt;
}

} // namespace norvane
