#include "platform/linux/LinuxMail.h"

#include "platform/RuntimeError.h"
#include "platform/errors.h"
#include "platform/linux/DesktopAssociations.h"
#include "platform/linux/PosixFileSystem.h"
#include "platform/linux/detached_program.h"

#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDBusUnixFileDescriptor>
#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QUrl>
#include <QVariantMap>
#include <fcntl.h>
#include <unistd.h>
#include <utility>

namespace norvane {

namespace {

constexpr int kCopyLastsDays = 1;

QString copyPrefix()
{
    return QStringLiteral("norvane-mail-");
}

/// Where copies are put: the session's own folder, else the one for temporary files.
QString copiesFolder()
{
    const QString session = qEnvironmentVariable("XDG_RUNTIME_DIR");
    const QFileInfo information(session);
    const bool isOurs = !session.isEmpty() && information.isDir() && information.isWritable() &&
                        information.ownerId() == ::geteuid();
    return isOurs ? session : QDir::tempPath();
}

void removeOldCopies()
{
    const QDateTime old = QDateTime::currentDateTime().addDays(-kCopyLastsDays);
    const QFileInfoList copies =
        QDir(copiesFolder())
            .entryInfoList({copyPrefix() + u'*'}, QDir::Dirs | QDir::NoSymLinks | QDir::NoDotAndDotDot);
    for (const QFileInfo &copy : copies) {
        if (copy.ownerId() == ::geteuid() && copy.lastModified() < old)
            QDir(copy.filePath()).removeRecursively();
    }
}

/// A copy of the attachment under its own name, in a folder of its own; empty for no attachment.
QString copyOfAttachment(const MailMessage &message)
{
    if (message.attachmentFile.isEmpty())
        return {};
    PosixFileSystem files;
    const QByteArray bytes = files.read(message.attachmentFile);
    QTemporaryDir folder(copiesFolder() + u'/' + copyPrefix() + QStringLiteral("XXXXXX"));
    if (!folder.isValid())
        throw RuntimeError(kErrorFileAccess,
                           QStringLiteral("The folder \"%1\" cannot be written to. Check its permissions.")
                               .arg(copiesFolder()));
    const QString copy = folder.filePath(message.attachmentName);
    files.write(copy, bytes);
    folder.setAutoRemove(false);
    return copy;
}

/// As a part of a "mailto:" address. Everything that could mean something on the way is escaped.
QString inAddress(QString text)
{
    text.remove(QChar(QChar::Null)).replace(u'\n', QStringLiteral("\r\n"));
    return QString::fromLatin1(QUrl::toPercentEncoding(text));
}

QString xdgEmail()
{
    return QStandardPaths::findExecutable(QStringLiteral("xdg-email"));
}

QString portalService()
{
    return QStringLiteral("org.freedesktop.portal.Desktop");
}

bool hasPortal()
{
    const QDBusConnectionInterface *bus = QDBusConnection::sessionBus().interface();
    return bus && (bus->isServiceRegistered(portalService()).value() ||
                   bus->activatableServiceNames().value().contains(portalService()));
}

bool composeByXdgEmail(const MailMessage &message, const QString &attachment)
{
    QStringList arguments{QStringLiteral("--utf8")};
    if (!attachment.isEmpty())
        arguments << QStringLiteral("--attach") << attachment;
    // Not by --subject and --body: as a shell's echo passes them on, a backslash would not arrive as it is.
    arguments << QStringLiteral("mailto:?subject=") + inAddress(message.subject) + QStringLiteral("&body=") +
                     inAddress(message.body);
    const QString program = xdgEmail();
    return !program.isEmpty() && startDetached(program, arguments);
}

bool composeByPortal(const MailMessage &message, const QString &attachment)
{
    QVariantMap options{{QStringLiteral("subject"), message.subject}, {QStringLiteral("body"), message.body}};
    if (!attachment.isEmpty()) {
        const int file = ::open(QFile::encodeName(attachment).constData(), O_PATH | O_CLOEXEC);
        QDBusUnixFileDescriptor descriptor;
        descriptor.giveFileDescriptor(file);
        qDBusRegisterMetaType<QList<QDBusUnixFileDescriptor>>();
        options.insert(QStringLiteral("attachment_fds"),
                       QVariant::fromValue(QList<QDBusUnixFileDescriptor>{descriptor}));
    }
    QDBusMessage call = QDBusMessage::createMethodCall(
        portalService(), QStringLiteral("/org/freedesktop/portal/desktop"),
        QStringLiteral("org.freedesktop.portal.Email"), QStringLiteral("ComposeEmail"));
    call.setArguments({QString(), options});
    return QDBusConnection::sessionBus().call(call, QDBus::NoBlock).type() != QDBusMessage::ErrorMessage;
}

} // namespace

LinuxMail::LinuxMail(SessionFolders folders) : m_folders(std::move(folders))
{
    removeOldCopies();
}

bool LinuxMail::isSetUp() const
{
    const bool hasWay = !xdgEmail().isEmpty() || hasPortal();
    return hasWay && (qEnvironmentVariableIsSet("MAILER") ||
                      DesktopAssociations(m_folders).hasHandlerForScheme(QStringLiteral("mailto")));
}

void LinuxMail::compose(const MailMessage &message)
{
    removeOldCopies();
    const QString attachment = copyOfAttachment(message);
    const auto byFirstWay = xdgEmail().isEmpty() ? composeByPortal : composeByXdgEmail;
    if (!byFirstWay(message, attachment)) {
        if (!attachment.isEmpty())
            QDir(QFileInfo(attachment).path()).removeRecursively();
        throw RuntimeError(kErrorInvalidCall, QStringLiteral("The mail program could not be started."));
    }
}

} // namespace norvane
