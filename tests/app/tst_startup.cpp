// Start-up and shutdown: temporary files, the crash flag, the automatic
// update schedule, and whole runs of the program (clean and killed).
//
// The program itself runs in a child process: this executable started with
// --run-app runs the real start-up and closes its window after a moment.

#include "app/mpconfig.h"
#include "app/startup.h"
#include "testenv.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QSettings>
#include <QStandardPaths>
#include <QStyle>
#include <QTemporaryDir>
#include <QTimer>

#include <csignal>
#include <cstdio>
#include <cstring>

namespace {

int g_closeAfterMs = -1; // child mode only: close all windows after this delay

void scheduleClose()
{
    if (g_closeAfterMs < 0)
        return;
    QTimer::singleShot(g_closeAfterMs, qApp, [] {
        std::printf("stylesheet-bytes: %d\n", int(qApp->styleSheet().size()));
        // Without the sheet the application falls back to its base style.
        qApp->setStyleSheet(QString());
        std::printf("style: %s\n", qPrintable(qApp->style()->name()));
        std::printf("visible-windows: %d\n", int(QApplication::topLevelWidgets().size()));
        std::fflush(stdout);
        QApplication::closeAllWindows();
    });
}
Q_COREAPP_STARTUP_FUNCTION(scheduleClose)

void touch(const QString& path)
{
    QFile f(path);
    f.open(QIODevice::WriteOnly);
    f.write("x");
}

} // namespace

class TestStartup : public QObject
{
    Q_OBJECT

private:
    QString cacheDir() const
    {
        return QStandardPaths::writableLocation(QStandardPaths::CacheLocation);
    }

    // Environment of a child run whose HOME is `home`.
    static QProcessEnvironment childEnv(const QString& home)
    {
        QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
        env.insert("HOME", home);
        env.insert("XDG_CONFIG_HOME", home + "/.config");
        env.insert("XDG_DATA_HOME", home + "/.local/share");
        env.insert("XDG_CACHE_HOME", home + "/.cache");
        env.insert("QT_QPA_PLATFORM", "offscreen");
        return env;
    }

    static QString settingsFile(const QString& home)
    {
        return home + "/.config/vandrel/tonewright.conf";
    }

    static QString logFile(const QString& home)
    {
        return home + "/.local/share/vandrel/tonewright/log/" +
               QDate::currentDate().toString("dd.MM.yyyy") + ".log";
    }

    static QString readAll(const QString& path)
    {
        QFile f(path);
        return f.open(QIODevice::ReadOnly) ? QString::fromLocal8Bit(f.readAll()) : QString();
    }

    static bool crashFlagOf(const QString& home)
    {
        QSettings s(settingsFile(home), QSettings::IniFormat);
        return s.value("crashFlag", false).toBool();
    }

    struct Run
    {
        int exitCode = -1;
        QString out;
        QString err;
    };

    static Run runApp(const QString& home, int closeAfterMs)
    {
        QProcess p;
        p.setProcessEnvironment(childEnv(home));
        p.start(QCoreApplication::applicationFilePath(),
                QStringList() << "--run-app" << QString::number(closeAfterMs));
        Run r;
        if (!p.waitForFinished(60000)) {
            p.kill();
            p.waitForFinished();
        }
        r.exitCode = p.exitCode();
        r.out = QString::fromLocal8Bit(p.readAllStandardOutput());
        r.err = QString::fromLocal8Bit(p.readAllStandardError());
        return r;
    }

private slots:
    void init()
    {
        QDir(cacheDir()).removeRecursively();
        QSettings().clear();
    }

    // --- removeTempFiles -------------------------------------------------

    void shouldCreateMissingCacheDirectoryAndDeleteNothing()
    {
        QVERIFY(!QDir(cacheDir()).exists());
        removeTempFiles();
        QVERIFY(QDir(cacheDir()).exists());
        QVERIFY(QDir(cacheDir()).entryList(QDir::Files).isEmpty());
    }

