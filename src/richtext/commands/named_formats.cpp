#include "richtext/commands/named_formats.h"

namespace norvane {
namespace {

/// A time format without its time zone, and without what encloses or joins it.
QString withoutZone(QString format)
{
    bool quoted = false;
    for (qsizetype i = 0; i < format.size(); ++i) {
        if (format.at(i) == u'\'')
            quoted = !quoted;
        if (quoted || format.at(i) != u't')
            continue;
        qsizetype end = i;
        while (end < format.size() && format.at(end) == u't')
            ++end;
        if (i > 0 && end < format.size() && format.at(i - 1) == u'(' && format.at(end) == u')') {
            --i;
            ++end;
        }
        format.remove(i, end - i);
        return format.simplified();
    }
    return format;
}

} // namespace

std::array<QString, 3> namedDates(const QDate &date, const QLocale &locale)
{
    return {locale.toString(date, QLocale::ShortFormat), locale.toString(date, QStringLiteral("dd-MMM-yy")),
            locale.toString(date, QLocale::LongFormat)};
}

std::array<QString, 3> namedTimes(const QTime &time, const QLocale &locale)
{
    return {locale.toString(time, QLocale::ShortFormat),
            QLocale::c().toString(time, QStringLiteral("hh:mm AP")),
            locale.toString(time, withoutZone(locale.timeFormat(QLocale::LongFormat)))};
}

} // namespace norvane
