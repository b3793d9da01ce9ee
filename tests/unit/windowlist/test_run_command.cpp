#include "error_of.h"
#include "fakes/FakeFileSystem.h"
#include "fakes/FakeShell.h"
#include "fakes/MemorySettings.h"
#include "platform/errors.h"
#include "windowlist/list/RunCommand.h"
#include "windowlist/list/RunHistory.h"
#include "windowlist/list/command_words.h"

#include <gmock/gmock.h>

using namespace norvane;
using namespace norvane::fakes;
using namespace Qt::StringLiterals;
using Kind = norvane::RunCommand::Kind;

namespace {

const QString kHome = u"/home/u"_s;

class Run : public testing::Test
{
protected:
    Run()
    {
        files.addFolder(u"/home/u/My Docs"_s);
        for (const QString &file :
             {u"/home/u/letter.txt"_s, u"/home/u/My Docs/a b.txt"_s, u"/home/u/\"odd\".txt"_s})
            files.files.insert(file, {});
        shell.installed = {u"edit"_s, u"/usr/bin/tool"_s, u"/home/u/bin/mine"_s};
    }
    RunCommand command(const QString &line) const { return RunCommand(line, shell, files, kHome); }
    /// What a line that cannot be started is answered with.
    QString fault(const QString &line)
    {
        try {
            command(line).start(shell);
        } catch (const RuntimeError &error) {
            return error.description();
        }
        return {};
    }

    FakeShell shell;
    FakeFileSystem files;
};

} // namespace

TEST_F(Run, WordsArePartedByBlanksOutsideQuotes)
{
    const QPair<QString, QStringList> rows[] = {
        {u"  edit   a.txt\tb "_s, {u"edit"_s, u"a.txt"_s, u"b"_s}},
        {uR"(edit "a b" 'c d' e\ f)"_s, {u"edit"_s, u"a b"_s, u"c d"_s, u"e f"_s}},
        {uR"(say "a \"b\" \\ \n" 'a\')"_s, {u"say"_s, uR"(a "b" \ \n)"_s, uR"(a\)"_s}},
        {u"a\"b c\"'d e' \"\" ''"_s, {u"ab cd e"_s, {}, {}}},
        {u"ls ~ ~/x '~' ~u a~/b \\~"_s,
         {u"ls"_s, u"/home/u"_s, u"/home/u/x"_s, u"~"_s, u"~u"_s, u"a~/b"_s, u"~"_s}},
        {u"rm -rf $HOME; ls | `x` > *"_s,
         {u"rm"_s, u"-rf"_s, u"$HOME;"_s, u"ls"_s, u"|"_s, u"`x`"_s, u">"_s, u"*"_s}},
        {u"a\\"_s, {u"a\\"_s}},
        {{}, {}},
    };
    for (const auto &[line, words] : rows)
        EXPECT_EQ(commandWords(line, kHome), words) << line.toStdString();
    EXPECT_EQ(errorOf([] { commandWords(u"edit \"a b"_s, kHome); }), kErrorInvalidCall);
    EXPECT_EQ(errorOf([] { commandWords(u"it's"_s, kHome); }), kErrorInvalidCall);
}

TEST_F(Run, AnAddressComesBeforeAPathAndAPathBeforeAProgram)
{
    for (const QString &line : {u"https://a.example/x y"_s, u" www.a.example "_s, u"\"mailto:a@b\""_s})
        EXPECT_EQ(command(line).kind(), Kind::Location) << line.toStdString();
    const QPair<QString, QString> paths[] = {
        {u"letter.txt"_s, u"/home/u/letter.txt"_s},
        {u"~/letter.txt"_s, u"/home/u/letter.txt"_s},
        {u"My Docs/a b.txt"_s, u"/home/u/My Docs/a b.txt"_s},
        {u"'~/My Docs'"_s, u"/home/u/My Docs"_s},
        {u"\"odd\".txt"_s, u"/home/u/\"odd\".txt"_s},
        {u"~"_s, u"/home/u"_s},
        {u"/"_s, u"/"_s},
    };
    for (const auto &[line, location] : paths) {
        EXPECT_EQ(command(line).kind(), Kind::Location) << line.toStdString();
        EXPECT_EQ(command(line).location(), location);
    }
    const RunCommand program = command(u"bin/mine ~/letter.txt --new"_s);
    EXPECT_EQ(program.kind(), Kind::Program);
    EXPECT_EQ(program.program(), u"/home/u/bin/mine"_s);
    EXPECT_EQ(program.arguments(), QStringList({u"/home/u/letter.txt"_s, u"--new"_s}));
    for (const QString &nothing : {QString(), u"  \t"_s, u"\"\""_s})
        EXPECT_EQ(command(nothing).kind(), Kind::Nothing);
}

TEST_F(Run, StartsOrTellsWhyNot)
{
    EXPECT_EQ(fault(u"edit 'a b'"_s), QString());
    EXPECT_EQ(fault(u"letter.txt"_s), QString());
    EXPECT_EQ(shell.ran, QStringList(u"edit|a b"_s));
    EXPECT_EQ(shell.opened, QStringList(u"/home/u/letter.txt"_s));

    EXPECT_TRUE(fault(u"no-such-thing at all"_s).startsWith(u"\"no-such-thing\" was not found."_s));
    shell.runResults[u"edit"_s] = Shell::kAccessDenied;
    EXPECT_EQ(fault(u"edit"_s), u"\"edit\" cannot be opened. Path/file access error"_s);
    shell.openResults[u"foo://x"_s] = Shell::kNoAssociation;
    EXPECT_TRUE(fault(u"foo://x"_s).startsWith(u"\"foo://x\" cannot be opened. No application"_s));
}

TEST_F(Run, PathsAreQuotedWhereALineNeedsIt)
{
    for (const QString &path :
         {u"/home/u/My Docs/a b.txt"_s, u"/home/u/letter.txt"_s, u"/home/u/\"odd\".txt"_s})
        EXPECT_EQ(command(quotedPath(path)).location(), path);
}

TEST_F(Run, RemembersTheLastLinesOnceEach)
{
    MemorySettings settings;
    RunHistory history(settings);
    EXPECT_TRUE(history.list().isEmpty());
    for (int i = 1; i <= RunHistory::kLines + 3; ++i)
        history.add(u"edit %1"_s.arg(i));
    EXPECT_EQ(history.list().size(), RunHistory::kLines);
    EXPECT_EQ(history.list().first(), u"edit 23"_s);
    EXPECT_EQ(history.list().last(), u"edit 4"_s);
    history.add(u"edit 20"_s);
    EXPECT_EQ(history.list().mid(0, 3), QStringList({u"edit 20"_s, u"edit 23"_s, u"edit 22"_s}));
    EXPECT_EQ(RunHistory(settings).list().size(), RunHistory::kLines);
}
