#include "platform/linux/FileInstanceLock.h"

#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <gtest/gtest.h>
#include <sys/stat.h>

using namespace norvane;

namespace {

TEST(FileInstanceLock, isHadByOneAtATime)
{
    const QTemporaryDir folder;
    const QString file = folder.filePath(QStringLiteral("norvane.lock"));
    {
        FileInstanceLock first(file);
        EXPECT_TRUE(first.acquire());
        EXPECT_TRUE(first.acquire());
        EXPECT_FALSE(FileInstanceLock(file).acquire());
    }
    EXPECT_TRUE(FileInstanceLock(file).acquire());
}

TEST(FileInstanceLock, doesNotKeepTheProgramFromStartingWhereItCannotBeMade)
{
    EXPECT_TRUE(FileInstanceLock(QStringLiteral("/no/such/folder/norvane.lock")).acquire());
    EXPECT_TRUE(FileInstanceLock(QString()).acquire());
}

class RuntimeFolder : public testing::Test
{
protected:
    void SetUp() override { m_before = qgetenv("XDG_RUNTIME_DIR"); }
    void TearDown() override { qputenv("XDG_RUNTIME_DIR", m_before); }

private:
    QByteArray m_before;
};

TEST_F(RuntimeFolder, isUsedWhenItIsTheUsersOwn)
{
    const QTemporaryDir folder;
    qputenv("XDG_RUNTIME_DIR", QFile::encodeName(folder.path()));
    EXPECT_EQ(FileInstanceLock::defaultFile(), folder.filePath(QStringLiteral("norvane.lock")));

    chmod(QFile::encodeName(folder.path()).constData(), 0777);
    EXPECT_FALSE(FileInstanceLock::defaultFile().startsWith(folder.path()));
}

TEST_F(RuntimeFolder, givesWayToAPrivateOne)
{
    qunsetenv("XDG_RUNTIME_DIR");
    const QFileInfo folder(QFileInfo(FileInstanceLock::defaultFile()).path());
    EXPECT_TRUE(folder.isDir());
    EXPECT_EQ(folder.permissions() & (QFile::WriteGroup | QFile::WriteOther), QFile::Permissions());
}

} // namespace
