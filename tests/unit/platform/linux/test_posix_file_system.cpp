#include "in_child.h"

#include "platform/RuntimeError.h"
#include "platform/errors.h"
#include "platform/linux/PosixFileSystem.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <csignal>
#include <sys/resource.h>
#include <sys/stat.h>

using namespace norvane;
using namespace Qt::StringLiterals;
using norvane::test::becomeOrdinaryUser;
using norvane::test::inChild;

namespace {

/// The number of the run-time error that @p act raises; 0 for none.
int errorOf(const std::function<void()> &act)
{
    try {
        act();
    } catch (const RuntimeError &error) {
        return error.number();
    }
    return 0;
}

class PosixFileSystemTest : public testing::Test
{
protected:
    QString path(const QString &name) const { return m_folder.path() + u'/' + name; }
    QStringList entries() const
    {
        return QDir(m_folder.path())
            .entryList(QDir::AllEntries | QDir::System | QDir::Hidden | QDir::NoDotAndDotDot);
    }
    static mode_t modeOf(const QString &name)
    {
        struct stat status = {};
        return ::stat(QFile::encodeName(name).constData(), &status) == 0 ? status.st_mode & 07777 : 0;
    }

    PosixFileSystem files;
    QTemporaryDir m_folder;
};

TEST_F(PosixFileSystemTest, WritesReplacesReadsAndRemoves)
{
    const QString name = path(QString::fromUtf8("Norvane_00000001 \xC3\xA4 \xE2\x82\xAC"));
    EXPECT_FALSE(files.exists(name));
    const QByteArray big(300000, 'x');
    files.write(name, big);
    EXPECT_EQ(files.read(name), big);
    files.write(name, QByteArray("a\0b", 3));
    EXPECT_EQ(files.read(name), QByteArray("a\0b", 3));
    EXPECT_EQ(modeOf(name), 0600u);
    EXPECT_EQ(entries().size(), 1) << "a temporary file was left";
    files.write(name, QByteArray());
    EXPECT_EQ(files.read(name), QByteArray());
    files.remove(name);
    EXPECT_FALSE(files.exists(name));
    files.makeFolder(path(u"Notes"_s));
    EXPECT_TRUE(files.exists(path(u"Notes/"_s)));
    EXPECT_EQ(modeOf(path(u"Notes"_s)), 0700u);
}

TEST_F(PosixFileSystemTest, FollowsALinkAndKeepsPermissions)
{
    const QString real = path(u"real"_s);
    files.write(real, "one");
    ASSERT_EQ(::chmod(QFile::encodeName(real).constData(), 0640), 0);
    ASSERT_TRUE(QFile::link(real, path(u"link"_s)));
    files.write(path(u"link"_s), "two");
    EXPECT_EQ(files.read(real), "two");
    EXPECT_EQ(modeOf(real), 0640u);
    EXPECT_TRUE(QFileInfo(path(u"link"_s)).isSymLink());
}

TEST_F(PosixFileSystemTest, ErrorsHaveTheirNumbers)
{
    const QString missing = path(u"no folder/file"_s);
    const QString file = path(u"file"_s);
    files.write(file, "x");
    ASSERT_EQ(::mkfifo(QFile::encodeName(path(u"pipe"_s)).constData(), 0600), 0);

    EXPECT_EQ(errorOf([&] { files.read(missing); }), kErrorFileNotFound);
    EXPECT_EQ(errorOf([&] { files.read(file + u"/below"_s); }), kErrorFileNotFound);
    EXPECT_EQ(errorOf([&] { files.read(m_folder.path()); }), kErrorFileAccess);
    EXPECT_EQ(errorOf([&] { files.read(path(u"pipe"_s)); }), kErrorFileAccess);
    EXPECT_EQ(errorOf([&] { files.write(missing, "x"); }), kErrorPathNotFound);
    EXPECT_EQ(errorOf([&] { files.write(m_folder.path(), "x"); }), kErrorFileAccess);
    EXPECT_EQ(errorOf([&] { files.write(path(u"pipe"_s), "x"); }), kErrorFileAccess);
    EXPECT_EQ(errorOf([&] { files.write(path(QString(300, u'n')), "x"); }), kErrorFileAccess);
    EXPECT_EQ(errorOf([&] { files.write(file + QChar(0) + u".bak"_s, "y"); }), kErrorFileAccess);
    EXPECT_EQ(errorOf([&] { files.makeFolder(missing); }), kErrorPathNotFound);
    EXPECT_EQ(errorOf([&] { files.makeFolder(file); }), kErrorFileAccess);
    EXPECT_EQ(errorOf([&] { files.remove(missing); }), kErrorFileNotFound);
    EXPECT_EQ(errorOf([&] { files.remove(m_folder.path()); }), kErrorFileAccess);
    EXPECT_EQ(files.read(file), "x");
    EXPECT_EQ(entries().size(), 2) << "a temporary file was left";
}

TEST_F(PosixFileSystemTest, FileThatOutgrowsItsRoomLeavesTheOldOne)
{
    const QString name = path(u"note"_s);
    files.write(name, "old");
    const int error = inChild([&] {
        ::signal(SIGXFSZ, SIG_IGN);
        const rlimit limit{100000, 100000};
        if (::setrlimit(RLIMIT_FSIZE, &limit) != 0)
            return 100;
        return errorOf([&] { files.write(name, QByteArray(200000, 'x')); }) == kErrorDiskFull ? 0 : 1;
    });
    EXPECT_EQ(error, 0);
    EXPECT_EQ(files.read(name), "old");
    EXPECT_EQ(entries().size(), 1) << "a temporary file was left";
}

TEST_F(PosixFileSystemTest, MissingRightsAreErrorsAndChangeNothing)
{
    const QString folder = path(u"shared"_s);
    const QString name = folder + u"/note"_s;
    files.makeFolder(folder);
    files.write(name, "old");
    ASSERT_EQ(::chmod(QFile::encodeName(m_folder.path()).constData(), 0755), 0);
    ASSERT_EQ(::chmod(QFile::encodeName(folder).constData(), 0555), 0);
    ASSERT_EQ(::chmod(QFile::encodeName(name).constData(), 0000), 0);

    const auto denied = [](const std::function<void()> &act) { return errorOf(act) == kErrorFileAccess; };
    EXPECT_EQ(inChild([&] {
                  return becomeOrdinaryUser() && denied([&] { files.read(name); }) &&
                                 denied([&] { files.write(folder + u"/new"_s, "x"); }) &&
                                 denied([&] { files.remove(name); }) &&
                                 denied([&] { files.makeFolder(folder + u"/sub"_s); })
                             ? 0
                             : 1;
              }),
              0);

    // A writable folder does not make its protected files fair game.
    ASSERT_EQ(::chmod(QFile::encodeName(folder).constData(), 0777), 0);
    ASSERT_EQ(::chmod(QFile::encodeName(name).constData(), 0444), 0);
    EXPECT_EQ(
        inChild([&] { return becomeOrdinaryUser() && denied([&] { files.write(name, "new"); }) ? 0 : 1; }),
        0);
    EXPECT_EQ(files.read(name), "old");
}

} // namespace
