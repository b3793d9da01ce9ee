#include "PageServer.h"

#include <QTcpSocket>

namespace norvane::test {

PageServer::PageServer()
{
    m_server.listen(QHostAddress::LocalHost);
    connect(&m_server, &QTcpServer::newConnection, this, [this] {
        while (QTcpSocket *socket = m_server.nextPendingConnection()) {
            connect(socket, &QTcpSocket::readyRead, this, [this, socket] { answer(socket); });
            connect(socket, &QTcpSocket::disconnected, socket, &QObject::deleteLater);
        }
    });
}

QString PageServer::addPage(const QString &path, const QString &title, const QString &text,
                            const QString &script)
{
    const QString page = QStringLiteral("<!doctype html><meta charset=utf-8><title>%1</title>"
                                        "<link rel=icon href=data:,>"
                                        "<body style=\"font:20px/1.6 sans-serif;margin:3em;max-width:40em\">"
                                        "<h1>%1</h1><p>%2<script>%3</script>")
                             .arg(title.toHtmlEscaped(), text.toHtmlEscaped(), script);
    m_pages.insert(path, page.toUtf8());
    return QStringLiteral("http://127.0.0.1:%1%2").arg(m_server.serverPort()).arg(path);
}

void PageServer::answer(QTcpSocket *socket)
{
    if (!socket->canReadLine())
        return;
    const QString path = QString::fromLatin1(socket->readLine().split(' ').value(1));
    const QByteArray page = m_pages.value(path);
    socket->readAll();
    socket->write(page.isEmpty() ? "HTTP/1.0 404 Not Found\r\n" : "HTTP/1.0 200 OK\r\n");
    socket->write("Content-Type: text/html; charset=utf-8\r\nCache-Control: no-store\r\nContent-Length: " +
                  QByteArray::number(page.size()) + "\r\n\r\n" + page);
    socket->disconnectFromHost();
}

} // namespace norvane::test
