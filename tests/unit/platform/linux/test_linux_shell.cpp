#include "ScriptedPrograms.h"
#include "in_child.h"

#include "error_of.h"
#include "file_bytes.h"
#include "platform/linux/LinuxShell.h"

#include <QCoreApplication>
#include <QFileInfo>

using namespace norvane;
using namespace norvane::test;

namespace {

/// A session of the test's: its own folders and its own launchers.
class LinuxShellTest : public testing::Test, protected ScriptedPrograms
{
protected:
    LinuxShellTest()
    {
        qunsetenv("BROWSER");
        folders.config = path(u"config"_qs);
        folders.data = path(u"data"_qs);
        folders.configSearch = {folders.config};
        folders.dataSearch = {folders.data, path(u"system"_qs)};
        folders.desktops = {u"testdesk"_qs};
        makeProgram(u"bin/xdg-open"_qs);
        makeProgram(u"bin/gio"_qs);
    }

    int open(const QString &location) { return LinuxShell(folders).open(location); }
    int openFile(const QString &name) { return open(path(name)); }

    SessionFolders folders;
};

TEST_F(LinuxShellTest, AddressGoesToTheLauncherWhenAProgramIsThere)
{
    const QString address = u"https://example.com/?q=a b&c='d'"_qs;
    EXPECT_EQ(open(address), Shell::kNoAssociation);
    makeFile(u"config/mimeapps.list"_qs, "[Default Applications]\nx-scheme-handler/https=gone.desktop;\n");
    EXPECT_EQ(open(address), Shell::kNoAssociation) << "a program that is not installed";
    makeFile(u"system/applications/vendor/gone.desktop"_qs, "[Desktop Entry]\n");
    makeFile(u"config/mimeapps.list"_qs,
             "[Default Applications]\nx-scheme-handler/https=vendor-gone.desktop;\n");
    EXPECT_EQ(open(address), Shell::kOpened);
    EXPECT_TRUE(waitForLog({u"xdg-open "_qs + address}));
}

TEST_F(LinuxShellTest, AddressesFindALauncherOrSaySo)
{
    makeFile(u"system/applications/web.desktop"_qs,
             "[Desktop Entry]\nMimeType=text/html;x-scheme-handler/http;\n");
    EXPECT_EQ(open(u"mailto:ann@example.com"_qs), Shell::kNoAssociation);
    EXPECT_EQ(open(u"www.example.com"_qs), Shell::kOpened);
    EXPECT_TRUE(waitForLog({u"xdg-open http://www.example.com"_qs}));
    ASSERT_TRUE(QFile::remove(path(u"bin/xdg-open"_qs)));
    EXPECT_EQ(open(u"http://a"_qs), Shell::kOpened);
    EXPECT_TRUE(waitForLog({u"xdg-open http://www.example.com"_qs, u"gio open http://a"_qs}));
    ASSERT_TRUE(QFile::remove(path(u"bin/gio"_qs)));
    EXPECT_EQ(open(u"http://a"_qs), Shell::kAssociationIncomplete);
}

TEST_F(LinuxShellTest, DocumentIsTestedBeforeItIsOpened)
{
    makeFile(u"docs/a b.txt"_qs, "text");
    makeFile(u"docs/a.html"_qs, "<html></html>");
    EXPECT_EQ(openFile(u"docs/none.txt"_qs), Shell::kFileNotFound);
    EXPECT_EQ(openFile(u"none/a.txt"_qs), Shell::kPathNotFound);
    EXPECT_EQ(openFile(u"docs/a.html/below"_qs), Shell::kPathNotFound);
    EXPECT_EQ(openFile(u"docs/a b.txt"_qs), Shell::kNoAssociation);

    makeFile(u"system/applications/edit.desktop"_qs, "[Desktop Entry]\n");
    makeFile(u"system/applications/mimeinfo.cache"_qs, "[MIME Cache]\ntext/plain=edit.desktop;\n");
    EXPECT_EQ(openFile(u"docs/a.html"_qs), Shell::kOpened) << "HTML is text, too";
    EXPECT_TRUE(waitForLog({u"xdg-open docs/a.html"_qs}));
    const QByteArray noText = QFile::encodeName(path(u"docs/caf"_qs)) + "\xe9.html";
    ASSERT_EQ(::symlink("a.html", noText.constData()), 0);
    const QString address = u"file://"_qs + path(u"docs/caf%E9.html"_qs);
    EXPECT_EQ(open(address), Shell::kOpened) << "a name that is no text";
    ::unlink(noText.constData());
    EXPECT_TRUE(waitForLog({u"xdg-open docs/a.html"_qs, u"xdg-open file://docs/caf%E9.html"_qs}));
    EXPECT_EQ(open(address), Shell::kFileNotFound);

    // The user has taken the program away from the type.
    makeFile(u"config/testdesk-mimeapps.list"_qs, "[Removed Associations]\ntext/plain=edit.desktop;\n");
    EXPECT_EQ(openFile(u"docs/a b.txt"_qs), Shell::kNoAssociation);
}

TEST_F(LinuxShellTest, FolderOpensAsFolderEvenWithAProgramsName)
{
    makeFile(u"system/applications/files.desktop"_qs, "[Desktop Entry]\nMimeType=inode/directory;\n");
    ASSERT_TRUE(QDir().mkpath(path(u"My Tool.AppImage"_qs)));
    EXPECT_EQ(open(u"file://"_qs + path(u"My%20Tool.AppImage"_qs)), Shell::kOpened);
    EXPECT_TRUE(waitForLog({u"xdg-open My Tool.AppImage"_qs}));
}

TEST_F(LinuxShellTest, ProgramsRunByPathByNameAndByTheirEntry)
{
    makeProgram(u"tools/tool"_qs);
    makeProgram(u"bin/named"_qs);
    makeFile(u"data/applications/org.example.Tool.desktop"_qs, "[Desktop Entry]\n");
    EXPECT_EQ(openFile(u"tools/tool"_qs), Shell::kOpened);
    EXPECT_TRUE(waitForLog({u"tool "_qs}));
    EXPECT_EQ(open(u"named"_qs), Shell::kOpened);
    EXPECT_TRUE(waitForLog({u"tool "_qs, u"named "_qs}));
    EXPECT_EQ(open(u"org.example.Tool"_qs), Shell::kOpened) << "one in a sandbox";
    EXPECT_TRUE(
        waitForLog({u"tool "_qs, u"named "_qs, u"gio launch data/applications/org.example.Tool.desktop"_qs}));

    EXPECT_EQ(open(u"no-such-tool"_qs), Shell::kFileNotFound);
    makeProgram(u"Broken.AppImage"_qs, {}, "/no/such/interpreter");
    EXPECT_EQ(openFile(u"Broken.AppImage"_qs), Shell::kBadExecutable);
    setMode(u"Broken.AppImage"_qs, 0644);
    EXPECT_EQ(openFile(u"Broken.AppImage"_qs), Shell::kAccessDenied);
}

TEST_F(LinuxShellTest, TellsTheNamesInAFolder)
{
    for (const QString &name :
         {u"docs/plan.ods"_qs, u"docs/b\u00e9.txt"_qs, u"docs/In/x"_qs, u"docs/.old"_qs})
        makeFile(name, "text");
    const LinuxShell shell(folders);
    EXPECT_EQ(shell.namesIn(path(u"docs"_qs), false).result(),
              QStringList({u"In/"_qs, u"b\u00e9.txt"_qs, u"plan.ods"_qs}));
    EXPECT_EQ(shell.namesIn(path(u"docs/"_qs), true).result().value(0), u".old"_qs);
    EXPECT_TRUE(shell.namesIn(path(u"nowhere"_qs), true).result().isEmpty());
}

TEST_F(LinuxShellTest, ProgramsRunWithArgumentsThatNoShellReads)
{
    makeProgram(u"tools/tool"_qs);
    makeProgram(u"bin/named"_qs);
    makeFile(u"bin/no program"_qs, "text");
    makeFile(u"data/applications/org.example.Tool.desktop"_qs, "[Desktop Entry]\n");
    LinuxShell shell(folders);
    EXPECT_EQ(shell.programNames(), QStringList({u"gio"_qs, u"named"_qs, u"xdg-open"_qs}));
    EXPECT_EQ(shell.run(u"named"_qs, {u"a  b"_qs, u"$HOME;"_qs, u"`x`"_qs, u"*"_qs}), Shell::kOpened);
    EXPECT_TRUE(waitForLog({u"named a  b $HOME; `x` *"_qs}));
    EXPECT_EQ(shell.run(path(u"tools/tool"_qs), {u"c"_qs}), Shell::kOpened);
    EXPECT_TRUE(waitForLog({u"named a  b $HOME; `x` *"_qs, u"tool c"_qs}));

    EXPECT_EQ(shell.run(path(u"bin/no program"_qs), {}), Shell::kAccessDenied);
    EXPECT_EQ(shell.run(path(u"tools"_qs), {}), Shell::kAccessDenied);
    EXPECT_EQ(shell.run(path(u"tools/none"_qs), {}), Shell::kFileNotFound);
    EXPECT_EQ(shell.run(u"org.example.Tool"_qs, {u"with"_qs, u"arguments"_qs}), Shell::kFileNotFound);
    EXPECT_EQ(shell.run(QString(u"named"_qs).append(QChar(u'\0')), {}), Shell::kFileNotFound);
    EXPECT_TRUE(shell.isAddress(u"www.example.org"_qs));
    EXPECT_FALSE(shell.isAddress(u"named a:b"_qs));
}

TEST_F(LinuxShellTest, MissingRightsAreTold)
{
    makeFile(u"secret.txt"_qs, "x");
    makeFile(u"closed/a.txt"_qs, "x");
    setMode(u"secret.txt"_qs, 0000);
    setMode(u"closed"_qs, 0000);
    setMode(QString(), 0755);
    const QStringList denied{u"secret.txt"_qs, u"closed/a.txt"_qs, u"closed"_qs};
    const int result = inChild([&] {
        if (!becomeOrdinaryUser())
            return 100;
        return static_cast<int>(std::count_if(denied.begin(), denied.end(), [&](const QString &name) {
            return openFile(name) == Shell::kAccessDenied;
        }));
    });
    setMode(u"closed"_qs, 0700);
    EXPECT_EQ(result, denied.size());
}

TEST_F(LinuxShellTest, ProgramFolderIsMadeForTheUserAlone)
{
    folders.data = path(u"a/b"_qs);
    const QString folder = LinuxShell(folders).programFolder();
    EXPECT_EQ(folder, path(u"a/b/norvane"_qs));
    for (const QString &made : {folder, path(u"a"_qs)}) {
        struct stat status = {};
        ASSERT_EQ(::stat(QFile::encodeName(made).constData(), &status), 0);
        EXPECT_EQ(status.st_mode & 07777, 0700u);
    }
}

TEST_F(LinuxShellTest, FavoritesAreMadeAmongTheUsersDocuments)
{
    folders.documents = path(u"Dokumente"_qs);
    const LinuxShell shell(folders);
    EXPECT_EQ(shell.specialFolder(SpecialFolder::Favorites), path(u"Dokumente/Favorites"_qs));
    EXPECT_TRUE(QFileInfo(path(u"Dokumente/Favorites"_qs)).isDir());
    EXPECT_EQ(shell.specialFolder(SpecialFolder::Startup), path(u"config/autostart"_qs));
    EXPECT_TRUE(shell.specialFolder(SpecialFolder::Recent).isEmpty());
}

TEST_F(LinuxShellTest, StartsWithTheSessionByAnEntryThatTheDesktopMaySwitchOff)
{
    const QString entry = path(u"config/autostart/norvane.desktop"_qs);
    LinuxShell shell(folders);
    EXPECT_FALSE(shell.startsWithSession());
    shell.setStartsWithSession(false); // nothing to take away
    shell.setStartsWithSession(true);
    EXPECT_TRUE(shell.startsWithSession());
    const QString command = u"\nExec=\"%1\"\n"_qs.arg(QCoreApplication::applicationFilePath());
    EXPECT_TRUE(bytesOf(entry).contains(command.toUtf8())) << bytesOf(entry).toStdString();
    for (const char *off : {"Hidden=true", "X-GNOME-Autostart-enabled = false"}) {
        makeFile(u"config/autostart/norvane.desktop"_qs, QByteArray("[Desktop Entry]\nExec=norvane\n") + off);
        EXPECT_FALSE(shell.startsWithSession()) << off;
    }
    shell.setStartsWithSession(true);
    EXPECT_TRUE(shell.startsWithSession());
    shell.setStartsWithSession(false);
    EXPECT_FALSE(QFile::exists(entry));
    makeFile(u"config2"_qs, "in the way of the folder");
    folders.config = path(u"config2"_qs);
    EXPECT_NE(errorOf([&] { LinuxShell(folders).setStartsWithSession(true); }), 0);
}

} // namespace
