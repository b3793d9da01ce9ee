#include "watcher/titles.h"

#include "platform/WindowSystem.h"

#include <array>

namespace norvane {

QString trimBlanks(const QString &text)
{
    qsizetype first = 0;
    qsizetype end = text.size();
    while (first < end && text[first] == u' ')
        ++first;
    while (end > first && text[end - 1] == u' ')
        --end;
    return text.mid(first, end - first);
}

QString TrimAtNull(const QString &text)
{
    const qsizetype end = text.indexOf(QChar(u'\0'));
    return end < 0 ? text : text.left(end);
}

QString StripTitleSuffix(const QString &title)
{
    static const std::array<QString, 6> kRemoved = {
        QStringLiteral(" - Microsoft Internet Explorer"),
        QStringLiteral(" - Microsoft Word"),
        QStringLiteral(" - Microsoft Excel"),
        QStringLiteral(" - Netscape"),
        QStringLiteral("https://"),
        QStringLiteral("http://"),
    };
    QString result = title;
    for (const QString &text : kRemoved)
        result.remove(text);
    return result;
}

QString strippedTitle(const WindowSystem &windows, const QString &title)
{
    const QString stripped = StripTitleSuffix(title);
    const QString result = windows.withoutProgramSuffix(stripped);
    return result.isEmpty() ? stripped : result;
}

} // namespace norvane
