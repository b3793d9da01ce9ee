#include "platform/linux/FileInstanceLock.h"

#include <QFile>
#include <QFileInfo>
#include <QScopeGuard>
#include <QTemporaryDir>
#include <gtest/gtest.h>
#include <sys/stat.h>

using namespace norvane;
using namespace Qt::StringLiterals;

TEST(FileInstanceLock, IsHadByOneAtATime)
{
    const QTemporaryDir folder;
    const QString file = folder.filePath(u"norvane.lock"_s);
    {
        FileInstanceLock first(file);
        EXPECT_TRUE(first.acquire());
        EXPECT_TRUE(first.acquire());
        EXPECT_FALSE(FileInstanceLock(file).acquire());
    }
    EXPECT_TRUE(FileInstanceLock(file).acquire());
    // Where it cannot be made it does not keep the program from starting.
    EXPECT_TRUE(FileInstanceLock(u"/no/such/folder/norvane.lock"_s).acquire());
    EXPECT_TRUE(FileInstanceLock(QString()).acquire());
}

TEST(FileInstanceLock, LiesInAFolderThatNobodyElseCanWrite)
{
    const auto restore =
        qScopeGuard([before = qgetenv("XDG_RUNTIME_DIR")] { qputenv("XDG_RUNTIME_DIR", before); });
    const QTemporaryDir folder;
    qputenv("XDG_RUNTIME_DIR", QFile::encodeName(folder.path()));
    EXPECT_EQ(FileInstanceLock::defaultFile(), folder.filePath(u"norvane.lock"_s));

    chmod(QFile::encodeName(folder.path()).constData(), 0777);
    const QFileInfo other(QFileInfo(FileInstanceLock::defaultFile()).path());
    EXPECT_NE(other.filePath(), folder.path());
    EXPECT_TRUE(other.isDir());
    EXPECT_EQ(other.permissions() & (QFile::WriteGroup | QFile::WriteOther), QFile::Permissions());
}