    void shouldDeleteTmpAndM4rFilesOnly()
    {
        QDir().mkpath(cacheDir() + "/sub");
        touch(cacheDir() + "/a.tmp");
        touch(cacheDir() + "/b.m4r");
        touch(cacheDir() + "/c.wav");
        touch(cacheDir() + "/sub/d.tmp");
        QTest::ignoreMessage(QtDebugMsg, qPrintable("delete temp file: " + cacheDir() + "/a.tmp"));
        QTest::ignoreMessage(QtDebugMsg, qPrintable("delete temp file: " + cacheDir() + "/b.m4r"));
        removeTempFiles();
        QVERIFY(!QFile::exists(cacheDir() + "/a.tmp"));
        QVERIFY(!QFile::exists(cacheDir() + "/b.m4r"));
        QVERIFY(QFile::exists(cacheDir() + "/c.wav"));
        QVERIFY2(QFile::exists(cacheDir() + "/sub/d.tmp"), "subdirectories are left alone");
    }

    // --- crash flag --------------------------------------------------------

    void shouldNotOfferReportOnFirstStart()
    {
        QSettings settings;
        int calls = 0;
        QCOMPARE(checkCrashFlag(settings, [&](bool) { ++calls; }), false);
        QCOMPARE(calls, 0);
        QCOMPARE(QSettings().value("crashFlag").toBool(), true);
    }

    void shouldOfferReportOnceAfterUncleanEnd()
    {
        QSettings().setValue("crashFlag", true);
        QSettings settings;
        int calls = 0;
        bool manual = true;
        QCOMPARE(checkCrashFlag(settings,
                                [&](bool b) {
                                    ++calls;
                                    manual = b;
                                }),
                 true);
        QCOMPARE(calls, 1);
        QCOMPARE(manual, false);
        QCOMPARE(QSettings().value("crashFlag").toBool(), true);
    }

    // --- automatic update schedule ----------------------------------------

    void shouldNotCheckOnFirstDay()
    {
        CMPConfig* cfg = CMPConfig::instance();
        cfg->reload(); // empty store: last check defaults to now
        int calls = 0;
        QCOMPARE(runAutoUpdateCheck(cfg, [&](bool) { ++calls; }), false);
        QCOMPARE(calls, 0);
    }

    void shouldCheckWithZeroIntervalAfterOneSecond()
    {
        CMPConfig* cfg = CMPConfig::instance();
        cfg->reload();
        cfg->bAutoUpdate = true;
        cfg->nInterval = 0;
        const QDateTime last = QDateTime::currentDateTime().addSecs(-1);
        cfg->dtUpdateTime = last;
        int calls = 0;
        bool manual = true;
        QCOMPARE(runAutoUpdateCheck(cfg,
                                    [&](bool b) {
                                        ++calls;
                                        manual = b;
                                    }),
                 true);
        QCOMPARE(calls, 1);
        QCOMPARE(manual, false);
        QVERIFY(cfg->dtUpdateTime > last);
        // The new time reached the store.
        QVERIFY(QSettings().value("Update/UpdateTime").toDateTime() > last);
    }

    void shouldLeaveScheduleAloneWhenSwitchedOff()
    {
        CMPConfig* cfg = CMPConfig::instance();
        cfg->reload();
        cfg->bAutoUpdate = false;
        cfg->nInterval = 0;
        const QDateTime last = QDateTime::currentDateTime().addDays(-30);
        cfg->dtUpdateTime = last;
        int calls = 0;
        QCOMPARE(runAutoUpdateCheck(cfg, [&](bool) { ++calls; }), false);
        QCOMPARE(calls, 0);
        QCOMPARE(cfg->dtUpdateTime, last);
        QVERIFY(!QSettings().contains("Update/UpdateTime"));
    }

