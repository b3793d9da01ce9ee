#include "platform/linux/ProcProcesses.h"
#include "platform/linux/program_naming.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace norvane;

namespace {

const QStringList kFiles{u"/usr/bin/mousepad"_qs, u"/usr/bin/tool"_qs, u"/home/ann/run.py"_qs,
                         u"/home/ann/x.pl"_qs, u"/opt/odd (deleted)"_qs};

std::string program(const ProcessFacts &facts)
{
    return programOf(facts, [](const QString &path) { return kFiles.contains(path); },
                     {u"relative"_qs, u"/usr/local/bin"_qs, u"/usr/bin"_qs})
        .toStdString();
}

struct Row
{
    const char *executable;
    const char *arguments; ///< separated by "|"
    const char *expected;
};

std::string program(const Row &row)
{
    ProcessFacts facts;
    facts.executable = QString::fromUtf8(row.executable);
    facts.arguments = QString::fromUtf8(row.arguments).split(u'|');
    facts.workingFolder = u"/home/ann"_qs;
    return program(facts);
}

} // namespace

TEST(ProgramNaming, FilesCommandLinesAndScripts)
{
    const Row rows[] = {
        {"/usr/bin/mousepad", "mousepad|a.txt", "/usr/bin/mousepad"},
        {"/usr/bin/gone (deleted)", "gone", "/usr/bin/gone"},
        {"/opt/odd (deleted)", "odd", "/opt/odd (deleted)"},
        // The link cannot be read.
        {"", "/usr/bin/mousepad|a.txt", "/usr/bin/mousepad"},
        {"", "tool|x", "/usr/bin/tool"},
        {"", "tool --all in one text", "/usr/bin/tool"},
        {"", "-tool", "/usr/bin/tool"},
        {"", "", ""},
        // An interpreter's script.
        {"/usr/bin/python3.11", "python3|/usr/bin/tool|x", "/usr/bin/tool"},
        {"/usr/bin/python3.11", "python3|-W|ignore|-u|run.py", "/home/ann/run.py"},
        {"/usr/bin/python3.11", "python3|-m|http.server", "/usr/bin/python3.11"},
        {"/usr/bin/python3.11", "python3|gone.py", "/usr/bin/python3.11"},
        {"/usr/bin/perl", "perl|-I|lib|-w|x.pl", "/home/ann/x.pl"},
        {"/usr/bin/bash", "bash|-e|tool|argument", "/usr/bin/tool"},
        {"/usr/bin/node", "node|--require|a.js|/opt/app/main.js", "/opt/app/main.js"},
        {"/usr/lib/jvm/17/bin/java", "java|-cp|x.jar|-jar|/opt/app.jar|y", "/opt/app.jar"},
        {"/usr/lib/jvm/17/bin/java", "java|-cp|x.jar|org.Main", "/usr/lib/jvm/17/bin/java"},
        // No interpreter, whatever its arguments say.
        {"/usr/bin/pythonic", "pythonic|run.py", "/usr/bin/pythonic"},
    };
    for (const Row &row : rows)
        EXPECT_EQ(program(row), row.expected) << row.executable << " " << row.arguments;
}

TEST(ProgramNaming, PackagedPrograms)
{
    ProcessFacts facts;
    facts.executable = u"/app/bin/editor"_qs;
    facts.flatpakId = u"org.example.Editor"_qs;
    EXPECT_EQ(program(facts), "org.example.Editor");

    facts = {};
    facts.executable = u"/snap/firefox/4848/usr/lib/firefox/firefox"_qs;
    EXPECT_EQ(program(facts), "firefox");
    facts.executable = u"/snap/core22/current/usr/bin/python3.10"_qs;
    facts.controlGroup = u"0::/user.slice/snap.notes.notes-1234.scope\n"_qs;
    EXPECT_EQ(program(facts), "notes");
    // A program that a snap has started.
    facts.executable = u"/usr/bin/mousepad"_qs;
    EXPECT_EQ(program(facts), "/usr/bin/mousepad");

    facts = {};
    facts.appImage = u"/home/ann/Editor.AppImage"_qs;
    facts.appImageFolder = u"/tmp/.mount_Edit"_qs;
    facts.executable = u"/tmp/.mount_Edit/usr/bin/editor"_qs;
    EXPECT_EQ(program(facts), "/home/ann/Editor.AppImage");
    facts.executable = u"/usr/bin/mousepad"_qs;
    EXPECT_EQ(program(facts), "/usr/bin/mousepad");
}

TEST(ProcProcesses, ReadsTheProcessFileSystem)
{
    const ProcProcesses processes;
    EXPECT_EQ(processes.programFile(QCoreApplication::applicationPid()),
              QCoreApplication::applicationFilePath());
    EXPECT_EQ(processes.programFile(0), QString());
    EXPECT_EQ(processes.programFile(-1), QString());

    QTemporaryDir folder;
    const QString process = folder.path() + u"/42"_qs;
    ASSERT_TRUE(QDir().mkpath(process + u"/root"_qs));
    const auto write = [&](const char16_t *name, const QByteArray &bytes) {
        QFile file(process + QString::fromUtf16(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
    };
    const ProcProcesses other(folder.path());
    EXPECT_EQ(other.programFile(41), QString());
    ASSERT_TRUE(QFile::link(u"/opt/editor (deleted)"_qs, process + u"/exe"_qs));
    EXPECT_EQ(other.programFile(42), u"/opt/editor"_qs);
    write(u"/environ", QByteArrayLiteral("XAPPIMAGE=/no\0APPIMAGE=/home/ann/E.AppImage\0APPDIR=/opt\0"));
    EXPECT_EQ(other.programFile(42), u"/home/ann/E.AppImage"_qs);
    write(u"/root/.flatpak-info", "[Instance]\nname=no\n[Application]\nname=org.example.Editor\n");
    EXPECT_EQ(other.programFile(42), u"org.example.Editor"_qs);
}
