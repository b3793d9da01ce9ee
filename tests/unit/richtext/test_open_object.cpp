#include "fakes/FakePrompts.h"
#include "fakes/FakeShell.h"
#include "richtext/commands/ExtractedFiles.h"
#include "richtext/commands/open_object.h"
#include "richtext/rtf/operations.h"
#include "richtext/rtf/package_object.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <gtest/gtest.h>
#include <optional>

using namespace norvane;

namespace {

rtf::EmbeddedObject objectOf(const QString &name, const QByteArray &bytes)
{
    return {rtf::kPackageClass, rtf::packageData({u"label"_qs, name, {}, bytes}), {}, {}};
}

/// A desktop whose programs look at what they are given while they open it.
class WatchingShell : public fakes::FakeShell
{
public:
    QByteArray content;
    bool isProgram = false;
    int result = kOpened;

    bool runsProgram(const QString &) const override { return isProgram; }
    int open(const QString &path) override
    {
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        content = file.readAll();
        FakeShell::open(path);
        return result;
    }
};

class OpenObject : public testing::Test
{
protected:
    WatchingShell shell;
    fakes::FakePrompts prompts;
    std::optional<ExtractedFiles> files{std::in_place};
};

} // namespace

TEST_F(OpenObject, OpensAPrivateCopyAfterAsking)
{
    const rtf::EmbeddedObject object = objectOf(u"C:\\Users\\a\\report.pdf"_qs, "%PDF");
    openObject(object, shell, prompts, *files); // answered No
    EXPECT_TRUE(shell.opened.isEmpty());
    ASSERT_EQ(prompts.boxes.size(), 1);
    EXPECT_TRUE(prompts.boxes.first().text.contains(u"'report.pdf'"));
    EXPECT_EQ(prompts.boxes.first().style, Prompts::kYesNo | Prompts::kQuestion);

    prompts.answers.append({Prompts::kYes, Prompts::kYes});
    openObject(object, shell, prompts, *files);
    openObject(object, shell, prompts, *files);
    EXPECT_EQ(prompts.boxes.size(), 3);
    EXPECT_EQ(shell.content, "%PDF");
    ASSERT_EQ(shell.opened.size(), 2);
    EXPECT_NE(shell.opened.at(0), shell.opened.at(1));
    const QFileInfo copy(shell.opened.first());
    EXPECT_EQ(copy.fileName(), u"report.pdf"_qs);
    constexpr auto kOwn = QFileDevice::ReadUser | QFileDevice::WriteUser | QFileDevice::ExeUser;
    constexpr auto kOthers = QFileDevice::ReadGroup | QFileDevice::WriteGroup | QFileDevice::ExeGroup |
                             QFileDevice::ReadOther | QFileDevice::WriteOther | QFileDevice::ExeOther;
    const QFileInfo folder(QFileInfo(copy.path()).path());
    EXPECT_EQ(folder.permissions() & kOthers, QFileDevice::Permissions());
    EXPECT_FALSE(copy.permissions() & (kOthers | QFileDevice::ExeOwner | QFileDevice::WriteOwner));
    EXPECT_TRUE(folder.permissions() & kOwn);

    files.reset(); // the program ends
    EXPECT_FALSE(QFileInfo::exists(folder.filePath()));
}

TEST_F(OpenObject, WarnsOfPrograms)
{
    shell.isProgram = true;
    openObject(objectOf(u"setup.sh"_qs, "#!/bin/sh\n"), shell, prompts, *files);
    ASSERT_EQ(prompts.boxes.size(), 1);
    EXPECT_TRUE(prompts.boxes.first().text.contains(u"'setup.sh' is a program"));
    EXPECT_EQ(prompts.boxes.first().style, Prompts::kYesNo | Prompts::kExclamation);
    EXPECT_TRUE(shell.opened.isEmpty());
}

TEST_F(OpenObject, TellsWhyNothingOpens)
{
    const auto told = [&](const rtf::EmbeddedObject &object) {
        prompts.boxes.clear();
        openObject(object, shell, prompts, *files);
        return prompts.boxes.isEmpty() ? QString() : prompts.boxes.last().text;
    };
    EXPECT_TRUE(told({u"Excel.Sheet.8"_qs, "\x01\x05", {}, {}}).contains(u"'Excel.Sheet.8'"));
    EXPECT_TRUE(told({u"Package"_qs, objectOf(u"a"_qs, "abc").data.left(50), {}, {}}).contains(u"damaged"));
    EXPECT_TRUE(shell.opened.isEmpty());

    prompts.answers.append({Prompts::kYes, Prompts::kYes});
    shell.result = Shell::kNoAssociation;
    EXPECT_EQ(told(objectOf(u"a.xyz"_qs, "abc")), u"There is no program here that opens 'a.xyz'."_qs);
    shell.result = Shell::kAccessDenied;
    EXPECT_EQ(told(objectOf(u"a.xyz"_qs, "abc")), u"'a.xyz' could not be opened."_qs);
    EXPECT_FALSE(QFileInfo::exists(shell.opened.last()));
}

TEST(SafeFileName, IsTheLastPartOfAPathAndNothingElse)
{
    const struct
    {
        QString name;
        QString safe;
    } rows[] = {
        {u"a.txt"_qs, u"a.txt"_qs},
        {u"../../etc/passwd"_qs, u"passwd"_qs},
        {u"C:\\x\\..\\b c.doc"_qs, u"b c.doc"_qs},
        {u".."_qs, u"Object"_qs},
        {u"a/.."_qs, u"Object"_qs},
        {u"dir/"_qs, u"Object"_qs},
        {u""_qs, u"Object"_qs},
        {u".bashrc"_qs, u"bashrc"_qs},
        {u". . x. "_qs, u"x"_qs},
        {u"a\nb\u0007.\tx"_qs, u"ab.x"_qs},
        {u"fdp.\u202Etxt.exe"_qs, u"fdp.txt.exe"_qs}, // shown as "fdp.exe.txt" otherwise
        {u"a:b?c*\"<>|.x"_qs, u"a_b_c_____.x"_qs},
        {u"Übersicht 概要.pdf"_qs, u"Übersicht 概要.pdf"_qs},
    };
    for (const auto &row : rows)
        EXPECT_EQ(safeFileName(row.name), row.safe) << row.name.toStdString();

    const QString longest = safeFileName(QString(500, u'概') + u".pdf"_qs);
    EXPECT_TRUE(longest.endsWith(u"概.pdf"_qs));
    EXPECT_LE(longest.toUtf8().size(), 255);
    EXPECT_LE(safeFileName(u"a."_qs + QString(500, u'x')).toUtf8().size(), 255);
}
