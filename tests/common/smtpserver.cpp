#include "smtpserver.h"

#include <QElapsedTimer>
#include <QTcpServer>
#include <QTcpSocket>

#include <memory>

namespace tw {

namespace {

// One line of the client, without its CR LF; empty on a closed connection.
bool readLine(QTcpSocket& socket, QByteArray* line)
{
    while (!socket.canReadLine()) {
        if (socket.state() != QAbstractSocket::ConnectedState || !socket.waitForReadyRead(5000))
            return false;
    }
    *line = socket.readLine();
    while (line->endsWith('\n') || line->endsWith('\r'))
        line->chop(1);
    return true;
}

void reply(QTcpSocket& socket, const QByteArray& text)
{
    socket.write(text + "\r\n");
    socket.waitForBytesWritten(5000);
}

QByteArray argumentOf(const QByteArray& line)
{
    return line.mid(line.indexOf(':') + 1).trimmed();
}

} // namespace

SmtpServer::SmtpServer(QObject* parent) : QThread(parent) {}

SmtpServer::~SmtpServer()
{
    m_stop = true;
    wait();
}

bool SmtpServer::start()
{
    QThread::start();
    // The port is known once the thread listens.
    QElapsedTimer clock;
    clock.start();
    while (clock.elapsed() < 10000) {
        {
            QMutexLocker lock(&m_readyMutex);
            if (m_ready)
                return m_port != 0;
        }
        QThread::msleep(5);
    }
    return false;
}

QString SmtpServer::url() const
{
    return QString("smtp://127.0.0.1:%1").arg(m_port);
}

QList<SmtpMessage> SmtpServer::messages()
{
    QMutexLocker lock(&m_mutex);
    return m_messages;
}

void SmtpServer::run()
{
    QTcpServer server;
    const bool listening = server.listen(QHostAddress::LocalHost, 0);
    {
        QMutexLocker lock(&m_readyMutex);
        m_port = listening ? server.serverPort() : 0;
        m_ready = true;
    }
    if (!listening)
        return;
    while (!m_stop) {
        if (!server.waitForNewConnection(50))
            continue;
        std::unique_ptr<QTcpSocket> socket(server.nextPendingConnection());
        reply(*socket, "220 127.0.0.1 test mail server");
        SmtpMessage message;
        QByteArray line;
        while (readLine(*socket, &line)) {
            const QByteArray verb = line.left(4).toUpper();
            if (verb == "EHLO") {
                reply(*socket, "250-127.0.0.1\r\n250 8BITMIME");
            } else if (verb == "HELO") {
                reply(*socket, "250 127.0.0.1");
            } else if (verb == "MAIL") {
                message = SmtpMessage();
                message.from = argumentOf(line);
                reply(*socket, "250 OK");
            } else if (verb == "RCPT") {
                message.to << argumentOf(line);
                reply(*socket, "250 OK");
            } else if (verb == "DATA") {
                reply(*socket, "354 End data with <CR><LF>.<CR><LF>");
                QByteArray data;
                while (readLine(*socket, &line) && line != ".")
                    data += (line.startsWith("..") ? line.mid(1) : line) + "\r\n";
                message.data = data;
                {
                    QMutexLocker lock(&m_mutex);
                    m_messages << message;
                }
                reply(*socket, "250 OK: queued");
            } else if (verb == "QUIT") {
                reply(*socket, "221 Bye");
                break;
            } else {
                reply(*socket, "250 OK");
            }
        }
        socket->disconnectFromHost();
    }
}

} // namespace tw
