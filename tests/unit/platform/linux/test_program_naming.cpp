#include "platform/linux/ProcProcesses.h"
#include "platform/linux/program_naming.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace norvane;

namespace {

const QStringList kFiles{QStringLiteral("/usr/bin/mousepad"), QStringLiteral("/usr/bin/tool"),
                         QStringLiteral("/home/ann/run.py"), QStringLiteral("/home/ann/x.pl"),
                         QStringLiteral("/opt/odd (deleted)")};

std::string program(const ProcessFacts &facts)
{
    return programOf(
               facts, [](const QString &path) { return kFiles.contains(path); },
               {QStringLiteral("relative"), QStringLiteral("/usr/local/bin"), QStringLiteral("/usr/bin")})
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
    facts.workingFolder = QStringLiteral("/home/ann");
    return program(facts);
}

} // namespace

TEST(ProgramNaming, FilesAndCommandLines)
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
        {"", "nowhere", ""},
        {"", "", ""},
    };
    for (const Row &row : rows)
        EXPECT_EQ(program(row), row.expected) << row.executable << " " << row.arguments;
}

TEST(ProgramNaming, AnInterpretersScript)
{
    const Row rows[] = {
        {"/usr/bin/python3.11", "python3|/usr/bin/tool|x", "/usr/bin/tool"},
        {"/usr/bin/python3.11", "python3|-W|ignore|-u|run.py", "/home/ann/run.py"},
        {"/usr/bin/python3.11", "python3|-m|http.server", "/usr/bin/python3.11"},
        {"/usr/bin/python3.11", "python3|-c|print(1)", "/usr/bin/python3.11"},
        {"/usr/bin/python3.11", "python3", "/usr/bin/python3.11"},
        {"/usr/bin/python3.11", "python3|gone.py", "/usr/bin/python3.11"},
        {"/usr/bin/perl", "perl|-I|lib|-w|x.pl", "/home/ann/x.pl"},
        {"/usr/bin/bash", "bash|-e|tool|argument", "/usr/bin/tool"},
        {"/usr/bin/bash", "bash|-c|tool", "/usr/bin/bash"},
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
    facts.executable = QStringLiteral("/app/bin/editor");
    facts.flatpakId = QStringLiteral("org.example.Editor");
    EXPECT_EQ(program(facts), "org.example.Editor");

    facts = {};
    facts.executable = QStringLiteral("/snap/firefox/4848/usr/lib/firefox/firefox");
    EXPECT_EQ(program(facts), "firefox");
    facts.executable = QStringLiteral("/snap/core22/current/usr/bin/python3.10");
    facts.controlGroup = QStringLiteral("0::/user.slice/snap.notes.notes-1234.scope\n");
    EXPECT_EQ(program(facts), "notes");
    // A program that a snap has started.
    facts.executable = QStringLiteral("/usr/bin/mousepad");
    EXPECT_EQ(program(facts), "/usr/bin/mousepad");

    facts = {};
    facts.appImage = QStringLiteral("/home/ann/Editor.AppImage");
    facts.appImageFolder = QStringLiteral("/tmp/.mount_Edit");
    facts.executable = QStringLiteral("/tmp/.mount_Edit/usr/bin/editor");
    EXPECT_EQ(program(facts), "/home/ann/Editor.AppImage");
    facts.executable = QStringLiteral("/usr/bin/mousepad");
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
    const QString process = folder.path() + QStringLiteral("/42");
    ASSERT_TRUE(QDir().mkpath(process + QStringLiteral("/root")));
    const auto write = [&](const char16_t *name, const QByteArray &bytes) {
        QFile file(process + QString::fromUtf16(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
    };
    const ProcProcesses other(folder.path());
    EXPECT_EQ(other.programFile(41), QString());
    ASSERT_TRUE(QFile::link(QStringLiteral("/opt/editor (deleted)"), process + QStringLiteral("/exe")));
    EXPECT_EQ(other.programFile(42), QStringLiteral("/opt/editor"));
    write(u"/environ", QByteArrayLiteral("XAPPIMAGE=/no\0APPIMAGE=/home/ann/E.AppImage\0APPDIR=/opt\0"));
    EXPECT_EQ(other.programFile(42), QStringLiteral("/home/ann/E.AppImage"));
    write(u"/root/.flatpak-info", "[Instance]\nname=no\n[Application]\nname=org.example.Editor\n");
    EXPECT_EQ(other.programFile(42), QStringLiteral("org.example.Editor"));
}
