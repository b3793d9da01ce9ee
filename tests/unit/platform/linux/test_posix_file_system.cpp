#include "in_child.h"

#include "error_of.h"
#include "platform/errors.h"
#include "platform/linux/PosixFileSystem.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <csignal>
#include <sys/resource.h>
#include <sys/stat.h>

using namespace norvane;
using namespace norvane::test;

namespace {

class PosixFileSystemTest : public testing::Test
{
protected:
    QString path(const QString &name) const { return folder.path() + u'/' + name; }
    /// Whether nothing but so many entries is there: no temporary file was left.
    bool holds(qsizetype count) const
    {
        const auto all = QDir::AllEntries | QDir::System | QDir::Hidden | QDir::NoDotAndDotDot;
        return QDir(folder.path()).entryList(all).size() == count;
    }
    static void setMode(const QString &name, mode_t mode)
    {
        ASSERT_EQ(::chmod(QFile::encodeName(name).constData(), mode), 0);
    }
    static mode_t modeOf(const QString &name)
    {
        struct stat status = {};
        return ::stat(QFile::encodeName(name).constData(), &status) == 0 ? status.st_mode & 07777 : 0;
    }

    PosixFileSystem files;
    QTemporaryDir folder;
};

TEST_F(PosixFileSystemTest, CopiesWholeFilesOrNone)
{
    for (const QByteArray &bytes : {QByteArray(200000, 'x'), QByteArray()}) {
        files.write(path(u"source"_qs), bytes);
        files.copy(path(u"source"_qs), path(u"copy"_qs));
        files.sync({path(u"copy"_qs), path(u"source"_qs)});
        EXPECT_EQ(files.read(path(u"copy"_qs)), bytes);
        EXPECT_EQ(modeOf(path(u"copy"_qs)), 0600u);
    }
    files.write(path(u"source"_qs), QByteArray(200000, 'x'));
    EXPECT_EQ(errorOf([&] { files.copy(path(u"none"_qs), path(u"copy"_qs)); }), kErrorFileNotFound);
    EXPECT_EQ(errorOf([&] { files.copy(folder.path(), path(u"copy"_qs)); }), kErrorFileAccess);
    EXPECT_EQ(errorOf([&] { files.copy(path(u"source"_qs), path(u"no/copy"_qs)); }), kErrorPathNotFound);
    EXPECT_EQ(errorOf([&] { files.sync({path(u"copy"_qs)}); }), kErrorFileNotFound);
    EXPECT_EQ(inChild([&] {
                  std::signal(SIGXFSZ, SIG_IGN);
                  const rlimit limit = {100000, RLIM_INFINITY};
                  setrlimit(RLIMIT_FSIZE, &limit);
                  return errorOf([&] { files.copy(path(u"source"_qs), path(u"copy"_qs)); }) == kErrorDiskFull
                             ? 0
                             : 1;
              }),
              0);
    EXPECT_TRUE(holds(1)) << "nothing is left of a copy that failed";
}

TEST_F(PosixFileSystemTest, WritesReplacesReadsAndRemovesForTheUserAlone)
{
    const QString name = path(u"Norvane_00000001 \u00e4 \u20ac"_qs);
    EXPECT_FALSE(files.exists(name));
    for (const QByteArray &bytes : {QByteArray(300000, 'x'), QByteArray("a\0b", 3), QByteArray()}) {
        files.write(name, bytes);
        EXPECT_EQ(files.read(name), bytes);
        EXPECT_EQ(files.size(name), bytes.size());
        EXPECT_EQ(modeOf(name), 0600u);
        EXPECT_TRUE(holds(1));
    }
    files.remove(name);
    EXPECT_FALSE(files.exists(name));

    files.makeFolder(path(u"Notes"_qs));
    EXPECT_TRUE(files.exists(path(u"Notes"_qs)));
    EXPECT_TRUE(files.exists(path(u"Notes/"_qs)));
    EXPECT_EQ(modeOf(path(u"Notes"_qs)), 0700u);
}

TEST_F(PosixFileSystemTest, FollowsALinkAndKeepsPermissions)
{
    const QString real = path(u"real"_qs);
    const QString link = path(u"link"_qs);
    files.write(real, "one");
    setMode(real, 0640);
    ASSERT_TRUE(QFile::link(real, link));
    files.write(link, "two");
    EXPECT_EQ(files.read(real), "two");
    EXPECT_EQ(modeOf(real), 0640u);
    EXPECT_TRUE(QFileInfo(link).isSymLink());
}

TEST_F(PosixFileSystemTest, ErrorsHaveTheirNumbersAndChangeNothing)
{
    const QString missing = path(u"no folder/file"_qs);
    const QString file = path(u"file"_qs);
    const QString pipe = path(u"pipe"_qs);
    files.write(file, "x");
    ASSERT_EQ(::mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
    const struct
    {
        int error;
        std::function<void()> act;
    } rows[] = {
        {kErrorFileNotFound, [&] { files.read(missing); }},
        {kErrorFileNotFound, [&] { files.read(file + u"/below"_qs); }},
        {kErrorFileAccess, [&] { files.read(folder.path()); }},
        {kErrorFileAccess, [&] { files.read(pipe); }},
        {kErrorFileNotFound, [&] { files.size(missing); }},
        {kErrorFileAccess, [&] { files.size(folder.path()); }},
        {kErrorFileAccess, [&] { files.size(pipe); }},
        {kErrorPathNotFound, [&] { files.write(missing, "x"); }},
        {kErrorFileAccess, [&] { files.write(folder.path(), "x"); }},
        {kErrorFileAccess, [&] { files.write(path(QString(300, u'n')), "x"); }},
        {kErrorFileAccess, [&] { files.write(file + QChar(0) + u".bak"_qs, "y"); }},
        {kErrorFileAccess, [&] { files.write(u"/dev/full"_qs, "x"); }}, // not to be replaced by a file
        {kErrorPathNotFound, [&] { files.makeFolder(missing); }},
        {kErrorFileAccess, [&] { files.makeFolder(file); }},
        {kErrorFileNotFound, [&] { files.remove(missing); }},
        {kErrorFileAccess, [&] { files.remove(folder.path()); }},
    };
    for (const auto &row : rows)
        EXPECT_EQ(errorOf(row.act), row.error) << "row " << &row - rows;
    EXPECT_EQ(files.read(file), "x");
    EXPECT_TRUE(holds(2));
    struct stat status = {};
    ASSERT_EQ(::stat("/dev/full", &status), 0);
    EXPECT_TRUE(S_ISCHR(status.st_mode));
}

TEST_F(PosixFileSystemTest, FileThatOutgrowsItsRoomLeavesTheOldOne)
{
    const QString name = path(u"note"_qs);
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
    EXPECT_TRUE(holds(1));
}

TEST_F(PosixFileSystemTest, MissingRightsAreErrorsAndChangeNothing)
{
    const QString shared = path(u"shared"_qs);
    const QString name = shared + u"/note"_qs;
    files.makeFolder(shared);
    files.write(name, "old");
    setMode(folder.path(), 0755);
    setMode(shared, 0555);
    setMode(name, 0000);
    const auto refusals = [&](const std::vector<std::function<void()>> &acts) {
        return inChild([&] {
            if (!becomeOrdinaryUser())
                return 100;
            return static_cast<int>(std::count_if(
                acts.begin(), acts.end(), [](const auto &act) { return errorOf(act) == kErrorFileAccess; }));
        });
    };
    EXPECT_EQ(refusals({[&] { files.read(name); }, [&] { files.write(shared + u"/new"_qs, "x"); },
                        [&] { files.remove(name); }, [&] { files.makeFolder(shared + u"/sub"_qs); }}),
              4);

    // A writable folder does not make its protected files fair game.
    setMode(shared, 0777);
    setMode(name, 0444);
    EXPECT_EQ(refusals({[&] { files.write(name, "new"); }}), 1);
    EXPECT_EQ(files.read(name), "old");
}

} // namespace
