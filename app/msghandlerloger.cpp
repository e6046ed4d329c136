#include "app/msghandlerloger.h"

#include "engine/platformfolders.h"
#include "engine/timelinehelper.h"

#include <QDate>
#include <QDir>

#include <vexa.h>

CMsgHandlerLoger::CMsgHandlerLoger()
{
    m_strLogPath = QString();
    // Bring the engine up before the first message reaches it.
    CTimeLineHelper::getTimeline();
}

CMsgHandlerLoger* CMsgHandlerLoger::instance()
{
    static CMsgHandlerLoger loger;
    return &loger;
}

void CMsgHandlerLoger::installMsgHandler()
{
    instance();
    qInstallMessageHandler(customMessageHandler);
}

void CMsgHandlerLoger::customMessageHandler(QtMsgType type, const QMessageLogContext&,
                                            const QString& msg)
{
    const char* format = nullptr;
    switch (type) {
    case QtDebugMsg:
        format = "Debug: %1";
        break;
    case QtWarningMsg:
        format = "Warning: %1";
        break;
    case QtCriticalMsg:
        format = "Critical: %1";
        break;
    case QtFatalMsg:
        format = "Fatal: %1";
        break;
    default:
        return;
    }
    const QByteArray bytes = QString::fromLatin1(format).arg(msg).toLocal8Bit();
    // The text is the argument of "%s", never the format: percent signs pass through.
    KeloLogMessage(0, "%s", bytes.constData());
}

QString CMsgHandlerLoger::getLogPath()
{
    return getLogPath(QDate::currentDate());
}

QString CMsgHandlerLoger::getLogPath(const QDate& day)
{
    const QString dir = programDataDir() + "/log";
    QDir().mkpath(dir);
    return dir + "/" + day.toString("dd.MM.yyyy%1").arg(".log");
}
