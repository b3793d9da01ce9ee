#include "in_child.h"

#include "platform/linux/LinuxShell.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>
#include <sys/stat.h>

using namespace norvane;
using norvane::test::becomeOrdinaryUser;
using norvane::test::inChild;

namespace {

/// A session of the test's: its own folders, its own launcher that writes down what it gets.
class LinuxShellTest : public testing::Test
{
protected:
    LinuxShellTest() : m_path(qgetenv("PATH"))
    {
        qunsetenv("BROWSER");
        qputenv("PATH", QFile::encodeName(path(QStringLiteral("bin"))));
        folders.config = path(QStringLiteral("config"));
        folders.data = path(QStringLiteral("data"));
        folders.configSearch = {folders.config};
        folders.dataSearch = {folders.data, path(QStringLiteral("system"))};
        folders.desktops = {QStringLiteral("testdesk")};
        makeProgram(QStringLiteral("bin/xdg-open"));
        makeProgram(QStringLiteral("bin/gio"));
    }
    ~LinuxShellTest() override { qputenv("PATH", m_path); }

    QString path(const QString &name) const { return m_folder.path() + u'/' + name; }
    void makeFile(const QString &name, const QByteArray &text)
    {
        ASSERT_TRUE(QDir(m_folder.path()).mkpath(QFileInfo(path(name)).path()));
        QFile file(path(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        ASSERT_EQ(file.write(text), text.size());
    }
    void makeProgram(const QString &name, const QByteArray &start = "#!/bin/sh\n")
    {
        makeFile(name, start + "echo \"${0##*/} $*\" >> \"" + path(QStringLiteral("log")).toUtf8() + "\"\n");
        setMode(name, 0755);
    }
    void setMode(const QString &name, mode_t mode)
    {
        ASSERT_EQ(::chmod(QFile::encodeName(path(name)).constData(), mode), 0);
    }
    QStringList log() const
    {
        QFile file(path(QStringLiteral("log")));
        if (!file.open(QIODevice::ReadOnly))
            return {};
        return QString::fromUtf8(file.readAll()).split(u'\n', Qt::SkipEmptyParts);
    }
    bool waitForLog(const QString &line)
    {
        return QTest::qWaitFor([&] { return log() == QStringList(line); }, 20000);
    }
    int open(const QString &location) { return LinuxShell(folders).open(location); }

    QTemporaryDir m_folder;
    SessionFolders folders;

private:
    QByteArray m_path;
};

TEST_F(LinuxShellTest, AddressGoesToTheLauncherWhenAProgramIsThere)
{
    const QString address = QStringLiteral("https://example.com/?q=a b&c='d'");
    EXPECT_EQ(open(address), Shell::kNoAssociation);
    makeFile(QStringLiteral("config/mimeapps.list"),
             "[Default Applications]\nx-scheme-handler/https=gone.desktop;\n");
    EXPECT_EQ(open(address), Shell::kNoAssociation) << "a program that is not installed";
    makeFile(QStringLiteral("system/applications/vendor/gone.desktop"), "[Desktop Entry]\n");
    makeFile(QStringLiteral("config/mimeapps.list"),
             "[Default Applications]\nx-scheme-handler/https=vendor-gone.desktop;\n");
    EXPECT_EQ(open(address), Shell::kOpened);
    EXPECT_TRUE(waitForLog(QStringLiteral("xdg-open ") + address));
}

TEST_F(LinuxShellTest, BareWebAddressGetsItsScheme)
{
    makeFile(QStringLiteral("system/applications/web.desktop"),
             "[Desktop Entry]\nMimeType=text/html;x-scheme-handler/http;\n");
    EXPECT_EQ(open(QStringLiteral("www.example.com")), Shell::kOpened);
    EXPECT_TRUE(waitForLog(QStringLiteral("xdg-open http://www.example.com")));
    EXPECT_EQ(open(QStringLiteral("mailto:ann@example.com")), Shell::kNoAssociation);
}

TEST_F(LinuxShellTest, DocumentIsTestedBeforeItIsOpened)
{
    makeFile(QStringLiteral("docs/a b.txt"), "text");
    makeFile(QStringLiteral("docs/a.html"), "<html></html>");
    EXPECT_EQ(open(path(QStringLiteral("docs/none.txt"))), Shell::kFileNotFound);
    EXPECT_EQ(open(path(QStringLiteral("none/a.txt"))), Shell::kPathNotFound);
    EXPECT_EQ(open(path(QStringLiteral("docs/a.html/below"))), Shell::kPathNotFound);
    EXPECT_EQ(open(path(QStringLiteral("docs/a b.txt"))), Shell::kNoAssociation);

    makeFile(QStringLiteral("system/applications/edit.desktop"), "[Desktop Entry]\n");
    makeFile(QStringLiteral("system/applications/mimeinfo.cache"),
             "[MIME Cache]\ntext/plain=edit.desktop;\n");
    EXPECT_EQ(open(path(QStringLiteral("docs/a.html"))), Shell::kOpened) << "HTML is text, too";
    EXPECT_TRUE(waitForLog(QStringLiteral("xdg-open ") + path(QStringLiteral("docs/a.html"))));

    // The user has taken the program away from the type.
    makeFile(QStringLiteral("config/testdesk-mimeapps.list"),
             "[Removed Associations]\ntext/plain=edit.desktop;\n");
    EXPECT_EQ(open(path(QStringLiteral("docs/a b.txt"))), Shell::kNoAssociation);
}

TEST_F(LinuxShellTest, FolderOpensAsFolderEvenWithAProgramsName)
{
    makeFile(QStringLiteral("system/applications/files.desktop"),
             "[Desktop Entry]\nMimeType=inode/directory;\n");
    ASSERT_TRUE(QDir().mkpath(path(QStringLiteral("My Tool.AppImage"))));
    EXPECT_EQ(open(QStringLiteral("file://") + path(QStringLiteral("My%20Tool.AppImage"))), Shell::kOpened);
    EXPECT_TRUE(waitForLog(QStringLiteral("xdg-open ") + path(QStringLiteral("My Tool.AppImage"))));
}

TEST_F(LinuxShellTest, ProgramRuns)
{
    makeProgram(QStringLiteral("tools/tool"));
    EXPECT_EQ(open(path(QStringLiteral("tools/tool"))), Shell::kOpened);
    EXPECT_TRUE(waitForLog(QStringLiteral("tool ")));
}

TEST_F(LinuxShellTest, ProgramIsFoundByItsName)
{
    makeProgram(QStringLiteral("bin/tool"));
    EXPECT_EQ(open(QStringLiteral("tool")), Shell::kOpened);
    EXPECT_TRUE(waitForLog(QStringLiteral("tool ")));
    EXPECT_EQ(open(QStringLiteral("no-such-tool")), Shell::kFileNotFound);
}

TEST_F(LinuxShellTest, SandboxedProgramIsFoundByItsEntry)
{
    makeFile(QStringLiteral("data/applications/org.example.Tool.desktop"), "[Desktop Entry]\n");
    EXPECT_EQ(open(QStringLiteral("org.example.Tool")), Shell::kOpened);
    EXPECT_TRUE(waitForLog(QStringLiteral("gio launch ") + folders.data +
                           QStringLiteral("/applications/org.example.Tool.desktop")));
}

TEST_F(LinuxShellTest, ProgramThatCannotRunSaysSo)
{
    makeProgram(QStringLiteral("Broken.AppImage"), "#!/no/such/interpreter\n");
    EXPECT_EQ(open(path(QStringLiteral("Broken.AppImage"))), Shell::kBadExecutable);
    setMode(QStringLiteral("Broken.AppImage"), 0644);
    EXPECT_EQ(open(path(QStringLiteral("Broken.AppImage"))), Shell::kAccessDenied);
}

TEST_F(LinuxShellTest, WithoutALauncherTheAssociationIsIncomplete)
{
    makeFile(QStringLiteral("system/applications/web.desktop"),
             "[Desktop Entry]\nMimeType=x-scheme-handler/http;\n");
    ASSERT_TRUE(QFile::remove(path(QStringLiteral("bin/xdg-open"))));
    EXPECT_EQ(open(QStringLiteral("http://a")), Shell::kOpened);
    EXPECT_TRUE(waitForLog(QStringLiteral("gio open http://a")));
    ASSERT_TRUE(QFile::remove(path(QStringLiteral("bin/gio"))));
    EXPECT_EQ(open(QStringLiteral("http://a")), Shell::kAssociationIncomplete);
}

TEST_F(LinuxShellTest, MissingRightsAreTold)
{
    makeFile(QStringLiteral("secret.txt"), "x");
    makeFile(QStringLiteral("closed/a.txt"), "x");
    setMode(QStringLiteral("secret.txt"), 0000);
    setMode(QStringLiteral("closed"), 0000);
    setMode(QString(), 0755);
    const int result = inChild([&] {
        if (!becomeOrdinaryUser())
            return 100;
        if (open(path(QStringLiteral("secret.txt"))) != Shell::kAccessDenied)
            return 1;
        if (open(path(QStringLiteral("closed/a.txt"))) != Shell::kAccessDenied)
            return 2;
        return open(path(QStringLiteral("closed"))) == Shell::kAccessDenied ? 0 : 3;
    });
    setMode(QStringLiteral("closed"), 0700);
    EXPECT_EQ(result, 0);
}

TEST_F(LinuxShellTest, ProgramFolderIsMadeForTheUserAlone)
{
    folders.data = path(QStringLiteral("a/b"));
    const QString folder = LinuxShell(folders).programFolder();
    EXPECT_EQ(folder, path(QStringLiteral("a/b/norvane")));
    for (const QString &made : {folder, path(QStringLiteral("a"))}) {
        struct stat status = {};
        ASSERT_EQ(::stat(QFile::encodeName(made).constData(), &status), 0);
        EXPECT_EQ(status.st_mode & 07777, 0700u);
    }
}

} // namespace
