#pragma once
// A small HTTP server and an HTTP proxy on the loopback, for tests that need
// real requests to travel: the server answers every request with the body
// and status it was given and remembers each request line; the proxy relays
// absolute-form requests to their server and remembers what passed through.
// Both run on the test's event loop.

#include <QByteArray>
#include <QList>
#include <QObject>
#include <QString>
#include <QStringList>
#include <QTcpServer>

namespace tw {

class HttpServer : public QObject
{
    Q_OBJECT

public:
    explicit HttpServer(QObject* parent = nullptr);
    bool listen();
    quint16 port() const { return m_server.serverPort(); }
    // "http://127.0.0.1:<port>" + path.
    QString url(const QString& path) const;

    void setReply(const QByteArray& body, int status = 200);
    // The request lines received, in order ("GET /path?query HTTP/1.1").
    QStringList requests;

private:
    void serve();

    QTcpServer m_server;
    QByteArray m_body;
    int m_status = 200;
};

class HttpProxy : public QObject
{
    Q_OBJECT

public:
    explicit HttpProxy(QObject* parent = nullptr);
    bool listen();
    quint16 port() const { return m_server.serverPort(); }
    // The request lines it relayed ("GET http://host:port/path HTTP/1.1").
    QStringList requests;
    // Their Proxy-Authorization headers, as received (empty when none).
    QStringList authorizations;

private:
    void relay();

    QTcpServer m_server;
};

} // namespace tw
