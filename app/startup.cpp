#include "app/startup.h"

#include "app/appdir.h"
#include "app/commandline.h"
#include "app/msghandlerloger.h"
#include "app/quitsignals.h"
#include "core/language.h"
#include "core/mpconfig.h"
#include "core/settingskeys.h"
#include "crash/crashhandler.h"
#include "crash/crashreportdlg.h"
#include "crash/reportdetails.h"
#include "editor/ringtoneexport.h"
#include "engine/platformfolders.h"
#include "engine/stalefiles.h"
#include "library/libraryloader.h"
#include "ui/mainwnd.h"

#include <QApplication>
#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSettings>
#include <QStyleFactory>
#include <QTextStream>
#include <QTimer>

#include <csignal>
#include <memory>

void removeTempFiles()
{
    const QString path = programCacheDir();
    QDir dir(path);
    if (!dir.exists()) {
        dir.mkpath(path);
        return;
    }
    // The window writes each ringtone here before the library copies it.
    QStringList patterns{"*.tmp"};
    int kinds = 0;
    const RingtoneFormat* formats = CRingtoneExport::formats(&kinds);
    for (int i = 0; i < kinds; ++i) {
        const QString pattern = "*" + QLatin1String(formats[i].extension);
        if (!patterns.contains(pattern))
            patterns << pattern;
    }
    // What an interrupted conversion left, hidden.
    removeStaleFiles(path);
    const QStringList names = dir.entryList(patterns, QDir::Files, QDir::Unsorted);
    for (const QString& name : names) {
        const QString file = path + "/" + name;
        if (QFile::exists(file)) {
            qDebug().noquote() << "delete temp file:" << file;
            QFile::remove(file); // a file that stays is left without a message
        }
    }
}

bool checkCrashFlag(QSettings& settings, const std::function<void(bool)>& bugReport)
{
    const bool crashed = settings.value(settingskeys::kCrashFlag, false).toBool();
    if (crashed && bugReport)
        bugReport(false);
    settings.setValue(settingskeys::kCrashFlag, true);
    settings.sync();
    return crashed;
}

bool runAutoUpdateCheck(CMPConfig* config, const std::function<void(bool)>& upgrade)
{
    if (!config->bAutoUpdate)
        return false;
    const QDateTime now = QDateTime::currentDateTime();
    if (!(config->dtUpdateTime.addDays(config->nInterval) < now))
        return false;
    qDebug().noquote() << "update:" << config->dtUpdateTime.toString();
    if (upgrade)
        upgrade(false);
    config->dtUpdateTime = QDateTime::currentDateTime();
    config->save();
    return true;
}

std::unique_ptr<CMainWnd> openMainWindow(QSettings& settings)
{
    auto mainWnd = std::make_unique<CMainWnd>();
    CMainWnd* wnd = mainWnd.get();
    checkCrashFlag(settings, [wnd](bool bManual) { wnd->bugReport(bManual); });
    removeTempFiles();
    runAutoUpdateCheck(CMPConfig::instance(),
                       [wnd](bool bShowNewest) { wnd->upgrade(bShowNewest); });
    mainWnd->show();
    return mainWnd;
}

void _termHander()
{
    CCrashReportDlg dlg(nullptr, true);
    dlg.exec();
}

int tonewrightMain(int argc, char* argv[])
{
    // Qt 6 keeps its own settings per application and reads narrow literals
    // as UTF-8, so the first and fourth steps of the old start-up have no
    // counterpart here.
    auto app = std::make_unique<QApplication>(argc, argv);
    QCoreApplication::setOrganizationName("vandrel");
    QCoreApplication::setOrganizationDomain(TONEWRIGHT_DOMAIN);
    QCoreApplication::setApplicationName("tonewright");
    QCoreApplication::setApplicationVersion(TONEWRIGHT_VERSION);

    tellPlatformFolders();
    CMsgHandlerLoger::installMsgHandler();
    // Before the first log line: a logout from then on ends the run cleanly.
    auto quitSignals = std::make_unique<CQuitSignals>();
    qDebug("app start");
    installCrashHandler();
    describeProgramForReports();
    // The library loads beside the window, which shows it when it is there.
    CLibraryLoader::instance()->start();

    // A file named on the command line, found from where the program was
    // started, before the current directory changes.
    QString openWith = parseCommandLine(QCoreApplication::arguments()).file;
    if (!openWith.isEmpty())
        openWith = QFileInfo(openWith).absoluteFilePath();
    QDir::setCurrent(applicationDataDirectory());

    auto skin = std::make_unique<QFile>("skin/default/default.css");
    QApplication::setStyle(QStyleFactory::create("Fusion"));
    if (skin->open(QIODevice::ReadOnly | QIODevice::Text)) {
        QTextStream stream(skin.get());
        const QString css = stream.readAll();
        skin->close();
        app->setStyleSheet(css);
    }

    CLanguage::instance()->restore();

    auto settings = std::make_unique<QSettings>();
    std::unique_ptr<CMainWnd> mainWnd = openMainWindow(*settings);
    if (!openWith.isEmpty()) {
        // Opened as a drop would be, once the window is up.
        CMainWnd* wnd = mainWnd.get();
        QTimer::singleShot(0, wnd, [wnd, openWith] { wnd->importWave(openWith); });
    }
    if (crashRequested()) {
        // A checked way to a real crash: the crash log and the next start's
        // report are tested with it.
        QTimer::singleShot(0, [] { std::raise(SIGSEGV); });
    }
    // A signal that came while start-up ran its own dialogs has asked to quit already.
    const int rc = quitSignals->received() ? 0 : app->exec();

    settings->setValue(settingskeys::kCrashFlag, false);
    settings->sync();
    qDebug("safed return"); // spelled so on purpose: the log line is matched as it is

    settings.reset();
    mainWnd.reset();
    quitSignals.reset();
    skin.reset();
    app.reset();
    return rc;
}
