// The message handler: every Qt message reaches the engine's logger with its
// severity prefix, in standard error and in today's log file.

#include "app/msghandlerloger.h"
#include "testenv.h"

#include <QDir>
#include <QFile>
#include <QStandardPaths>
#include <QTemporaryFile>

#include <cstdio>
#include <fcntl.h>
#include <unistd.h>

class TestMsgHandlerLoger : public QObject
{
    Q_OBJECT

private:
    static QString todaysLog()
    {
        QFile f(CMsgHandlerLoger::getLogPath(QDate::currentDate()));
        if (!f.open(QIODevice::ReadOnly))
            return QString();
        return QString::fromLocal8Bit(f.readAll());
    }

    // Runs fn with standard error redirected into a file and returns what was written.
    template <typename Fn> static QString captureStderr(Fn fn)
    {
        QTemporaryFile tmp;
        if (!tmp.open())
            return QString();
        std::fflush(stderr);
        const int saved = dup(2);
        dup2(tmp.handle(), 2);
        fn();
        std::fflush(stderr);
        dup2(saved, 2);
        close(saved);
        tmp.seek(0);
        return QString::fromLocal8Bit(tmp.readAll());
    }

private slots:
    void initTestCase() { CMsgHandlerLoger::installMsgHandler(); }

    void shouldForwardDebugMessageWithPrefixToStderrAndLogFile()
    {
        const QString err = captureStderr([] { qDebug("app start"); });
        QVERIFY2(err.contains("Debug: app start"), qPrintable(err));
        QVERIFY(todaysLog().contains("Debug: app start"));
    }

    void shouldPrefixEverySeverity_data()
    {
        QTest::addColumn<int>("type");
        QTest::addColumn<QString>("expected");
        QTest::newRow("debug") << int(QtDebugMsg) << "Debug: sev-one";
        QTest::newRow("warning") << int(QtWarningMsg) << "Warning: sev-one";
        QTest::newRow("critical") << int(QtCriticalMsg) << "Critical: sev-one";
    }

    void shouldPrefixEverySeverity()
    {
        QFETCH(int, type);
        QFETCH(QString, expected);
        const QString err = captureStderr([type] {
            CMsgHandlerLoger::customMessageHandler(QtMsgType(type), QMessageLogContext(),
                                                   "sev-one");
        });
        QVERIFY2(err.contains(expected), qPrintable(err));
        QVERIFY(todaysLog().contains(expected));
    }

    void shouldIgnoreInfoMessages()
    {
        const QString err = captureStderr([] {
            CMsgHandlerLoger::customMessageHandler(QtInfoMsg, QMessageLogContext(), "an info line");
        });
        QVERIFY(!err.contains("an info line"));
        QVERIFY(!todaysLog().contains("an info line"));
    }

    void shouldPassPercentSignsThroughUnchanged()
    {
        const QString err = captureStderr([] { qDebug() << "100% done %s %d %n"; });
        QVERIFY2(err.contains("Debug: 100% done %s %d %n"), qPrintable(err));
        QVERIFY(todaysLog().contains("Debug: 100% done %s %d %n"));
    }

    void shouldKeepNonAsciiText()
    {
        captureStderr([] {
            qDebug().noquote() << "convert to temp:" << QString::fromUtf8("/tmp/Über café.mp3");
        });
        QVERIFY(
            todaysLog().contains(QString::fromUtf8("Debug: convert to temp: /tmp/Über café.mp3")));
    }

    void shouldNameTheLogFileAfterTheDay()
    {
        const QString dataDir = QStandardPaths::writableLocation(QStandardPaths::AppDataLocation);
        QDir(dataDir + "/log").removeRecursively();
        const QString path = CMsgHandlerLoger::getLogPath(QDate(2027, 3, 1));
        QVERIFY2(path.endsWith("/log/01.03.2027.log"), qPrintable(path));
        QCOMPARE(path, dataDir + "/log/01.03.2027.log");
        QVERIFY(QDir(dataDir + "/log").exists());
    }

    void shouldUseTodayForTheLogPath()
    {
        const QString path = CMsgHandlerLoger::instance()->getLogPath();
        QVERIFY(path.endsWith("/log/" + QDate::currentDate().toString("dd.MM.yyyy") + ".log"));
    }
};

TW_TEST_MAIN(TestMsgHandlerLoger)
#include "tst_msghandlerloger.moc"
