#include "richtext/commands/ExtractedFiles.h"

#include "platform/RuntimeError.h"
#include "platform/errors.h"

#include <QDir>
#include <QFile>

namespace norvane {
namespace {

constexpr qsizetype kLongestName = 80; ///< UTF-16 units: at most 240 bytes
constexpr qsizetype kLongestExtension = 20;

[[noreturn]] void raiseAccess(const QString &name)
{
    throw RuntimeError(
        kErrorFileAccess,
        QStringLiteral("\"%1\" could not be written to the folder for temporary files. Check its "
                       "permissions.")
            .arg(name));
}

} // namespace

QString ExtractedFiles::add(const QString &name, const QByteArray &bytes)
{
    const QString safeName = safeFileName(name);
    if (!m_folder)
        m_folder = std::make_unique<QTemporaryDir>(QDir::tempPath() + QStringLiteral("/norvane-XXXXXX"));
    // Files of one name do not meet: each has a folder of its own.
    const QString number = QString::number(++m_count);
    if (!m_folder->isValid() || !QDir(m_folder->path()).mkdir(number)) {
        m_folder.reset(); // somebody cleared it away: the next file gets a new one
        raiseAccess(safeName);
    }
    const QString path = m_folder->filePath(number + u'/' + safeName);
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::NewOnly))
        raiseAccess(safeName);
    const bool written = file.write(bytes) == bytes.size() && file.flush();
    // A copy: what is changed in it would be lost.
    if (!written || !file.setPermissions(QFileDevice::ReadOwner)) {
        const bool full = file.error() == QFileDevice::ResourceError || !written;
        file.remove();
        if (full)
            throw RuntimeError(
                kErrorDiskFull,
                QStringLiteral("There is no room left on the disk for \"%1\". Free some space and try again.")
                    .arg(safeName));
        raiseAccess(safeName);
    }
    return QDir::toNativeSeparators(path);
}

void ExtractedFiles::remove(const QString &path)
{
    QFile::remove(path);
}

QString safeFileName(const QString &name)
{
    const qsizetype separator = qMax(name.lastIndexOf(u'/'), name.lastIndexOf(u'\\'));
    QString safe;
    for (const QChar unit : name.mid(separator + 1)) {
        const QChar::Category category = unit.category();
        const bool isLetter = category != QChar::Other_Control && category != QChar::Other_Format &&
                              category != QChar::Separator_Line && category != QChar::Separator_Paragraph &&
                              category != QChar::Other_NotAssigned;
        if (isLetter)
            safe += QStringView(u":*?\"<>|").contains(unit) ? QChar(u'_') : unit;
    }
    safe = safe.simplified();
    while (safe.startsWith(u'.') || safe.startsWith(u' '))
        safe.remove(0, 1);
    while (safe.endsWith(u'.') || safe.endsWith(u' '))
        safe.chop(1);
    if (safe.size() > kLongestName) {
        const qsizetype dot = safe.lastIndexOf(u'.');
        const QString extension =
            dot > 0 && safe.size() - dot <= kLongestExtension ? safe.mid(dot) : QString();
        safe = safe.left(kLongestName - extension.size());
        if (safe.back().isHighSurrogate())
            safe.chop(1);
        safe += extension;
    }
    return safe.isEmpty() ? QStringLiteral("Object") : safe;
}

} // namespace norvane
