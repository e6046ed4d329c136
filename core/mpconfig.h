#pragma once
// The user's proxy and update-check settings, held as plain public fields.
// reload() reads them from the settings store, save() writes all of them
// back. One instance per process, GUI thread only.

#include <QDateTime>
#include <QString>

class CMPConfig
{
public:
    static CMPConfig* instance();

    void reload();
    void save();

    QString strHost;
    int nPort = 0;
    QString strUserName;
    QString strPassWord; // stored in clear text
    int nProxyType = 0;  // 0 Http, 1 Socks5, 2 HttpCaching, 3 FtpCaching
    bool bUseProxy = false;
    QDateTime dtUpdateTime;
    int nInterval = 7; // days between automatic update checks
    bool bAutoUpdate = true;

    CMPConfig(const CMPConfig&) = delete;
    CMPConfig& operator=(const CMPConfig&) = delete;

private:
    CMPConfig();
};
