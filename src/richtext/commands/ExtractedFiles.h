#pragma once

#include <QByteArray>
#include <QString>
#include <QTemporaryDir>
#include <memory>

namespace norvane {

/// Files that were taken out of documents so that their programs can open them: in a folder that is
/// the user's alone and goes, with all in it, with this object.
class ExtractedFiles
{
public:
    /// Writes a file, which may not be written to and is not executable. Raises 75 when it cannot be
    /// made, 3026 when the disk is full.
    /// @param name taken as safeFileName() leaves it
    /// @return its native path, a new one each time
    QString add(const QString &name, const QByteArray &bytes);
    /// Takes away a file that nobody opened.
    void remove(const QString &path);

private:
    std::unique_ptr<QTemporaryDir> m_folder; ///< nullptr before the first file
    int m_count = 0;
};

/// A name for a file out of what a document calls it: the last part of a path in either manner,
/// without anything that is no letter of it (control characters, marks that turn the direction of
/// writing), not hidden, not too long; its extension stays. "Object" when nothing is left.
QString safeFileName(const QString &name);

} // namespace norvane
