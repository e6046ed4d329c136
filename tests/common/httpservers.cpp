#include "httpservers.h"

#include <QTcpSocket>
#include <QUrl>

#include <memory>

namespace tw {

namespace {

// The request head, once it has arrived whole; empty before.
QByteArray takeHead(QTcpSocket* socket, QByteArray& pending)
{
    pending += socket->readAll();
    const int end = pending.indexOf("\r\n\r\n");
    if (end < 0)
        return QByteArray();
    const QByteArray head = pending.left(end + 4);
    pending.remove(0, end + 4);
    return head;
}

QByteArray header(const QByteArray& head, const QByteArray& name)
{
    for (const QByteArray& line : head.split('\n')) {
        const QByteArray trimmed = line.trimmed();
        if (trimmed.toLower().startsWith(name.toLower() + ":"))
            return trimmed.mid(name.size() + 1).trimmed();
    }
    return QByteArray();
}

} // namespace

HttpServer::HttpServer(QObject* parent) : QObject(parent)
{
    connect(&m_server, &QTcpServer::newConnection, this, &HttpServer::serve);
}

bool HttpServer::listen()
{
    return m_server.listen(QHostAddress::LocalHost, 0);
}

QString HttpServer::url(const QString& path) const
{
    return QString("http://127.0.0.1:%1%2").arg(port()).arg(path);
}

void HttpServer::setReply(const QByteArray& body, int status)
{
    m_body = body;
    m_status = status;
}

void HttpServer::serve()
{
    while (QTcpSocket* socket = m_server.nextPendingConnection()) {
        auto pending = std::make_shared<QByteArray>();
        connect(socket, &QTcpSocket::disconnected, socket, &QObject::deleteLater);
        connect(socket, &QTcpSocket::readyRead, this, [this, socket, pending] {
            const QByteArray head = takeHead(socket, *pending);
            if (head.isEmpty())
                return;
            requests << QString::fromLatin1(head.left(head.indexOf("\r\n")));
            const QByteArray reason = m_status == 200 ? "OK" : "Error";
            QByteArray reply = "HTTP/1.1 " + QByteArray::number(m_status) + " " + reason +
                               "\r\nContent-Type: text/xml\r\nContent-Length: " +
                               QByteArray::number(m_body.size()) + "\r\nConnection: close\r\n\r\n" +
                               m_body;
            socket->write(reply);
            socket->disconnectFromHost();
        });
    }
}

HttpProxy::HttpProxy(QObject* parent) : QObject(parent)
{
    connect(&m_server, &QTcpServer::newConnection, this, &HttpProxy::relay);
}

bool HttpProxy::listen()
{
    return m_server.listen(QHostAddress::LocalHost, 0);
}

void HttpProxy::relay()
{
    while (QTcpSocket* client = m_server.nextPendingConnection()) {
        auto pending = std::make_shared<QByteArray>();
        connect(client, &QTcpSocket::disconnected, client, &QObject::deleteLater);
        connect(client, &QTcpSocket::readyRead, this, [this, client, pending] {
            const QByteArray head = takeHead(client, *pending);
            if (head.isEmpty())
                return;
            const QByteArray line = head.left(head.indexOf("\r\n"));
            requests << QString::fromLatin1(line);
            authorizations << QString::fromLatin1(header(head, "Proxy-Authorization"));
            // "GET http://host:port/path HTTP/1.1" goes out as "GET /path HTTP/1.1".
            const QList<QByteArray> parts = line.split(' ');
            const QUrl target(QString::fromLatin1(parts.value(1)));
            QByteArray outHead = parts.value(0) + " " +
                                 target.toEncoded(QUrl::RemoveScheme | QUrl::RemoveAuthority) +
                                 " " + parts.value(2) +
                                 "\r\nHost: " + target.authority().toLatin1() +
                                 "\r\nConnection: close\r\n\r\n";
            auto* server = new QTcpSocket(client);
            connect(server, &QTcpSocket::connected, server,
                    [server, outHead] { server->write(outHead); });
            connect(server, &QTcpSocket::readyRead, client,
                    [server, client] { client->write(server->readAll()); });
            connect(server, &QTcpSocket::disconnected, client, [server, client] {
                client->write(server->readAll());
                client->disconnectFromHost();
            });
            server->connectToHost(target.host(), static_cast<quint16>(target.port(80)));
        });
    }
}

} // namespace tw
