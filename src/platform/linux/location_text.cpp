#include "platform/linux/location_text.h"

#include <QRegularExpression>
#include <QUrl>

namespace norvane {

namespace {

QString withoutTrailingSeparators(QString path)
{
    while (path.size() > 1 && path.endsWith(u'/'))
        path.chop(1);
    return path;
}

bool hasScheme(const QString &text)
{
    static const QRegularExpression scheme(QStringLiteral("^[A-Za-z][A-Za-z0-9+.-]*:/"));
    return scheme.match(text).hasMatch();
}

QString lastName(const QString &folder)
{
    return folder.mid(folder.lastIndexOf(u'/') + 1);
}

/// Whether a name in a caption ends here: what may follow is a program's suffix (" - Thunar").
bool nameEndsAt(const QString &caption, qsizetype position)
{
    return position >= caption.size() || caption.at(position).isSpace();
}

/// Scheme, "www." and the escapes that address bars leave out.
QString asShown(const QString &address)
{
    QString text = QUrl::fromPercentEncoding(address.toUtf8());
    const qsizetype scheme = text.indexOf(u"://");
    if (scheme >= 0)
        text.remove(0, scheme + 3);
    if (text.startsWith(u"www."))
        text.remove(0, 4);
    if (text.endsWith(u'/'))
        text.chop(1);
    return text;
}

} // namespace

std::optional<QString> folderFromEntryText(const QString &text, const QString &home)
{
    const QString entry = text.left(text.indexOf(QChar(0)));
    if (entry.startsWith(u'/'))
        return withoutTrailingSeparators(entry);
    if (entry == u"~" || entry.startsWith(u"~/"))
        return withoutTrailingSeparators(home + entry.mid(1));
    if (hasScheme(entry))
        return folderFromUri(entry);
    return std::nullopt;
}

QString folderFromUri(const QString &uri)
{
    if (!uri.startsWith(u"file:", Qt::CaseInsensitive))
        return uri;
    const QString path = QUrl(uri).path(QUrl::FullyDecoded);
    return path.isEmpty() ? uri : withoutTrailingSeparators(path);
}

std::optional<QString> folderFromCaption(const QString &caption, const QString &home)
{
    if (!caption.startsWith(u'/') && !caption.startsWith(u'~'))
        return std::nullopt;
    // The program's name stands behind the last dash; a folder's name may hold dashes of its own.
    qsizetype end = qMax(caption.lastIndexOf(u" - "), caption.lastIndexOf(QStringLiteral(" — ")));
    return folderFromEntryText(caption.left(end), home);
}

bool captionNamesFolder(const QString &caption, const QString &folder, const QString &home)
{
    const QString name = lastName(folder);
    if (folder == home && (caption.startsWith(u"Home") || caption.startsWith(u'~')))
        return true;
    return (!name.isEmpty() && caption.startsWith(name) && nameEndsAt(caption, name.size())) ||
           (caption.startsWith(folder) && nameEndsAt(caption, folder.size()));
}

QString folderOfTabs(const QStringList &uris, const QString &caption, const QString &last,
                     const QString &home)
{
    QStringList folders;
    for (const QString &uri : uris)
        folders.append(folderFromUri(uri));
    QStringList named;
    for (const QString &folder : std::as_const(folders)) {
        if (captionNamesFolder(caption, folder, home))
            named.append(folder);
    }
    const QStringList &choice = named.isEmpty() ? folders : named;
    return choice.contains(last) ? last : choice.value(0);
}

QString pageAddress(const QString &uri, const QString &shown)
{
    const QUrl page(uri);
    if (shown.isEmpty() || page.host().isEmpty() || asShown(uri) == asShown(shown))
        return uri;
    const qsizetype afterScheme = uri.indexOf(u"://") + 3;
    QString prefix = uri.left(afterScheme);
    const QString bare = shown.contains(u"://") ? shown.mid(shown.indexOf(u"://") + 3) : shown;
    if (page.host().startsWith(u"www.") && !bare.startsWith(u"www."))
        prefix += QStringLiteral("www.");
    const QUrl address(prefix + bare, QUrl::TolerantMode);
    if (!address.isValid() || address.authority() != page.authority())
        return uri;
    return QString::fromLatin1(address.toEncoded());
}

} // namespace norvane
