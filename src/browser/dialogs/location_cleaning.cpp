#include "browser/dialogs/location_cleaning.h"

#include "shell/path_rules.h"
#include "watcher/titles.h"

namespace norvane {

namespace {

constexpr QChar kDriveSeparator(u'\\');

bool beginsWithDrive(const QString &text)
{
    return text.size() >= 2 && text.at(0).isLetter() && text.at(1) == u':';
}

QString withoutLastSeparator(const QString &path)
{
    const bool isAddress = path.contains(QStringLiteral("://"));
    const QChar last = path.back();
    const bool separated = last == kDriveSeparator || (last == pathSeparator() && !isAddress);
    const bool isRoot = path.size() < 2 || path.chopped(1).endsWith(u':');
    return separated && !isRoot ? path.chopped(1) : path;
}

} // namespace

QString cleanLocation(const QString &text)
{
    QString location = trimBlanks(text);
    if (location.isEmpty())
        return location;
    // What has no drives has no bare drive letters, either, but folders whose names end so.
    if (location.endsWith(u':') && (pathRoot().isEmpty() || beginsWithDrive(location)))
        location += kDriveSeparator;
    if (location.startsWith(QStringLiteral("www."), Qt::CaseInsensitive))
        location.prepend(QStringLiteral("http://"));
    return withoutLastSeparator(location).remove(u'"');
}

} // namespace norvane
