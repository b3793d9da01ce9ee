#include "platform/sqlite/SqliteEngine.h"

#include "platform/RuntimeError.h"
#include "platform/errors.h"
#include "platform/sqlite/Catalogue.h"
#include "platform/sqlite/Connection.h"
#include "platform/sqlite/FileLock.h"
#include "platform/sqlite/SqliteDatabase.h"
#include "platform/sqlite/database_file.h"
#include "platform/sqlite/file_copy.h"

#include <QFileInfo>
#include <QMap>

namespace norvane::dao {

namespace {

/// What stands behind ";pwd=", up to the end: a password may hold anything.
QString passwordIn(const QString &connect)
{
    const QString key = QStringLiteral(";pwd=");
    return connect.startsWith(key, Qt::CaseInsensitive) ? connect.mid(key.size()) : QString();
}

class SqliteWorkspace : public Workspace
{
public:
    std::unique_ptr<Database> createDatabase(const QString &path, const QString & /*locale*/) override
    {
        const QFileInfo info(path);
        if (!QFileInfo(info.path()).isDir())
            throw RuntimeError(kErrorPathNotFound, QStringLiteral("Path not found: '%1'.").arg(info.path()));
        if (info.exists() || info.isSymLink())
            throw RuntimeError(kErrorFileAccess, QStringLiteral("There is a file '%1' already.").arg(path));
        // Made under another name: a database is there whole or not at all.
        TemporaryFile unfinished(temporaryName(path));
        const TemporaryFile journal(unfinished.name() + QStringLiteral("-journal"));
        createPrivateFile(unfinished.name());
        {
            Connection connection(unfinished.name(), Connection::Mode::ReadWrite, {});
            createCatalogue(connection);
        }
        nameFile(unfinished.name(), path);
        unfinished.release();
        return std::make_unique<SqliteDatabase>(path, false, false, QString());
    }

    std::unique_ptr<Database> openDatabase(const QString &path, bool exclusive, bool readOnly,
                                           const QString &connect) override
    {
        return std::make_unique<SqliteDatabase>(path, exclusive, readOnly, passwordIn(connect));
    }

    void close() override {}
};

class SqliteEngine : public Engine
{
public:
    std::shared_ptr<Workspace> workspace(int index) override
    {
        if (index != 0)
            throw RuntimeError(kErrorItemNotFound, QStringLiteral("There is no workspace %1.").arg(index));
        if (!m_workspace)
            m_workspace = std::make_shared<SqliteWorkspace>();
        return m_workspace;
    }

    void compactDatabase(const QString &source, const QString &target, const QString &password) override
    {
        const QString file = existingFile(source);
        const auto alone = FileLock::take(file, FileLock::Kind::Alone);
        proveDatabase(file, password);
        recoverInterruptedSave(file, password);
        writeCompactedCopy(file, password, target, password);
        m_copies[QFileInfo(target).canonicalFilePath()] = {file, fingerprint(file), password};
    }

    void replaceDatabase(const QString &source, const QString &target) override
    {
        const QString copy = existingFile(source);
        const QString file = existingFile(target);
        const auto alone = FileLock::take(file, FileLock::Kind::Alone);
        checkWritable(file);
        removeAbandoned(file);
        checkReplaceable(copy, file);
        const Copy known = m_copies.take(copy);
        if (known.file == file && known.state != fingerprint(file))
            throw RuntimeError(kErrorLocked,
                               QStringLiteral("The database was changed while it was compacted. Try again."));
        const TemporaryFile beside(temporaryName(file));
        copyFile(copy, beside.name());
        if (known.file == file)
            checkIntegrity(beside.name(), known.password);
        renameOver(beside.name(), file);
    }

    bool isLocked(const QString &path) const override
    {
        const QFileInfo info(path);
        return info.exists() && FileLock::isHeld(info.canonicalFilePath());
    }

private:
    /// What a compacted copy was made from: if someone has saved since, it must not replace that.
    struct Copy
    {
        QString file;
        QByteArray state;
        QString password;
    };

    std::shared_ptr<Workspace> m_workspace;
    QMap<QString, Copy> m_copies;
};

} // namespace

std::unique_ptr<Engine> makeSqliteEngine()
{
    return std::make_unique<SqliteEngine>();
}

} // namespace norvane::dao
