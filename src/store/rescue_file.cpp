#include "store/rescue_file.h"

#include "platform/FileSystem.h"
#include "shell/path_rules.h"

#include <QTextBoundaryFinder>

namespace norvane {

namespace {

/// Leaves room for the time, a number and a temporary suffix in the 255 bytes of a file name.
constexpr qsizetype kLongestTitleBytes = 150;

bool isForbidden(QChar unit)
{
    // What any of today's file systems refuses: a database may lie on a foreign disk.
    constexpr QStringView kForbidden = u"/\\:*?\"<>|";
    return kForbidden.contains(unit);
}

/// Control and format characters: they show as nothing, or turn the reading direction of the name.
bool isInvisible(QChar unit)
{
    const QChar::Category category = unit.category();
    return category == QChar::Other_Control || category == QChar::Other_Format;
}

bool isWhole(const QString &text, qsizetype at)
{
    const QChar unit = text.at(at);
    if (unit.isHighSurrogate())
        return at + 1 < text.size() && text.at(at + 1).isLowSurrogate();
    if (unit.isLowSurrogate())
        return at > 0 && text.at(at - 1).isHighSurrogate();
    return true;
}

QString cutToBytes(const QString &text, qsizetype bytes)
{
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, text);
    qsizetype end = 0;
    for (qsizetype next = finder.toNextBoundary(); next > 0; next = finder.toNextBoundary()) {
        if (QStringView(text).left(next).toUtf8().size() > bytes)
            break;
        end = next;
    }
    return text.left(end);
}

void makeFolderIfMissing(FileSystem &files, const QString &folder)
{
    if (!files.exists(folder))
        files.makeFolder(folder);
}

} // namespace

QString fileNameOfTitle(const QString &title)
{
    QString name;
    for (qsizetype i = 0; i < title.size() && name.size() < 2 * kLongestTitleBytes; ++i) {
        const QChar unit = title.at(i);
        if (unit.isSpace())
            name += u' ';
        else if (isForbidden(unit))
            name += u'_';
        else if (!isInvisible(unit) && isWhole(title, i))
            name += unit;
    }
    name = cutToBytes(name.simplified(), kLongestTitleBytes).trimmed();
    // A dot in front would hide the file.
    while (name.startsWith(u'.'))
        name = name.mid(1).trimmed();
    return name.isEmpty() ? QStringLiteral("Note") : name;
}

QString writeRescueFile(FileSystem &files, const QString &databaseFolder, const QString &title,
                        const QDateTime &time, const QByteArray &rtf)
{
    const QString folder = databaseFolder + QStringLiteral("Rescued");
    makeFolderIfMissing(files, folder);
    const QString name =
        folder + pathSeparator() + fileNameOfTitle(title) + u' ' + time.toString(u"yyyy-MM-dd HH.mm.ss");
    QString path = name + QStringLiteral(".rtf");
    for (int number = 2; files.exists(path); ++number)
        path = name + QStringLiteral(" (%1).rtf").arg(number);
    files.write(path, rtf);
    return path;
}

} // namespace norvane
