#pragma once

#include <QString>

namespace norvane::dao {

/// Raises the number of a failed system call: 53 or 76 for what is not there, 3026 for a full disk,
/// 3027 for a read-only disk, else 75.
[[noreturn]] void raiseSystemError(int systemError, const QString &path);

/// A name in the folder of @p path that nobody uses.
QString temporaryName(const QString &path);

/// Makes an empty file for the user alone. Raises 75 when there is one.
void createPrivateFile(const QString &path);

/// Copies to a new file for the user alone, synced.
void copyFile(const QString &source, const QString &target);

/// Waits until the file, or the entries of the folder, are on the disk.
void syncFile(const QString &path);
void syncFolder(const QString &path);

/// Renames a finished file over @p target in the same folder, whose permissions it takes, and syncs
/// the folder.
void renameOver(const QString &finished, const QString &target);

/// Gives a finished file its name in the same folder. Raises 75 when there is one of that name.
void nameFile(const QString &finished, const QString &target);

/// Removes what killed programs left of temporaryName(). The caller has the file for itself.
void removeAbandoned(const QString &path);

/// Removes a file at the end of its life, unless it was released.
class TemporaryFile
{
public:
    explicit TemporaryFile(QString name) : m_name(std::move(name)) {}
    ~TemporaryFile();
    TemporaryFile(const TemporaryFile &) = delete;
    TemporaryFile &operator=(const TemporaryFile &) = delete;
    const QString &name() const { return m_name; }
    void release() { m_name.clear(); }

private:
    QString m_name;
};

} // namespace norvane::dao
