#include "browser/grid/note_row_texts.h"

#include "browser/grid/note_columns.h"
#include "platform/Shell.h"
#include "shell/numeric_prefix.h"
#include "watcher/classify_location.h"

namespace norvane {

namespace {

constexpr double kSecondsOfDay = 86400;

} // namespace

QString NoteDateTexts::operator()(const QDateTime &date)
{
    if (!date.isValid())
        return {};
    QString &day = m_dates[date.date()];
    if (day.isNull())
        day = m_locale.toString(date.date(), QLocale::ShortFormat) + QStringLiteral("  ");
    const QTime time = date.time();
    QString &ofDay = m_times[QTime(0, 0).secsTo(time)];
    if (ofDay.isNull())
        ofDay = m_locale.toString(time, QLocale::ShortFormat);
    return day + ofDay;
}

int wholeNumberOf(const QDateTime &date)
{
    if (!date.isValid())
        return 0;
    const QDate dayZero(1899, 12, 30);
    const auto days = static_cast<double>(dayZero.daysTo(date.date()));
    return static_cast<int>(roundHalfEven(days + QTime(0, 0).secsTo(date.time()) / kSecondsOfDay));
}

NoteType NoteTypes::operator()(const QString &location)
{
    if (location.isEmpty())
        return {QStringLiteral("Norvane"), kIconNote, {}};
    const QString shown = shellPathOf(location);
    QString &name = m_names[m_shell.typeKey(shown)];
    if (name.isNull())
        name = ClassifyLocation(m_shell, shown);
    if (shown == location && name == QStringLiteral("File Folder"))
        return {name, kIconFolder, {}};
    return {name, -1, shown};
}

} // namespace norvane
