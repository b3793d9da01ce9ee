#include "error_of.h"
#include "exchange/shortcuts/shell_link.h"
#include "exchange/shortcuts/shortcuts.h"
#include "fakes/FakeFileSystem.h"
#include "fakes/FakePrompts.h"
#include "fakes/FakeShell.h"
#include "platform/errors.h"
#include "platform/linux/PosixFileSystem.h"

#include <QProcess>
#include <QTemporaryDir>
#include <gmock/gmock.h>

using namespace norvane;
using namespace Qt::StringLiterals;
using testing::HasSubstr;

namespace {

class ShortcutsTest : public testing::Test
{
protected:
    ShortcutsTest()
    {
        files.addFolder(u"/home/user/Desktop"_s);
        files.addFolder(u"/home/user/Documents/Favorites"_s);
        files.files.insert(u"/home/user/plan.ods"_s, "cells");
        shell.specialFolders.insert(SpecialFolder::Favorites, u"/home/user/Documents/Favorites"_s);
    }

    /// What an independent reader tells of a link.
    std::string read(const ShellLink &link)
    {
        const QString file = folder.filePath(u"a.lnk"_s);
        PosixFileSystem().write(file, shellLinkBytes(link));
        QProcess reader;
        reader.start(u"lnkinfo"_s, {file});
        EXPECT_TRUE(reader.waitForFinished());
        EXPECT_EQ(reader.exitCode(), 0);
        return reader.readAllStandardOutput().simplified().toStdString();
    }

