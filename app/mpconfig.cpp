#include "app/mpconfig.h"

#include <QSettings>

CMPConfig::CMPConfig()
{
    reload();
}

CMPConfig* CMPConfig::instance()
{
    static CMPConfig config;
    return &config;
}

void CMPConfig::reload()
{
    QSettings settings;
    bUseProxy = settings.value("Proxy/useProxy", false).toBool();
    strHost = settings.value("Proxy/Host", QString()).toString();
    nPort = settings.value("Proxy/Port", 80).toInt();
    nProxyType = settings.value("Proxy/Type", 0).toInt();
    strUserName = settings.value("Proxy/UserName", QString()).toString();
    strPassWord = settings.value("Proxy/PassWord", QString()).toString();
    bAutoUpdate = settings.value("Update/AutoUpdate", true).toBool();
    nInterval = settings.value("Update/Interval", 7).toInt();
    // Defaults to now, so a fresh account gets its first check only after an interval.
    dtUpdateTime = settings.value("Update/UpdateTime", QDateTime::currentDateTime()).toDateTime();
}

void CMPConfig::save()
{
    QSettings settings;
    settings.setValue("Proxy/useProxy", bUseProxy);
    settings.setValue("Proxy/Host", strHost);
    settings.setValue("Proxy/Port", nPort);
    settings.setValue("Proxy/Type", nProxyType);
    settings.setValue("Proxy/UserName", strUserName);
    settings.setValue("Proxy/PassWord", strPassWord);
    settings.setValue("Update/AutoUpdate", bAutoUpdate);
    settings.setValue("Update/Interval", nInterval);
    settings.setValue("Update/UpdateTime", dtUpdateTime);
}
