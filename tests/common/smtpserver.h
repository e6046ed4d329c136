#pragma once
// A minimal SMTP listener on the loopback for tests of the problem report:
// it accepts every message (no authentication, no TLS) and keeps each one
// whole. It runs on a thread of its own, because the sender under test
// blocks the thread that calls it.

#include <QByteArray>
#include <QList>
#include <QMutex>
#include <QString>
#include <QThread>

#include <atomic>

namespace tw {

struct SmtpMessage
{
    QByteArray from;      // the MAIL FROM argument
    QList<QByteArray> to; // the RCPT TO arguments
    QByteArray data;      // everything between DATA and the final dot
};

class SmtpServer : public QThread
{
    Q_OBJECT

public:
    explicit SmtpServer(QObject* parent = nullptr);
    ~SmtpServer() override;

    // Starts listening; false when no port could be had.
    bool start();
    quint16 port() const { return m_port; }
    // "smtp://127.0.0.1:<port>".
    QString url() const;
    QList<SmtpMessage> messages();

protected:
    void run() override;

private:
    QMutex m_mutex;
    QList<SmtpMessage> m_messages;
    quint16 m_port = 0;
    bool m_ready = false;
    QMutex m_readyMutex;
    std::atomic<bool> m_stop{false};
};

} // namespace tw