    QTemporaryDir folder;
    fakes::FakeFileSystem files;
    fakes::FakePrompts prompts;
    fakes::FakeShell shell;
    ShortcutParts parts{.shell = shell, .files = files, .prompts = prompts};
    const QString favorite = u"/home/user/Documents/Favorites/Work/Plan.url"_s;
};

TEST_F(ShortcutsTest, AnotherReaderFindsAllInAShellLink)
{
    const std::string told = read({.target = u"/srv/Pläne/план.ods"_s,
                                   .arguments = u"--sheet \"two\""_s,
                                   .workingFolder = u"/srv/Pläne"_s,
                                   .iconPath = u"/usr/share/icons/plan.ico"_s,
                                   .iconIndex = 2,
                                   .showCommand = 3});
    for (const char *part : {"Local path : /srv/Pläne/план.ods", "Command line arguments : --sheet \"two\"",
                             "Working directory : /srv/Pläne", "Icon location : /usr/share/icons/plan.ico",
                             "Icon index : 2", "Drive type : Fixed (3)"})
        EXPECT_THAT(told, HasSubstr(part));
}

TEST_F(ShortcutsTest, FlagsAndTailOfAShellLinkFollowItsTexts)
{
    const QByteArray plain = shellLinkBytes({.target = u"/a"_s, .showCommand = 0});
    EXPECT_EQ(plain.at(20), 3);
    EXPECT_TRUE(plain.endsWith(QByteArray(4 + 2, '\0'))) << "the last path's end and no text behind it";

    const auto tailBehind = [&plain](const ShellLink &link) {
        const QByteArray bytes = shellLinkBytes(link);
        return bytes.mid(plain.size() - 4);
    };
    const QByteArray end(4, '\0');
    EXPECT_EQ(tailBehind({.target = u"/a"_s, .arguments = u"-x é"_s, .workingFolder = u"/w"_s}),
              QByteArray("\2\0/w\4\0-x \xE9", 10) + end);
    const ShellLink icon{.target = u"/a"_s, .iconIndex = 2};
    EXPECT_EQ(shellLinkBytes(icon).at(20), 3 + 64);
    EXPECT_EQ(shellLinkBytes(icon).at(56), 2);
    EXPECT_EQ(shellLinkBytes({.target = u"/a"_s, .showCommand = 3}).at(60), 3);
    EXPECT_EQ(tailBehind(icon), QByteArray("\2\0/a", 4) + end);
    EXPECT_EQ(tailBehind({.target = u"/a"_s, .iconPath = u"/i"_s}), QByteArray("\2\0/i", 4) + end);

    const QString longest(255, u'x');
    EXPECT_EQ(tailBehind({.target = u"/a"_s, .arguments = longest}).left(2), QByteArray("\xFF\0", 2));
    EXPECT_EQ(errorOf([&] { shellLinkBytes({.target = u"/a"_s, .arguments = longest + u'x'}); }),
              kErrorInvalidCall);
    EXPECT_EQ(errorOf([] { shellLinkBytes({.target = u"/a"_s, .workingFolder = u"/план"_s}); }),
              kErrorInvalidCall);
    EXPECT_EQ(errorOf([] { shellLinkBytes({.target = u"/a"_s, .iconIndex = 256}); }), kErrorOverflow);
}

TEST_F(ShortcutsTest, AShortcutNeedsItsFolderAndItsTarget)
{
    const ShellLink link{.target = u"/home/user/plan.ods"_s};
    CreateShortcut(parts, u"/media/stick"_s, u"Plan"_s, link);
    ASSERT_EQ(prompts.boxes.size(), 1);
    EXPECT_EQ(prompts.boxes.last().text, u"Folder '/media/stick' is temporary unavailable."_s);
    EXPECT_EQ(prompts.boxes.last().title, u"Error"_s);
    CreateShortcut(parts, u"/home/user/Desktop"_s, u"Plan"_s, {.target = u"/home/user/gone.ods"_s});
    ASSERT_EQ(prompts.boxes.size(), 2);
    EXPECT_EQ(prompts.boxes.last().text, u"Can not create shortcut. Please try again later."_s);
    EXPECT_EQ(prompts.boxes.last().style, Prompts::kCritical);
    EXPECT_EQ(files.writes, 0);

    CreateShortcut(parts, u"/home/user/Desktop"_s, u"Plan"_s, link);
    EXPECT_EQ(files.files.value(u"/home/user/Desktop/Plan.lnk"_s), shellLinkBytes(link));
    EXPECT_EQ(prompts.boxes.size(), 2);
}

TEST_F(ShortcutsTest, AFavoriteGoesWhereTheUserWantsIt)
{
    QStringList asked;
    QString answer;
    const auto choose = [&](const QString &title, const QString &in) {
        asked.append(title + u" in "_s + in);
        return answer;
    };
    EXPECT_TRUE(AddToFavorites(parts, choose, {}, u"http://a"_s).isEmpty());
    EXPECT_TRUE(AddToFavorites(parts, choose, u"Plan"_s, {}).isEmpty());
    EXPECT_TRUE(asked.isEmpty());

    EXPECT_TRUE(AddToFavorites(parts, choose, u"1/2: \"Plan\"\n<v1.5>"_s, u"http://a"_s).isEmpty());
    EXPECT_EQ(asked, QStringList(u"1 2   Plan   v1.5  in /home/user/Documents/Favorites/"_s));
    EXPECT_EQ(files.writes, 0) << "cancelled";

    files.addFolder(u"/home/user/Documents/Favorites/Work"_s);
    answer = favorite;
    EXPECT_EQ(AddToFavorites(parts, choose, u"Plan"_s, u"http://a/?x=1\r\n[Other]\n&y=ü"_s), favorite);
    EXPECT_EQ(files.files.value(favorite), "[InternetShortcut]\r\nURL=http://a/?x=1[Other]&y=ü\r\n");

    answer = u"/media/stick/Plan.url"_s;
    EXPECT_EQ(errorOf([&] { AddToFavorites(parts, choose, u"Plan"_s, u"http://a"_s); }), kErrorPathNotFound);
    shell.specialFolders.clear();
    EXPECT_TRUE(AddToFavorites(parts, choose, u"Plan"_s, u"http://a"_s).isEmpty());
}

TEST_F(ShortcutsTest, AValueOfAFileOfSectionsChangesAlone)
{
    const QString file = u"/home/user/a.url"_s;
    const auto write = [&](const QByteArray &before) {
        files.files.insert(file, before);
        WriteProfileString(files, u"InternetShortcut"_s, u"URL"_s, u"http://b"_s, file);
        return files.files.value(file);
    };
    EXPECT_EQ(write("[Default]\nURL=x\n[internetshortcut]\nIconIndex=1\nurl = http://a\n[Z]\nURL=z\n\n"),
              "[Default]\r\nURL=x\r\n[internetshortcut]\r\nIconIndex=1\r\nURL=http://b\r\n[Z]\r\nURL=z\r\n");
    EXPECT_EQ(write("[InternetShortcut]\r\nIconIndex=1\r\n[Z]\r\n"),
              "[InternetShortcut]\r\nIconIndex=1\r\nURL=http://b\r\n[Z]\r\n");
    EXPECT_EQ(write("[Z]\r\nURL=z"), "[Z]\r\nURL=z\r\n[InternetShortcut]\r\nURL=http://b\r\n");
}

} // namespace
