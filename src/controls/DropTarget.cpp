#include "controls/DropTarget.h"

#include <QDir>
#include <QDropEvent>
#include <QMimeData>
#include <QSysInfo>
#include <QUrl>
#include <QWidget>
#include <utility>

namespace norvane {

namespace {

/// Empty for what is no file of this machine.
QString localFile(QUrl url)
{
    const QString host = url.host();
    const bool isHere = host.isEmpty() || host == u"localhost" ||
                        host.compare(QSysInfo::machineHostName(), Qt::CaseInsensitive) == 0;
    if (!url.isLocalFile() || !isHere)
        return {};
    url.setHost(QString());
    const QByteArray bytes = QByteArray::fromPercentEncoding(url.path(QUrl::FullyEncoded).toLatin1());
    const QString path = QDir::toNativeSeparators(url.toLocalFile());
    // A location is kept without quotes and without blanks at its ends.
    if (!bytes.isValidUtf8() || path.contains(u'"') || path.endsWith(u' '))
        return QString::fromLatin1(url.toEncoded(QUrl::StripTrailingSlash));
    return path.size() > 1 && path.endsWith(QDir::separator()) ? path.chopped(1) : path;
}

/// An address is as the other program gives it, escapes and all.
QString droppedText(const QMimeData &data)
{
    if (!data.hasUrls() || data.hasFormat(QStringLiteral("text/plain")))
        return data.text();
    QStringList addresses;
    const QList<QUrl> urls = data.urls();
    for (const QUrl &url : urls)
        addresses.append(QString::fromLatin1(url.toEncoded()));
    return addresses.join(u'\n');
}

} // namespace

QStringList droppedFiles(const QMimeData &data)
{
    QStringList files;
    const QList<QUrl> urls = data.urls();
    for (const QUrl &url : urls) {
        if (const QString file = localFile(url); !file.isEmpty())
            files.append(file);
    }
    return files;
}

DropTarget::DropTarget(QWidget *widget, std::function<bool()> isWanted)
    : QObject(widget), m_isWanted(std::move(isWanted))
{
    widget->setAcceptDrops(true);
    widget->installEventFilter(this);
}

bool DropTarget::eventFilter(QObject *watched, QEvent *event)
{
    const QEvent::Type type = event->type();
    if (type != QEvent::DragEnter && type != QEvent::DragMove && type != QEvent::Drop)
        return QObject::eventFilter(watched, event);
    auto *drop = static_cast<QDropEvent *>(event);
    const QMimeData &data = *drop->mimeData();
    if ((m_isWanted && !m_isWanted()) || !(data.hasUrls() || data.hasText())) {
        event->ignore();
        return true;
    }
    drop->setDropAction(Qt::CopyAction);
    event->accept();
    if (type == QEvent::Drop) {
        const QStringList files = droppedFiles(data);
        const QString text = files.isEmpty() ? droppedText(data) : QString();
        QMetaObject::invokeMethod(
            this, [this, files, text] { emit dropped(files, text); }, Qt::QueuedConnection);
    }
    return true;
}

} // namespace norvane
