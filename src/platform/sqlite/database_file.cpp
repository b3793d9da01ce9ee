#include "platform/sqlite/database_file.h"

#include "platform/RuntimeError.h"
#include "platform/errors.h"
#include "platform/sqlite/Catalogue.h"
#include "platform/sqlite/Connection.h"
#include "platform/sqlite/file_copy.h"

#include <QCryptographicHash>
#include <QDateTime>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QUrl>
#include <algorithm>
#include <cerrno>
#include <sqlite3.h>
#include <unistd.h>

namespace norvane::dao {

namespace {

constexpr int kHeaderSize = 16;
constexpr int kPageSize = 4096;
constexpr int kSampleSize = 512;
constexpr int kAttempts = 3;

[[noreturn]] void raiseFormat(const QString &found)
{
    throw RuntimeError(kErrorFormat,
                       QStringLiteral("The file is not a database of this program: %1.").arg(found));
}

[[noreturn]] void raisePassword()
{
    throw RuntimeError(kErrorNotAPassword, QStringLiteral("Not a valid password."));
}

bool isPlainText(const QByteArray &sample)
{
    return std::all_of(sample.begin(), sample.end(), [](char unit) {
        const auto code = static_cast<unsigned char>(unit);
        return code >= 0x20 || code == '\n' || code == '\r' || code == '\t' || code == '\f';
    });
}

/// Whether the file has SQLite's own header, so no password. Raises 3343 for what can be no
/// database, with or without one: an encrypted file looks like noise in whole pages.
bool isPlainDatabase(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Unbuffered))
        raiseSystemError(errno, path);
    const QByteArray sample = file.read(kSampleSize);
    if (sample.isEmpty())
        raiseFormat(QStringLiteral("it is empty"));
    if (sample.left(kHeaderSize) == QByteArray("SQLite format 3\0", kHeaderSize))
        return true;
    if (isPlainText(sample))
        raiseFormat(QStringLiteral("it is a text file"));
    if (sample.mid(4).startsWith("Standard Jet DB") || sample.mid(4).startsWith("Standard ACE DB"))
        raiseFormat(QStringLiteral("it is a database of an older kind"));
    if (std::all_of(sample.begin(), sample.end(), [](char unit) { return unit == 0; }))
        raiseFormat(QStringLiteral("it holds only zeros"));
    if (file.size() < kPageSize)
        raiseFormat(QStringLiteral("it is too short"));
    if (file.size() % kPageSize != 0)
        raiseFormat(QStringLiteral("it is cut short or of another kind"));
    return false;
}

QString journalOf(const QString &file)
{
    return file + QStringLiteral("-journal");
}

bool hasJournal(const QString &file)
{
    return QFileInfo(journalOf(file)).size() > 0;
}

QString logOf(const QString &file)
{
    return file + QStringLiteral("-wal");
}

/// Whether saves go into a log beside the file, as another program may have chosen: then even a read-only
/// connection makes files there, and leaves them.
bool keepsLog(const QString &path)
{
    constexpr qsizetype kReadVersion = 19; // of the header, plain in encrypted files, too
    constexpr char kOfLogs = 2;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Unbuffered))
        raiseSystemError(errno, path);
    const QByteArray header = file.read(kReadVersion + 1);
    return QFileInfo::exists(logOf(path)) ||
           (header.size() > kReadVersion && header[kReadVersion] == kOfLogs);
}

/// What the first reads of the file tell, raised as an error unless it is one of ours.
void readFirstPage(const QString &file, Connection::Mode mode, const QString &password)
{
    Connection connection(file, mode, password);
    const qint64 version = connection.single("PRAGMA user_version").toLongLong();
    const qint64 application = connection.single("PRAGMA application_id").toLongLong();
    connection.single("SELECT count(*) FROM sqlite_schema");
    if (application != kApplicationId)
        raiseFormat(QStringLiteral("it is a database of another program"));
    if (version > kSchemaVersion)
        throw RuntimeError(
            kErrorFormat,
            QStringLiteral("The database was made by a newer version of this program (format %1, "
                           "known up to %2). Install the newer version to open it.")
                .arg(version)
                .arg(kSchemaVersion));
}

/// Tries the password where a save was interrupted or stands in a log, on copies: the rollback of the file
/// itself is lost for good when it is opened with a wrong key.
std::unique_ptr<QTemporaryDir> proveOnCopy(const QString &file, const QString &password)
{
    auto folder = std::make_unique<QTemporaryDir>();
    if (!folder->isValid())
        raiseSystemError(EACCES, folder->path());
    const QString copy = copyIn(*folder);
    copyFile(file, copy);
    for (const auto &beside : {journalOf, logOf})
        if (QFileInfo::exists(beside(file)))
            copyFile(beside(file), beside(copy));
    readFirstPage(copy, Connection::Mode::ReadWrite, password);
    return folder;
}

/// Whether a read-only connection refuses, since a rollback is due before anything can be read, or would not
/// leave the folder as it is.
bool needsCopy(const QString &file, const QString &password)
{
    if (keepsLog(file))
        return true;
    if (!hasJournal(file))
        return false;
    try {
        readFirstPage(file, Connection::Mode::ReadOnly, password);
    } catch (const SqliteError &error) {
        if (error.code() != SQLITE_READONLY)
            throw;
        return true;
    }
    return false;
}

/// Reads a file beside which an interrupted save waits for its rollback, or a log is kept.
void proveBesideJournal(const QString &file, const QString &password)
{
    try {
        readFirstPage(file, Connection::Mode::Immutable, password);
    } catch (const SqliteError &first) {
        try {
            proveOnCopy(file, password);
        } catch (const SqliteError &) {
            throw first; // a rollback with a wrong key ends in damage; the first read tells more
        }
    }
}

