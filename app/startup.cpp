#include "app/startup.h"

#include "app/appdir.h"
#include "app/mpconfig.h"
#include "app/msghandlerloger.h"
#include "engine/platformfolders.h"
#include "library/libraryloader.h"

#include <QApplication>
#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QSettings>
#include <QStyleFactory>
#include <QTextStream>
#include <QVBoxLayout>

#include <memory>

void removeTempFiles()
{
    const QString path = programCacheDir();
    QDir dir(path);
    if (!dir.exists()) {
        dir.mkpath(path);
        return;
    }
    const QStringList names = dir.entryList(QStringList() << "*.tmp"
                                                          << "*.m4r",
                                            QDir::Files, QDir::Unsorted);
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
    const bool crashed = settings.value("crashFlag", false).toBool();
    if (crashed && bugReport)
        bugReport(false);
    settings.setValue("crashFlag", true);
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

namespace {

// Stands in for the main window until it exists: a window that runs the
// event loop and ends it when closed.
std::unique_ptr<QWidget> makeStartWindow()
{
    auto wnd = std::make_unique<QWidget>();
    wnd->setObjectName("startWnd");
    wnd->setWindowTitle("Tonewright");
    wnd->resize(897, 560);
    auto* layout = new QVBoxLayout(wnd.get());
    auto* label = new QLabel(QObject::tr("Tonewright"), wnd.get());
    label->setObjectName("startLabel");
    label->setAlignment(Qt::AlignCenter);
    layout->addWidget(label);
    return wnd;
}

} // namespace

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
    qDebug("app start");
    // The library loads beside the window, which shows it when it is there.
    CLibraryLoader::instance()->start();

    QDir::setCurrent(applicationDataDirectory());

    auto skin = std::make_unique<QFile>("skin/default/default.css");
    QApplication::setStyle(QStyleFactory::create("Fusion"));
    if (skin->open(QIODevice::ReadOnly | QIODevice::Text)) {
        QTextStream stream(skin.get());
        const QString css = stream.readAll();
        skin->close();
        app->setStyleSheet(css);
    }

    std::unique_ptr<QWidget> mainWnd = makeStartWindow();

    auto settings = std::make_unique<QSettings>();
    checkCrashFlag(*settings, nullptr);

    removeTempFiles();

    mainWnd->show();
    const int rc = app->exec();

    settings->setValue("crashFlag", false);
    settings->sync();
    qDebug("safed return"); // spelled so on purpose: the log line is matched as it is

    settings.reset();
    mainWnd.reset();
    skin.reset();
    app.reset();
    return rc;
}
