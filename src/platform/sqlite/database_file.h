#pragma once

#include <QByteArray>
#include <QString>
#include <QTemporaryDir>
#include <memory>

namespace norvane::dao {

/// The file behind symbolic links. Raises 53, 76 or 75 when there is no such regular file.
QString existingFile(const QString &path);

/// Proves that the file is one of our databases and opens with the password, without changing it.
/// Raises 3343 with words that tell what was found, 3031 for a wrong or missing password, 75.
/// Whoever calls holds the database's lock, if there is one.
void proveDatabase(const QString &file, const QString &password);

/// Reads the whole database and raises 3343 when it is damaged.
void checkIntegrity(const QString &file, const QString &password);

/// Raises 3027 or 75 when the file or its folder cannot be written.
void checkWritable(const QString &file);

/// Writes a compacted copy with another password to a new file; raises, with nothing left behind,
/// when the copy is not sound.
void writeCompactedCopy(const QString &file, const QString &password, const QString &target,
                        const QString &newPassword);

/// A folder with a copy of a file that cannot be read without a change to what is there: its last save was
/// interrupted and is still to be rolled back, or its saves go into a log beside it. nullptr where the file
/// can be read as it stands. The password is proven. The file and what is beside it stay as they are.
std::unique_ptr<QTemporaryDir> copyToRead(const QString &file, const QString &password);
/// The copy in such a folder.
QString copyIn(const QTemporaryDir &folder);

/// Rolls back what a killed program left half done, which a read-only connection cannot. The
/// password is proven.
void recoverInterruptedSave(const QString &file, const QString &password);

/// Raises 3343 when @p copy can be no database, and when an interrupted save of @p file is still to
/// be rolled back, which would spoil what took its place.
void checkReplaceable(const QString &copy, const QString &file);

/// What changes with every write: two files with the same text are the same state of one file.
QByteArray fingerprint(const QString &file);

} // namespace norvane::dao