    void shouldNotCheckBeforeIntervalHasPassed()
    {
        CMPConfig* cfg = CMPConfig::instance();
        cfg->reload();
        cfg->bAutoUpdate = true;
        cfg->nInterval = 7;
        const QDateTime last = QDateTime::currentDateTime().addDays(-6);
        cfg->dtUpdateTime = last;
        QCOMPARE(runAutoUpdateCheck(cfg, nullptr), false);
        QCOMPARE(cfg->dtUpdateTime, last);
    }

    // --- whole runs of the program ------------------------------------------

    void shouldStartLogAndEndCleanly()
    {
        QTemporaryDir home;
        const Run r = runApp(home.path(), 300);
        QCOMPARE(r.exitCode, 0);
        QVERIFY2(r.err.contains("Debug: app start"), qPrintable(r.err));
        QVERIFY2(r.err.contains("Debug: safed return"), qPrintable(r.err));
        const QString log = readAll(logFile(home.path()));
        QVERIFY2(log.contains("Debug: app start"), qPrintable(log));
        QVERIFY(log.contains("Debug: safed return"));
        QVERIFY(log.indexOf("app start") < log.indexOf("safed return"));
        QVERIFY(QFile::exists(settingsFile(home.path())));
        QCOMPARE(crashFlagOf(home.path()), false);
        // The skin beside the executable was applied, with the Fusion style.
        QVERIFY2(r.out.contains("stylesheet-bytes: "), qPrintable(r.out));
        QVERIFY(!r.out.contains("stylesheet-bytes: 0\n"));
        QVERIFY2(r.out.contains("style: fusion", Qt::CaseInsensitive), qPrintable(r.out));
        QVERIFY(QDir(home.path() + "/.cache/vandrel/tonewright").exists());
    }

    void shouldLeaveCrashFlagSetWhenKilledAndCleanItNextTime()
    {
        QTemporaryDir home;
        QProcess p;
        p.setProcessEnvironment(childEnv(home.path()));
        p.start(QCoreApplication::applicationFilePath(), QStringList() << "--run-app"
                                                                       << "-1");
        QVERIFY(p.waitForStarted());
        // Wait until the run has armed the flag, then kill it.
        QTRY_VERIFY_WITH_TIMEOUT(crashFlagOf(home.path()), 20000);
        QTRY_VERIFY_WITH_TIMEOUT(readAll(logFile(home.path())).contains("app start"), 20000);
        ::kill(pid_t(p.processId()), SIGKILL);
        QVERIFY(p.waitForFinished(10000));
        QCOMPARE(crashFlagOf(home.path()), true);
        QVERIFY(!readAll(logFile(home.path())).contains("safed return"));

        // Temporary leftovers of the killed run are removed by the next one.
        QDir().mkpath(home.path() + "/.cache/vandrel/tonewright");
        touch(home.path() + "/.cache/vandrel/tonewright/wave_120000000.tmp");
        touch(home.path() + "/.cache/vandrel/tonewright/Ring.m4r");
        const Run r = runApp(home.path(), 200);
        QCOMPARE(r.exitCode, 0);
        QCOMPARE(crashFlagOf(home.path()), false);
        QVERIFY(!QFile::exists(home.path() + "/.cache/vandrel/tonewright/wave_120000000.tmp"));
        QVERIFY(!QFile::exists(home.path() + "/.cache/vandrel/tonewright/Ring.m4r"));
        QVERIFY(r.err.contains("delete temp file:"));
    }
};

int main(int argc, char* argv[])
{
    if (argc > 2 && std::strcmp(argv[1], "--run-app") == 0) {
        g_closeAfterMs = std::atoi(argv[2]);
        int childArgc = 1;
        return tonewrightMain(childArgc, argv);
    }
    tw::isolateEnvironment();
    QApplication app(argc, argv);
    tw::setIdentity();
    TestStartup tc;
    return QTest::qExec(&tc, argc, argv);
}

#include "tst_startup.moc"
