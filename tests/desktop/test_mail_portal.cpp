#include "file_bytes.h"
#include "harness/VirtualDesktop.h"
#include "platform/linux/LinuxMail.h"

#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusMetaType>
#include <QDBusUnixFileDescriptor>
#include <QDir>
#include <QFileInfo>
#include <gtest/gtest.h>

using namespace norvane;
using namespace norvane::test;
using namespace Qt::StringLiterals;

namespace {

/// The mail portal of a session, which keeps what it was given.
class Portal : public QObject
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.Email")

public:
    QVariantMap given;
    QString attachment; ///< its path
    int calls = 0;

public slots:
    Q_SCRIPTABLE QDBusObjectPath ComposeEmail(const QString &, const QVariantMap &options)
    {
        ++calls;
        given = options;
        const auto files = qdbus_cast<QList<QDBusUnixFileDescriptor>>(
            options.value(u"attachment_fds"_s).value<QDBusArgument>());
        if (!files.isEmpty())
            attachment = QFileInfo(u"/proc/self/fd/%1"_s.arg(files[0].fileDescriptor())).symLinkTarget();
        return QDBusObjectPath(u"/org/freedesktop/portal/desktop/request/1"_s);
    }
};

} // namespace

TEST(MailPortal, TakesTheMailWhereThereIsNoOtherWay)
{
    VirtualDesktop desktop;
    ASSERT_TRUE(desktop.start({.accessibility = false, .windowManager = false}))
        << desktop.error().toStdString();
    qputenv("DBUS_SESSION_BUS_ADDRESS", desktop.sessionBus().toLocal8Bit());
    qputenv("XDG_RUNTIME_DIR", QFile::encodeName(desktop.home() + u"/run"_s));
    qputenv("PATH", "/nonexistent");
    qDBusRegisterMetaType<QList<QDBusUnixFileDescriptor>>();
    const QString data = desktop.home() + u"/data"_s;
    ASSERT_TRUE(QDir().mkpath(data + u"/applications"_s));
    ASSERT_TRUE(putBytes(data + u"/applications/mails.desktop"_s,
                         "[Desktop Entry]\nMimeType=x-scheme-handler/mailto;\n"));
    SessionFolders folders;
    folders.data = data;
    folders.dataSearch = {data};
    LinuxMail mail(folders);
    EXPECT_FALSE(mail.isSetUp());

    Portal portal;
    QDBusConnection bus = QDBusConnection::connectToBus(desktop.sessionBus(), u"portal"_s);
    ASSERT_TRUE(bus.registerObject(u"/org/freedesktop/portal/desktop"_s, &portal,
                                   QDBusConnection::ExportScriptableSlots));
    ASSERT_TRUE(bus.registerService(u"org.freedesktop.portal.Desktop"_s));
    EXPECT_TRUE(mail.isSetUp());
    const QString body = desktop.home() + u"/Norvane_00000001"_s;
    ASSERT_TRUE(putBytes(body, "{\\rtf1 text}"));
    mail.compose({.subject = u"A \"title\""_s,
                  .body = u"https://example.org/"_s,
                  .attachmentFile = body,
                  .attachmentName = u"Norvane Note.rtf"_s});
    ASSERT_TRUE(waitFor([&] { return portal.calls == 1; }));
    EXPECT_EQ(portal.given.value(u"subject"_s).toString(), u"A \"title\""_s);
    EXPECT_EQ(portal.given.value(u"body"_s).toString(), u"https://example.org/"_s);
    EXPECT_TRUE(portal.attachment.endsWith(u"/Norvane Note.rtf"_s)) << portal.attachment.toStdString();
    EXPECT_EQ(bytesOf(portal.attachment), "{\\rtf1 text}");
    QDBusConnection::disconnectFromBus(u"portal"_s);
}

#include "test_mail_portal.moc"
