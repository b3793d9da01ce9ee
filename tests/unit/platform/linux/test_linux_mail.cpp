#include "ScriptedPrograms.h"

#include "error_of.h"
#include "file_bytes.h"
#include "platform/errors.h"
#include "platform/linux/LinuxMail.h"

#include <QDateTime>
#include <QUrl>
#include <QUrlQuery>
#include <utime.h>

using namespace norvane;
using namespace norvane::test;
using namespace Qt::StringLiterals;

namespace {

/// A session with an xdg-email that keeps its arguments, one to a line.
class LinuxMailTest : public testing::Test, protected ScriptedPrograms
{
protected:
    LinuxMailTest() : m_runtime(qgetenv("XDG_RUNTIME_DIR"))
    {
        QDir().mkpath(path(u"run time"_s));
        qputenv("XDG_RUNTIME_DIR", QFile::encodeName(path(u"run time"_s)));
        qputenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=/nonexistent");
        qunsetenv("MAILER");
        folders.config = path(u"config"_s);
        folders.data = path(u"data"_s);
        folders.configSearch = {folders.config};
        folders.dataSearch = {folders.data};
        makeProgram(u"bin/xdg-email"_s, "for a in \"$@\"; do printf '%s\\n' \"$a\"; done > '" +
                                            path(u"arguments.new"_s).toUtf8() + "'\n/bin/mv '" +
                                            path(u"arguments.new"_s).toUtf8() + "' '" +
                                            path(u"arguments"_s).toUtf8() + "'");
    }
    ~LinuxMailTest() override { qputenv("XDG_RUNTIME_DIR", m_runtime); }

    /// What xdg-email was given.
    QStringList arguments()
    {
        const QString file = path(u"arguments"_s);
        EXPECT_TRUE(QTest::qWaitFor([&] { return QFile::exists(file); }, 20000));
        const QStringList lines = QString::fromUtf8(bytesOf(file)).split(u'\n', Qt::SkipEmptyParts);
        QFile::remove(file);
        return lines;
    }
    QStringList copies() const { return QDir(path(u"run time"_s)).entryList({u"norvane-mail-*"_s}); }

    SessionFolders folders;

private:
    QByteArray m_runtime;
};

TEST_F(LinuxMailTest, IsSetUpWithALauncherAndAProgram)
{
    EXPECT_FALSE(LinuxMail(folders).isSetUp());
    makeFile(u"data/applications/mails.desktop"_s, "[Desktop Entry]\nMimeType=x-scheme-handler/mailto;\n");
    EXPECT_TRUE(LinuxMail(folders).isSetUp());
    ASSERT_TRUE(QFile::remove(path(u"bin/xdg-email"_s)));
    EXPECT_FALSE(LinuxMail(folders).isSetUp());
}

TEST_F(LinuxMailTest, GivesEverythingAsItIs)
{
    LinuxMail mail(folders);
    const QString subject = u"'a' \"b\" $HOME `id` \\t 100% #1 & -n; é 😀"_s;
    mail.compose({.subject = subject, .body = u"first\nsecond & last"_s});
    QStringList given = arguments();
    ASSERT_EQ(given.size(), 2);
    EXPECT_EQ(given[0], u"--utf8"_s);
    EXPECT_FALSE(given[1].contains(u'\\') || given[1].contains(u'\''));
    QUrlQuery query{QUrl(given[1])};
    EXPECT_EQ(QUrl(given[1]).scheme(), u"mailto"_s);
    EXPECT_EQ(query.queryItemValue(u"subject"_s, QUrl::FullyDecoded), subject);
    EXPECT_EQ(query.queryItemValue(u"body"_s, QUrl::FullyDecoded), u"first\r\nsecond & last"_s);

    makeFile(u"odd 'folder' %41 é/Norvane_00000007"_s, "{\\rtf1 body}");
    mail.compose({.subject = {},
                  .body = u" "_s,
                  .attachmentFile = path(u"odd 'folder' %41 é/Norvane_00000007"_s),
                  .attachmentName = u"Norvane Note.rtf"_s});
    given = arguments();
    ASSERT_EQ(given.size(), 4);
    EXPECT_EQ(given[3], u"mailto:?subject=&body=%20"_s);
    EXPECT_EQ(given[1], u"--attach"_s);
    const QFileInfo copy(given[2]);
    EXPECT_EQ(copy.fileName(), u"Norvane Note.rtf"_s);
    EXPECT_EQ(bytesOf(given[2]), "{\\rtf1 body}");
    const auto others = QFile::ReadGroup | QFile::WriteGroup | QFile::ReadOther | QFile::WriteOther;
    EXPECT_FALSE(copy.permissions() & others);
    EXPECT_FALSE(QFileInfo(copy.path()).permissions() & others);
    EXPECT_EQ(QFileInfo(copy.path()).path(), path(u"run time"_s));
}

TEST_F(LinuxMailTest, CopiesGoWhenTheyAreOld)
{
    makeFile(u"body"_s, "{\\rtf1}");
    const MailMessage message{
        .subject = {}, .body = u" "_s, .attachmentFile = path(u"body"_s), .attachmentName = u"a.rtf"_s};
    LinuxMail(folders).compose(message);
    LinuxMail(folders).compose(message);
    ASSERT_EQ(copies().size(), 2);
    const utimbuf old{0, ::time(nullptr) - 2 * 24 * 3600};
    const QByteArray first = QFile::encodeName(path(u"run time/"_s) + copies()[0]);
    ASSERT_EQ(::utime(first.constData(), &old), 0);
    const LinuxMail next(folders);
    EXPECT_EQ(copies().size(), 1);
}

TEST_F(LinuxMailTest, LeavesNothingBehindWhenItFails)
{
    makeFile(u"body"_s, "{\\rtf1}");
    MailMessage message{
        .subject = {}, .body = u" "_s, .attachmentFile = path(u"none"_s), .attachmentName = u"a.rtf"_s};
    LinuxMail mail(folders);
    EXPECT_EQ(errorOf([&] { mail.compose(message); }), kErrorFileNotFound);
    message.attachmentFile = path(u"body"_s);
    ASSERT_TRUE(QFile::remove(path(u"bin/xdg-email"_s)));
    EXPECT_EQ(errorOf([&] { mail.compose(message); }), kErrorInvalidCall);
    EXPECT_TRUE(copies().isEmpty());
}

} // namespace
