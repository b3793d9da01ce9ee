#include "in_child.h"

#include "platform/linux/LinuxShell.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>
#include <sys/stat.h>

using namespace norvane;
using namespace Qt::StringLiterals;
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
        qputenv("PATH", QFile::encodeName(path(u"bin"_s)));
        folders.config = path(u"config"_s);
        folders.data = path(u"data"_s);
        folders.configSearch = {folders.config};
        folders.dataSearch = {folders.data, path(u"system"_s)};
        folders.desktops = {u"testdesk"_s};
        makeProgram(u"bin/xdg-open"_s);
        makeProgram(u"bin/gio"_s);
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
        makeFile(name, start + "echo \"${0##*/} $*\" >> \"" + path(u"log"_s).toUtf8() + "\"\n");
        setMode(name, 0755);
    }
    void setMode(const QString &name, mode_t mode)
    {
        ASSERT_EQ(::chmod(QFile::encodeName(path(name)).constData(), mode), 0);
    }
    QStringList log() const
    {
        QFile file(path(u"log"_s));
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
    const QString address = u"https://example.com/?q=a b&c='d'"_s;
    EXPECT_EQ(open(address), Shell::kNoAssociation);
    makeFile(u"config/mimeapps.list"_s, "[Default Applications]\nx-scheme-handler/https=gone.desktop;\n");
    EXPECT_EQ(open(address), Shell::kNoAssociation) << "a program that is not installed";
    makeFile(u"system/applications/vendor/gone.desktop"_s, "[Desktop Entry]\n");
    makeFile(u"config/mimeapps.list"_s,
             "[Default Applications]\nx-scheme-handler/https=vendor-gone.desktop;\n");
    EXPECT_EQ(open(address), Shell::kOpened);
    EXPECT_TRUE(waitForLog(u"xdg-open "_s + address));
}

TEST_F(LinuxShellTest, DocumentIsTestedBeforeItIsOpened)
{
    makeFile(u"docs/a b.txt"_s, "text");
    makeFile(u"docs/a.html"_s, "<html></html>");
    EXPECT_EQ(open(path(u"docs/none.txt"_s)), Shell::kFileNotFound);
    EXPECT_EQ(open(path(u"none/a.txt"_s)), Shell::kPathNotFound);
    EXPECT_EQ(open(path(u"docs/a.html/below"_s)), Shell::kPathNotFound);
    EXPECT_EQ(open(path(u"docs/a b.txt"_s)), Shell::kNoAssociation);

    makeFile(u"system/applications/edit.desktop"_s, "[Desktop Entry]\n");
    makeFile(u"system/applications/mimeinfo.cache"_s, "[MIME Cache]\ntext/plain=edit.desktop;\n");
    EXPECT_EQ(open(path(u"docs/a.html"_s)), Shell::kOpened) << "HTML is text, too";
    EXPECT_TRUE(waitForLog(u"xdg-open "_s + path(u"docs/a.html"_s)));

    // The user has taken the program away from the type.
    makeFile(u"config/testdesk-mimeapps.list"_s, "[Removed Associations]\ntext/plain=edit.desktop;\n");
    EXPECT_EQ(open(path(u"docs/a b.txt"_s)), Shell::kNoAssociation);
}

TEST_F(LinuxShellTest, FolderOpensAsFolderEvenWithAProgramsName)
{
    makeFile(u"system/applications/files.desktop"_s, "[Desktop Entry]\nMimeType=inode/directory;\n");
    ASSERT_TRUE(QDir().mkpath(path(u"My Tool.AppImage"_s)));
    EXPECT_EQ(open(u"file://"_s + path(u"My%20Tool.AppImage"_s)), Shell::kOpened);
    EXPECT_TRUE(waitForLog(u"xdg-open "_s + path(u"My Tool.AppImage"_s)));
}

TEST_F(LinuxShellTest, ProgramRunsByItsPathItsNameOrItsEntry)
{
    makeProgram(u"tools/tool"_s);
    makeProgram(u"bin/other"_s);
    makeFile(u"data/applications/org.example.Tool.desktop"_s, "[Desktop Entry]\n");
    const std::pair<QString, QString> rows[] = {
        {path(u"tools/tool"_s), u"tool "_s},
        {u"other"_s, u"other "_s},
        {u"org.example.Tool"_s,
         u"gio launch "_s + folders.data + u"/applications/org.example.Tool.desktop"_s}};
    for (const auto &[location, started] : rows) {
        EXPECT_EQ(open(location), Shell::kOpened);
        EXPECT_TRUE(waitForLog(started)) << started.toStdString();
        QFile::remove(path(u"log"_s));
    }
    EXPECT_EQ(open(u"no-such-tool"_s), Shell::kFileNotFound);
}

TEST_F(LinuxShellTest, ProgramThatCannotRunSaysSo)
{
    makeProgram(u"Broken.AppImage"_s, "#!/no/such/interpreter\n");
    EXPECT_EQ(open(path(u"Broken.AppImage"_s)), Shell::kBadExecutable);
    setMode(u"Broken.AppImage"_s, 0644);
    EXPECT_EQ(open(path(u"Broken.AppImage"_s)), Shell::kAccessDenied);
}

TEST_F(LinuxShellTest, WithoutALauncherTheAssociationIsIncomplete)
{
    makeFile(u"system/applications/web.desktop"_s, "[Desktop Entry]\nMimeType=x-scheme-handler/http;\n");
    ASSERT_TRUE(QFile::remove(path(u"bin/xdg-open"_s)));
    EXPECT_EQ(open(u"www.a.example"_s), Shell::kOpened);
    EXPECT_TRUE(waitForLog(u"gio open http://www.a.example"_s)) << "a bare web address gets its scheme";
    EXPECT_EQ(open(u"mailto:ann@example.com"_s), Shell::kNoAssociation);
    ASSERT_TRUE(QFile::remove(path(u"bin/gio"_s)));
    EXPECT_EQ(open(u"http://a"_s), Shell::kAssociationIncomplete);
}

TEST_F(LinuxShellTest, MissingRightsAreTold)
{
    makeFile(u"secret.txt"_s, "x");
    makeFile(u"closed/a.txt"_s, "x");
    setMode(u"secret.txt"_s, 0000);
    setMode(u"closed"_s, 0000);
    setMode(QString(), 0755);
    const int result = inChild([&] {
        if (!becomeOrdinaryUser())
            return 100;
        if (open(path(u"secret.txt"_s)) != Shell::kAccessDenied)
            return 1;
        if (open(path(u"closed/a.txt"_s)) != Shell::kAccessDenied)
            return 2;
        return open(path(u"closed"_s)) == Shell::kAccessDenied ? 0 : 3;
    });
    setMode(u"closed"_s, 0700);
    EXPECT_EQ(result, 0);
}

TEST_F(LinuxShellTest, ProgramFolderIsMadeForTheUserAlone)
{
    folders.data = path(u"a/b"_s);
    const QString folder = LinuxShell(folders).programFolder();
    EXPECT_EQ(folder, path(u"a/b/norvane"_s));
    for (const QString &made : {folder, path(u"a"_s)}) {
        struct stat status = {};
        ASSERT_EQ(::stat(QFile::encodeName(made).constData(), &status), 0);
        EXPECT_EQ(status.st_mode & 07777, 0700u);
    }
}

} // namespace
