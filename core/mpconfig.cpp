#include "core/mpconfig.h"

#include "core/settingskeys.h"

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
    bUseProxy = settings.value(settingskeys::kProxyUse, false).toBool();
    strHost = settings.value(settingskeys::kProxyHost, QString()).toString();
    nPort = settings.value(settingskeys::kProxyPort, 80).toInt();
    nProxyType = settings.value(settingskeys::kProxyType, 0).toInt();
    strUserName = settings.value(settingskeys::kProxyUserName, QString()).toString();
    strPassWord = settings.value(settingskeys::kProxyPassWord, QString()).toString();
    bAutoUpdate = settings.value(settingskeys::kUpdateAuto, true).toBool();
    nInterval = settings.value(settingskeys::kUpdateInterval, 7).toInt();
    // Defaults to now, so a fresh account gets its first check only after an interval.
    dtUpdateTime =
        settings.value(settingskeys::kUpdateTime, QDateTime::currentDateTime()).toDateTime();
}

void CMPConfig::save()
{
    QSettings settings;
    settings.setValue(settingskeys::kProxyUse, bUseProxy);
    settings.setValue(settingskeys::kProxyHost, strHost);
    settings.setValue(settingskeys::kProxyPort, nPort);
    settings.setValue(settingskeys::kProxyType, nProxyType);
    settings.setValue(settingskeys::kProxyUserName, strUserName);
    settings.setValue(settingskeys::kProxyPassWord, strPassWord);
    settings.setValue(settingskeys::kUpdateAuto, bAutoUpdate);
    settings.setValue(settingskeys::kUpdateInterval, nInterval);
    settings.setValue(settingskeys::kUpdateTime, dtUpdateTime);
}
