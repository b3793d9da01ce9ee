#pragma once

#include <QHash>
#include <QTcpServer>

namespace norvane::test {

/// Serves small web pages on the loopback address.
class PageServer : public QObject
{
    Q_OBJECT

public:
    PageServer();

    /// @param path "/first"
    /// @param script what the page runs when it has been loaded
    /// @return the page's address
    QString addPage(const QString &path, const QString &title, const QString &text,
                    const QString &script = {});

private:
    void answer(QTcpSocket *socket);

    QTcpServer m_server;
    QHash<QString, QByteArray> m_pages;
};

} // namespace norvane::test
