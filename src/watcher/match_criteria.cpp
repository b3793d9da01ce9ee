#include "watcher/match_criteria.h"

#include "watcher/WatchSettings.h"
#include "watcher/classify_location.h"
#include "watcher/clsWindows.h"
#include "watcher/titles.h"
#include "watcher/window_location.h"

#include <limits>

namespace norvane {

namespace {

bool isFolderWindow(const clsWindow &window)
{
    return window.ClassName == QStringLiteral("ExploreWClass") ||
           window.ClassName == QStringLiteral("CabinetWClass");
}

/// How much of a title tells the document: up to and with the first separator.
qsizetype significantLength(const QString &title)
{
    for (const QChar separator : {u'-', u':', u'|'}) {
        const qsizetype at = title.indexOf(separator);
        if (at >= 0)
            return at + 1;
    }
    return title.size();
}

QString partialCondition(const QString &strippedTitle, qsizetype length, const QString &location)
{
    return QStringLiteral("left(LocationName,") + QString::number(length) + QStringLiteral(")=\"") +
           strippedTitle.left(length) + QStringLiteral("\" or instr(1,\"") + location +
           QStringLiteral("\",URL)<>0");
}

QString titleCondition(const QString &title, const QString &friendlyTitle)
{
    return QStringLiteral("WindowName=\"") + title + QStringLiteral("\" or FriendlyName=\"") + friendlyTitle +
           QStringLiteral("\"");
}

} // namespace

MatchFacts matchFacts(const clsWindow &window, const WindowSystem &windows, const WindowLocation &location,
                      const Shell &shell, const WatchSettings &settings)
{
    MatchFacts facts;
    facts.isDocumentWindow = location.IsDocumentWindow(window.hWnd);
    if (isFolderWindow(window) && settings.ExactWindowName)
        facts.locationKind = ClassifyLocation(shell, trimBlanks(window.DocumentName));
    facts.friendlyTitle = strippedTitle(windows, trimBlanks(window.WindowTitle));
    return facts;
}

QString BuildMatchCriteria(const clsWindow &window, const MatchFacts &facts, WatchSettings &settings)
{
    const QString title = trimBlanks(window.WindowTitle);
    const QString location = trimBlanks(window.DocumentName);
    const qsizetype length = significantLength(window.StrippedTitle);
    if (length > std::numeric_limits<qint16>::max())
        return {};
    settings.PartialMatchLength = static_cast<qint16>(length);

    if (facts.isDocumentWindow && !isFolderWindow(window)) {
        if (settings.ExactWindowName)
            return QStringLiteral("LocationName=\"") + window.StrippedTitle + QStringLiteral("\" or URL=\"") +
                   location + QStringLiteral("\"");
        return partialCondition(window.StrippedTitle, length, location);
    }
    if (isFolderWindow(window) && settings.ExactWindowName) {
        // A folder's kind reads "File Folder" where the system speaks English, so that folders are
        // found by the prefix of their path in exact mode too.
        if (facts.locationKind == QStringLiteral("Folder") || facts.locationKind == QStringLiteral("File"))
            return titleCondition(title, facts.friendlyTitle);
        return partialCondition(window.StrippedTitle, length, location);
    }
    QString byTitle = titleCondition(title, facts.friendlyTitle);
    if (location.isEmpty())
        return byTitle;
    return byTitle + QStringLiteral(" or LCASE(URL)=\"") + location.toLower() + QStringLiteral("\"");
}

} // namespace norvane
