// Start-up and shutdown: temporary files, the crash flag, the automatic
// update schedule, and whole runs of the program (clean and killed).
//
// The program itself runs in a child process: this executable started with
// --run-app runs the real start-up and closes its window after a moment.

#include "app/startup.h"
#include "core/mpconfig.h"
#include "crash/crashhandler.h"
#include "testenv.h"
#include "ui/mainwnd.h"

#include <QDateTime>
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QLabel>
#include <QProcess>
#include <QSettings>
#include <QStandardPaths>
#include <QStyle>
#include <QTemporaryDir>
#include <QTextDocumentFragment>
#include <QTimer>

#include <QRegularExpression>

#include <csignal>
#include <cstdio>
#include <cstring>
#include <vector>

namespace {

int g_closeAfterMs = -1; // child mode only: answer windows at this interval

bool mainWindowVisible()
{
    for (QWidget* w : QApplication::topLevelWidgets())
        if (qobject_cast<CMainWnd*>(w) && w->isVisible())
            return true;
    return false;
}

// Child mode: every interval, closes the modal dialog in front (saying what
// it was, in the log, in order with the program's own lines), or, when none
// is open, reports on the application and closes every window.
void scheduleClose()
{
    if (g_closeAfterMs < 0)
        return;
    auto* timer = new QTimer(qApp);
    timer->setInterval(g_closeAfterMs);
    QObject::connect(timer, &QTimer::timeout, qApp, [] {
        if (QWidget* modal = QApplication::activeModalWidget()) {
            if (auto* label = modal->findChild<QLabel*>("crashLabel")) {
                qDebug("test: problem report offered, main window visible: %d: %s",
                       int(mainWindowVisible()),
                       qPrintable(QTextDocumentFragment::fromHtml(label->text()).toPlainText()));
            } else {
                qDebug("test: closing %s", modal->metaObject()->className());
            }
            modal->close();
            return;
        }
        // A file to open: wait until the editor shows it.
        if (qEnvironmentVariableIsSet("TW_WAIT_FOR_SONG")) {
            CMainWnd* wnd = nullptr;
            for (QWidget* w : QApplication::topLevelWidgets())
                if (auto* m = qobject_cast<CMainWnd*>(w))
                    wnd = m;
            auto* editor = wnd ? wnd->findChild<QWidget*>("mainFrame") : nullptr;
            if (!editor || !editor->isVisible())
                return;
            std::printf("current-song: %s\n", qPrintable(wnd->currentSong().strPath));
        }
        std::printf("stylesheet-bytes: %d\n", int(qApp->styleSheet().size()));
        // Without the sheet the application falls back to its base style.
        qApp->setStyleSheet(QString());
        std::printf("style: %s\n", qPrintable(qApp->style()->name()));
        std::printf("main-window-visible: %d\n", int(mainWindowVisible()));
        std::fflush(stdout);
        QApplication::closeAllWindows();
    });
    timer->start();
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

    static Run runApp(const QString& home, int closeAfterMs,
                      const QProcessEnvironment& extra = QProcessEnvironment(),
                      const QStringList& programArgs = QStringList())
    {
        QProcess p;
        QProcessEnvironment env = childEnv(home);
        for (const QString& key : extra.keys())
            env.insert(key, extra.value(key));
        p.setProcessEnvironment(env);
        p.start(QCoreApplication::applicationFilePath(),
                QStringList() << "--run-app" << QString::number(closeAfterMs) << programArgs);
        Run r;
        if (!p.waitForFinished(60000)) {
            p.kill();
            p.waitForFinished();
        }
        r.exitCode = p.exitStatus() == QProcess::CrashExit ? -1 : p.exitCode();
        r.out = QString::fromLocal8Bit(p.readAllStandardOutput());
        r.err = QString::fromLocal8Bit(p.readAllStandardError());
        return r;
    }

    // Starts a run that stays until it is ended, and waits until it has
    // armed the crash flag and logged its start.
    static void startArmedRun(const QString& home, QProcess& p)
    {
        p.setProcessEnvironment(childEnv(home));
        p.start(QCoreApplication::applicationFilePath(), QStringList() << "--run-app"
                                                                       << "-1");
        QVERIFY(p.waitForStarted());
        QTRY_VERIFY_WITH_TIMEOUT(crashFlagOf(home), 20000);
        QTRY_VERIFY_WITH_TIMEOUT(readAll(logFile(home)).contains("app start"), 20000);
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

    void shouldDeleteHalfWrittenFilesAnInterruptedRunLeft()
    {
        QDir().mkpath(cacheDir());
        const QString left = cacheDir() + "/.wave_101010101.tmp.d51aed202b-0.part";
        const QString running = cacheDir() + "/.wave_202020202.tmp.aa-0.part";
        // Hidden files of the user's own, as old: names these programs never make.
        const QStringList others{cacheDir() + "/.notes.part", cacheDir() + "/.tonewright-mine.txt"};
        for (const QString& path : QStringList{left, running} + others) {
            touch(path);
            if (path == running)
                continue;
            QFile old(path);
            QVERIFY(old.open(QIODevice::ReadWrite));
            QVERIFY(old.setFileTime(QDateTime::currentDateTime().addSecs(-3600),
                                    QFileDevice::FileModificationTime));
        }
        QTest::ignoreMessage(QtDebugMsg, qPrintable("delete left-over file: " + left));
        removeTempFiles();
        QVERIFY(!QFile::exists(left));
        // Written just now: a conversion of another run, still going.
        QVERIFY(QFile::exists(running));
        for (const QString& path : others)
            QVERIFY2(QFile::exists(path), qPrintable(path));
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
        QVERIFY2(!r.err.contains("test: problem report offered"), qPrintable(r.err));
        QVERIFY2(r.out.contains("main-window-visible: 1"), qPrintable(r.out));
        // The skin beside the executable was applied, with the Fusion style.
        QVERIFY2(r.out.contains("stylesheet-bytes: "), qPrintable(r.out));
        QVERIFY(!r.out.contains("stylesheet-bytes: 0\n"));
        QVERIFY2(r.out.contains("style: fusion", Qt::CaseInsensitive), qPrintable(r.out));
        QVERIFY(QDir(home.path() + "/.cache/vandrel/tonewright").exists());
    }

    void shouldEndCleanlyOnTermAndInt_data()
    {
        QTest::addColumn<int>("signal");
        QTest::newRow("SIGTERM, as a logout sends") << int(SIGTERM);
        QTest::newRow("SIGINT, as Ctrl+C sends") << int(SIGINT);
    }

    void shouldEndCleanlyOnTermAndInt()
    {
        QFETCH(int, signal);
        QTemporaryDir home;
        QProcess p;
        startArmedRun(home.path(), p);
        if (QTest::currentTestFailed())
            return;
        ::kill(pid_t(p.processId()), signal);
        QVERIFY(p.waitForFinished(20000));
        QCOMPARE(p.exitStatus(), QProcess::NormalExit);
        QCOMPARE(p.exitCode(), 0);
        QCOMPARE(crashFlagOf(home.path()), false);
        const QString log = readAll(logFile(home.path()));
        QVERIFY2(log.contains(QString("quit on signal %1").arg(signal)), qPrintable(log));
        QVERIFY(log.contains("safed return"));

        // The next start sees a clean end.
        const Run r = runApp(home.path(), 200);
        QCOMPARE(r.exitCode, 0);
        QCOMPARE(r.err.count("test: problem report offered"), 0);
        QVERIFY2(!r.err.contains("quitted unexpectedly"), qPrintable(r.err));
    }

    void shouldLeaveCrashFlagSetWhenKilledAndCleanItNextTime()
    {
        QTemporaryDir home;
        QProcess p;
        // Wait until the run has armed the flag, then kill it.
        startArmedRun(home.path(), p);
        if (QTest::currentTestFailed())
            return;
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
        QCOMPARE(r.err.count("test: problem report offered"), 1);
        QVERIFY2(r.err.contains("Tonewright quitted unexpectedly last time."), qPrintable(r.err));
        QVERIFY(!QFile::exists(home.path() + "/.cache/vandrel/tonewright/wave_120000000.tmp"));
        QVERIFY(!QFile::exists(home.path() + "/.cache/vandrel/tonewright/Ring.m4r"));
        QVERIFY(r.err.contains("delete temp file:"));
    }

    void shouldOpenTheFileNamedOnTheCommandLine()
    {
        QTemporaryDir home;
        const QString song = QDir(home.path()).filePath("Given Song.wav");
        QVERIFY(tw::writeWav(song, 44100, 2, 16, 44100 * 6,
                             [](qint64 frame, int) { return int(frame % 200) * 50 - 5000; }));
        QProcessEnvironment extra;
        extra.insert("TW_WAIT_FOR_SONG", "1");
        // Named relative to where the program starts: the child starts here.
        const QString before = QDir::currentPath();
        QVERIFY(QDir::setCurrent(home.path()));
        const Run r = runApp(home.path(), 100, extra, {"Given Song.wav"});
        QVERIFY(QDir::setCurrent(before));
        QCOMPARE(r.exitCode, 0);
        QVERIFY2(r.out.contains("current-song: " + song), qPrintable(r.out + r.err));
    }

    void shouldOfferReportBeforeTheUpdateCheckAndBeforeTheWindowShows()
    {
        QTemporaryDir home;
        {
            QDir().mkpath(home.path() + "/.config/vandrel");
            QSettings s(settingsFile(home.path()), QSettings::IniFormat);
            s.setValue("crashFlag", true); // as a killed run leaves it
            s.setValue("Update/AutoUpdate", true);
            s.setValue("Update/Interval", 0);
            s.setValue("Update/UpdateTime", QDateTime::currentDateTime().addSecs(-5));
        }
        QProcessEnvironment extra;
        // Nothing listens there: the check fails, and says so in a box.
        extra.insert("TONEWRIGHT_UPDATE_URL", "http://127.0.0.1:9/update-product-info/update.php");
        const Run r = runApp(home.path(), 200, extra);
        QCOMPARE(r.exitCode, 0);
        const QString log = readAll(logFile(home.path()));
        QCOMPARE(log.count("test: problem report offered"), 1);
        QVERIFY2(log.contains("test: problem report offered, main window visible: 0: Tonewright "
                              "quitted unexpectedly last time."),
                 qPrintable(log));
        const int report = log.indexOf("test: problem report offered");
        const int update = log.indexOf("Debug: update:");
        QVERIFY2(update > report, qPrintable(log));
        // The failed check is told once the event loop runs.
        QVERIFY2(log.indexOf("test: closing QMessageBox") > update, qPrintable(log));
    }

    void shouldWriteACrashLogAndOfferTheReportAtTheNextStart()
    {
        QTemporaryDir home;
        QProcessEnvironment crash;
        crash.insert("TONEWRIGHT_TEST_CRASH", "start");
        const Run crashed = runApp(home.path(), -1, crash);
        QCOMPARE(crashed.exitCode, -1); // ended by its signal
        QCOMPARE(crashFlagOf(home.path()), true);

        const QString folder = home.path() + "/.local/share/vandrel/tonewright/logs/Tonewright";
        const QStringList logs =
            QDir(folder).entryList(QStringList() << "Orvo_*.crash", QDir::Files);
        QCOMPARE(logs.size(), 1);
        QVERIFY2(QRegularExpression("^Orvo_\\d{4}-\\d{2}-\\d{2}-\\d{6}\\.crash$")
                     .match(logs.first())
                     .hasMatch(),
                 qPrintable(logs.first()));
        const QString text = readAll(folder + "/" + logs.first());
        QVERIFY2(text.contains("Signal: 11 SIGSEGV"), qPrintable(text));
        QVERIFY(text.contains("Tonewright " TONEWRIGHT_VERSION));
        const int trace = text.indexOf("Back trace:");
        QVERIFY(trace > 0);
        // A real back trace: several frames, this program's among them.
        QVERIFY2(text.mid(trace).count('\n') >= 5, qPrintable(text));
        QVERIFY2(text.contains("tst_startup"), qPrintable(text));

        const Run next = runApp(home.path(), 200);
        QCOMPARE(next.exitCode, 0);
        QVERIFY2(next.err.contains("Tonewright quitted unexpectedly last time."),
                 qPrintable(next.err));
        QCOMPARE(crashFlagOf(home.path()), false);
    }
};

int main(int argc, char* argv[])
{
    if (argc > 2 && std::strcmp(argv[1], "--run-app") == 0) {
        g_closeAfterMs = std::atoi(argv[2]);
        // The program's own arguments follow the two of the child mode.
        std::vector<char*> args{argv[0]};
        for (int i = 3; i < argc; ++i)
            args.push_back(argv[i]);
        args.push_back(nullptr);
        int childArgc = int(args.size()) - 1;
        return tonewrightMain(childArgc, args.data());
    }
    tw::isolateEnvironment();
    QApplication app(argc, argv);
    tw::setIdentity();
    TestStartup tc;
    return QTest::qExec(&tc, argc, argv);
}

#include "tst_startup.moc"
