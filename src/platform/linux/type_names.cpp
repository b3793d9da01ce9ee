#include "platform/linux/type_names.h"

#include <QMimeDatabase>
#include <QRegularExpression>
#include <array>

namespace norvane {

namespace {

/// Folders whose files are programs. A folder of this list is itself none.
constexpr std::array<QStringView, 15> kProgramFolders{
    u"/bin/",           u"/sbin/",           u"/usr/bin/",         u"/usr/sbin/",
    u"/usr/games/",     u"/usr/lib/",        u"/usr/lib64/",       u"/usr/libexec/",
    u"/usr/local/bin/", u"/usr/local/sbin/", u"/usr/local/games/", u"/usr/local/lib/",
    u"/opt/",           u"/snap/",           u"/app/bin/",
};
/// Below the home folder of whoever it may be.
constexpr QStringView kUserProgramFolder = u"/.local/bin/";

bool isInProgramFolder(const QString &path)
{
    for (const QStringView folder : kProgramFolders) {
        if (path.startsWith(folder))
            return true;
    }
    return path.contains(kUserProgramFolder);
}

QString nameOf(const QMimeType &type)
{
    QString name = type.comment();
    if (!name.isEmpty())
        name[0] = name.at(0).toUpper();
    return name;
}

/// Without the dot; empty where the dot begins or ends the name, or blanks show that it is part of
/// a sentence.
QString extensionOf(const QString &path)
{
    const QString name = path.mid(path.lastIndexOf(u'/') + 1);
    const qsizetype dot = name.lastIndexOf(u'.');
    const QString extension = dot > 0 ? name.mid(dot + 1) : QString();
    return extension.contains(u' ') ? QString() : extension;
}

/// A bare extension (".HTM") as a name that has it; anything else as it is.
QString withName(const QString &path)
{
    const bool isExtension =
        path.size() > 1 && path.startsWith(u'.') && path.lastIndexOf(u'.') == 0 && !path.contains(u'/');
    return isExtension ? u'x' + path : path;
}

bool isProgramType(const QMimeType &type)
{
    static const QString executable = QStringLiteral("application/x-executable");
    static const QString foreign = QStringLiteral("application/x-ms-dos-executable");
    static const QString text = QStringLiteral("text/plain");
    return type.inherits(foreign) || (type.inherits(executable) && !type.inherits(text));
}

} // namespace

qsizetype schemeLength(const QString &location)
{
    static const QRegularExpression scheme(QStringLiteral("^[A-Za-z][A-Za-z0-9+.-]+:"));
    return scheme.match(location).capturedLength();
}

bool isAddress(const QString &location)
{
    return schemeLength(location) > 0 || location.startsWith(u"www.", Qt::CaseInsensitive);
}

QString applicationTypeName()
{
    return QStringLiteral("Application");
}

QString fileTypeName()
{
    return QStringLiteral("File");
}

QString typeNameOf(const QString &location)
{
    const QString path = withName(location);
    if (path.isEmpty())
        return {};
    // The top of the file system is told as a folder; any other folder is a name like a file's.
    if (path == QStringLiteral("/"))
        return QStringLiteral("File Folder");

    const QMimeDatabase database;
    if (isAddress(path))
        return nameOf(database.mimeTypeForName(QStringLiteral("text/html")));

    const bool inProgramFolder = isInProgramFolder(path) && !path.endsWith(u'/');
    const QString extension = extensionOf(path);
    if (extension.isEmpty())
        return inProgramFolder ? applicationTypeName() : fileTypeName();
    const QMimeType type = database.mimeTypeForFile(path, QMimeDatabase::MatchExtension);
    if (isProgramType(type))
        return applicationTypeName();
    if (inProgramFolder && (type.isDefault() || type.inherits(QStringLiteral("application/x-executable"))))
        return applicationTypeName();
    return type.isDefault() ? extension.toUpper() + QStringLiteral(" File") : nameOf(type);
}

QString typeKeyOf(const QString &location)
{
    const QString path = withName(location);
    if (path.isEmpty())
        return {};
    if (path == QStringLiteral("/"))
        return QStringLiteral("top");
    if (isAddress(path))
        return QStringLiteral("http:");
    const bool inProgramFolder = isInProgramFolder(path) && !path.endsWith(u'/');
    const QString name = path.mid(path.lastIndexOf(u'/') + 1);
    const QString extension = extensionOf(path);
    QString key = inProgramFolder ? QStringLiteral("/bin/") : QStringLiteral("/");
    if (extension.isEmpty())
        return key;
    // "README.txt" and "Makefile.in" are of kinds of their own; "x.tar.gz" is told by both extensions.
    const bool mayBeSpecial = extension == QStringLiteral("txt") || extension == QStringLiteral("in") ||
                              extension == QStringLiteral("am");
    return key += mayBeSpecial ? name : name.mid(name.indexOf(u'.', 1));
}

QStringList iconNamesOf(const QString &location)
{
    const QString path = withName(location);
    const QMimeDatabase database;
    QMimeType type;
    if (isAddress(path))
        type = database.mimeTypeForName(QStringLiteral("text/html"));
    else if (path == QStringLiteral("/"))
        return {QStringLiteral("drive-harddisk"), QStringLiteral("folder")};
    else if (typeNameOf(path) == applicationTypeName())
        return {QStringLiteral("application-x-executable")};
    else
        type = database.mimeTypeForFile(path, QMimeDatabase::MatchExtension);
    return {type.iconName(), type.genericIconName()};
}

} // namespace norvane
