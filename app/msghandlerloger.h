#pragma once
// Forwards every Qt debug, warning, critical and fatal message, with its
// severity prefix, to the media engine's logger. Installed once at start-up;
// may be called from any thread (it keeps no state of its own).

#include <QDate>
#include <QString>
#include <QtGlobal>

class CMsgHandlerLoger
{
public:
    static CMsgHandlerLoger* instance();
    static void installMsgHandler();
    static void customMessageHandler(QtMsgType type, const QMessageLogContext& context,
                                     const QString& msg);

    // <data>/log/dd.MM.yyyy.log, creating the log directory when missing.
    QString getLogPath();
    // The same path for a given day.
    static QString getLogPath(const QDate& day);

    CMsgHandlerLoger(const CMsgHandlerLoger&) = delete;
    CMsgHandlerLoger& operator=(const CMsgHandlerLoger&) = delete;

private:
    CMsgHandlerLoger();

    QString m_strLogPath;
};
