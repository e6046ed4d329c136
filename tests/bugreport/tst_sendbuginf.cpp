// sendBugInf: one e-mail with the body and every file of the pack attached,
// through the SMTP server the environment names; a clear negative code when
// there is none, when it cannot be reached, or when the arguments are bad.

#include "smtpserver.h"
#include "testenv.h"

#include <bugreport.h>

#include <QDir>
#include <QFile>
#include <QTcpServer>
#include <QTemporaryDir>

namespace {

void write(const QString& path, const QByteArray& bytes)
{
    QFile f(path);
    QVERIFY(f.open(QIODevice::WriteOnly));
    QCOMPARE(f.write(bytes), bytes.size());
}

// The decoded content of the attachment called `name` in a MIME message.
QByteArray attachment(const QByteArray& message, const QString& name)
{
    const int at = message.indexOf("filename=\"" + name.toUtf8() + "\"");
    if (at < 0)
        return QByteArray();
    const int start = message.indexOf("\r\n\r\n", at);
    const int end = message.indexOf("\r\n--", start);
    if (start < 0 || end < 0)
        return QByteArray();
    QByteArray base64 = message.mid(start + 4, end - start - 4);
    base64.replace("\r\n", "");
    return QByteArray::fromBase64(base64);
}

} // namespace

class TestSendBugInf : public QObject
{
    Q_OBJECT

private slots:
    void init() { qunsetenv("TONEWRIGHT_SMTP_URL"); }
    void cleanup() { qunsetenv("TONEWRIGHT_SMTP_URL"); }

    void shouldRefuseWithoutAServer()
    {
        QCOMPARE(sendBugInf("support@vandrel.example", "subject", "body", ""),
                 int(BUGREPORT_E_NO_SERVER));
    }

    void shouldRefuseBadArguments()
    {
        qputenv("TONEWRIGHT_SMTP_URL", "smtp://127.0.0.1:1");
        QCOMPARE(sendBugInf(nullptr, "s", "b", ""), int(BUGREPORT_E_ARGUMENT));
        QCOMPARE(sendBugInf("", "s", "b", ""), int(BUGREPORT_E_ARGUMENT));
        QCOMPARE(sendBugInf("a@b", nullptr, "b", ""), int(BUGREPORT_E_ARGUMENT));
        QCOMPARE(sendBugInf("a@b", "s", nullptr, ""), int(BUGREPORT_E_ARGUMENT));
        QCOMPARE(sendBugInf("a@b", "s", "b", nullptr), int(BUGREPORT_E_ARGUMENT));
    }

    void shouldSayWhenThePackCannotBeRead()
    {
        qputenv("TONEWRIGHT_SMTP_URL", "smtp://127.0.0.1:1");
        QCOMPARE(sendBugInf("a@b", "s", "b", "/no/such/pack/dir"), int(BUGREPORT_E_PACK));
    }

    void shouldFailWhenNobodyListens()
    {
        // A port that was free a moment ago: nothing answers there.
        quint16 port = 0;
        {
            QTcpServer probe;
            QVERIFY(probe.listen(QHostAddress::LocalHost, 0));
            port = probe.serverPort();
        }
        qputenv("TONEWRIGHT_SMTP_URL", QString("smtp://127.0.0.1:%1").arg(port).toLatin1());
        QCOMPARE(sendBugInf("a@b", "s", "b", ""), int(BUGREPORT_E_SEND));
    }

    void shouldSendTheBodyWithEveryFileOfThePack()
    {
        tw::SmtpServer server;
        QVERIFY(server.start());
        qputenv("TONEWRIGHT_SMTP_URL", server.url().toLatin1());
        QTemporaryDir pack;
        write(pack.filePath("summary.txt"), "OS: Linux\nQt: 6\n");
        write(pack.filePath("24.11.2026.log"), "Debug: app start\n");
        QByteArray binary;
        for (int i = 0; i < 3000; ++i)
            binary.append(char(i * 7));
        write(pack.filePath("Orvo.crash"), binary);
        QDir().mkpath(pack.filePath("sub")); // folders are not attached

        QCOMPARE(sendBugInf("support@vandrel.example", "Problem Report for Tonewright",
                            "[Please describe your problem here.]",
                            QFile::encodeName(pack.path()).constData()),
                 int(BUGREPORT_OK));
        const QList<tw::SmtpMessage> messages = server.messages();
        QCOMPARE(messages.size(), 1);
        const tw::SmtpMessage& m = messages.first();
        QCOMPARE(m.to, QList<QByteArray>{"<support@vandrel.example>"});
        QVERIFY2(m.data.contains("Subject: Problem Report for Tonewright"), m.data.constData());
        QVERIFY(m.data.contains("To: <support@vandrel.example>"));
        QVERIFY(m.data.contains("[Please describe your problem here.]"));
        QCOMPARE(attachment(m.data, "summary.txt"), QByteArray("OS: Linux\nQt: 6\n"));
        QCOMPARE(attachment(m.data, "24.11.2026.log"), QByteArray("Debug: app start\n"));
        QCOMPARE(attachment(m.data, "Orvo.crash"), binary);
        QCOMPARE(m.data.count("filename="), 3);
    }
};

TW_TEST_MAIN(TestSendBugInf)
#include "tst_sendbuginf.moc"