/// Reads under SQLite's locks, since others may be writing. Where a rollback is due, a read-only
/// connection refuses at once, and changes nothing.
void proveKey(const QString &file, const QString &password)
{
    for (int attempt = 1;; ++attempt) {
        try {
            if (!keepsLog(file)) {
                readFirstPage(file, Connection::Mode::ReadOnly, password);
                return;
            }
        } catch (const SqliteError &error) {
            if (error.code() != SQLITE_READONLY)
                throw;
        }
        try {
            proveBesideJournal(file, password);
            return;
        } catch (const SqliteError &) {
            if (attempt == kAttempts) // else someone may have rolled back while we were reading
                throw;
        }
    }
}

QByteArray keyedName(const QString &file, const QString &password)
{
    return "file://" + QUrl::toPercentEncoding(file, "/") + (password.isEmpty() ? "?key=" : "?hexkey=") +
           password.toUtf8().toHex();
}

} // namespace

QString existingFile(const QString &path)
{
    const QFileInfo info(path);
    if (!info.exists()) {
        if (!QFileInfo(info.path()).isDir())
            throw RuntimeError(kErrorPathNotFound, QStringLiteral("Path not found: '%1'.").arg(info.path()));
        throw RuntimeError(kErrorFileNotFound, QStringLiteral("File not found: '%1'.").arg(path));
    }
    if (!info.isFile())
        throw RuntimeError(kErrorFileAccess, QStringLiteral("'%1' is not a file.").arg(path));
    return info.canonicalFilePath();
}

void proveDatabase(const QString &file, const QString &password)
{
    const bool plain = isPlainDatabase(file);
    if (!plain && password.isEmpty())
        raisePassword();
    if (plain && !password.isEmpty())
        raisePassword();
    try {
        proveKey(file, password);
    } catch (const SqliteError &error) {
        // What a wrong key makes of the first page is no database at all.
        if (error.code() == SQLITE_NOTADB && !plain)
            raisePassword();
        throw;
    }
}

void checkIntegrity(const QString &file, const QString &password)
{
    Connection connection(file, Connection::Mode::ReadOnly, password);
    connection.setPatient();
    const QString verdict = connection.single("PRAGMA integrity_check").toString();
    if (verdict != u"ok")
        throw RuntimeError(kErrorFormat, QStringLiteral("The database is damaged: %1.").arg(verdict));
}

void checkWritable(const QString &file)
{
    if (access(QFile::encodeName(file).constData(), W_OK) != 0)
        throw RuntimeError(
            kErrorReadOnly,
            QStringLiteral("The database '%1' is read-only. Change its permissions.").arg(file));
    const QString folder = QFileInfo(file).path();
    if (access(QFile::encodeName(folder).constData(), W_OK | X_OK) != 0)
        throw RuntimeError(
            kErrorFileAccess,
            QStringLiteral("The folder '%1' cannot be written, so no change could be made safely.")
                .arg(folder));
}

void writeCompactedCopy(const QString &file, const QString &password, const QString &target,
                        const QString &newPassword)
{
    if (QFileInfo::exists(target))
        throw RuntimeError(kErrorFileAccess, QStringLiteral("There is a file '%1' already.").arg(target));
    TemporaryFile unfinished(target);
    TemporaryFile journal(journalOf(target));
    createPrivateFile(target);
    {
        // Read-write, so that an interrupted save is rolled back first.
        Connection connection(file, Connection::Mode::ReadWrite, password);
        connection.setPatient();
        connection.run("VACUUM INTO ?", {QString::fromUtf8(keyedName(target, newPassword))});
    }
    proveDatabase(target, newPassword);
    checkIntegrity(target, newPassword);
    syncFile(target);
    unfinished.release();
}

QString copyIn(const QTemporaryDir &folder)
{
    return folder.filePath(QStringLiteral("copy"));
}

std::unique_ptr<QTemporaryDir> copyToRead(const QString &file, const QString &password)
{
    for (int attempt = 1; needsCopy(file, password); ++attempt) {
        const QByteArray before = fingerprint(file);
        try {
            auto folder = proveOnCopy(file, password);
            if (fingerprint(file) == before || attempt == kAttempts)
                return folder;
        } catch (const RuntimeError &) {
            if (attempt == kAttempts) // else someone may have rolled back while it was copied
                throw;
        }
    }
    return nullptr;
}

void recoverInterruptedSave(const QString &file, const QString &password)
{
    if (!hasJournal(file))
        return;
    Connection connection(file, Connection::Mode::ReadWrite, password);
    connection.single("SELECT count(*) FROM sqlite_schema");
}

void checkReplaceable(const QString &copy, const QString &file)
{
    isPlainDatabase(copy);
    if (hasJournal(file))
        throw RuntimeError(kErrorFormat,
                           QStringLiteral("A save was interrupted. Open the database once and try again."));
}

QByteArray fingerprint(const QString &path)
{
    // Every transaction changes the counter in the first page.
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        raiseSystemError(errno, path);
    QByteArray state = QCryptographicHash::hash(file.read(kPageSize), QCryptographicHash::Sha256);
    state += QByteArray::number(file.size());
    if (const QFileInfo log(logOf(path)); log.exists())
        state += 'w' + QByteArray::number(log.lastModified().toMSecsSinceEpoch());
    return state + (hasJournal(path) ? "j" : "");
}

} // namespace norvane::dao
