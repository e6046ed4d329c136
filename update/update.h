#pragma once
// CUpdate: asks the maker's update service whether a newer version exists.
// Configured by keyword arguments (InitUpdate), it sends one HTTP GET
// (TestUrl), reads the XML reply when the transfer ends (OnDone) and reports
// every outcome through SendUInfo(code, text). Owned by the main window and
// reused for every check; its flags stay from one check to the next. GUI
// thread; the transfer runs on the event loop.

#include <QBuffer>
#include <QByteArray>
#include <QNetworkAccessManager>
#include <QObject>
#include <QPointer>
#include <QString>
#include <QStringList>

class QNetworkReply;

// The outcomes SendUInfo carries.
enum UpdateInfo
{
    UINFO_NET_FAIL = 30030,    // the transfer failed or the reply was empty
    UINFO_URL_INVALID = 30035, // invalid address (only when errors are shown)
    UINFO_NOT_FOUND = 30036,   // the service does not know the product
    UINFO_NEW_VERSION = 30037, // a newer version; the text is what is new
    UINFO_NEWEST = 30038,      // this is the newest (only when errors are shown)
    UINFO_BAD_REPLY = 30058    // not XML; the text is the reply
};

class CUpdate : public QObject
{
    Q_OBJECT

public:
    // The string slots of InitUpdate's arguments and of the reply.
    enum enIndexInfo
    {
        idxProxyHost = 0,
        idxProxyPort,
        idxProxyUser,
        idxProxyPassWord,
        idxUrl,
        idxDownloadUrl,
        idxProduct,
        idxDisplayName,
        idxVersion,
        idxNewVersion,
        idxWhatsNew,
        idxMsg,
        idxLanguage,
        idxSkin,
        idxCount
    };

    CUpdate();
    ~CUpdate() override;

    // Parses "-setProxy host port type user password", "-url", "-product",
    // "-ver", "-showerr 1|true", "-msg", "-language", "-lskin"; the first
    // occurrence of each wins. True when the address, product and version
    // are all given.
    bool InitUpdate(int argc, QStringList argv);
    // Sends the request; the answer comes through SendUInfo later.
    void TestUrl();
    // >0 when `offered` is newer than `current` (see compareVersions).
    int CompareVersion(QString current, QString offered);
    QString& SzI(enIndexInfo index) { return m_info[index]; }
    bool IsShowFace() { return bShowFace; }

signals:
    void SendUInfo(int code, QString text = QString());

public slots:
    // Ends a request: reports its outcome once (a second call does nothing).
    void OnDone(bool error);

private:
    int m_proxyType = 0;
    QString m_info[idxCount];
    bool bUseProxyArg = false;
    bool bShowErr = false;
    bool bShowFace = false;
    bool bBusy = false;
    QNetworkAccessManager m_http;
    QByteArray m_encodedUrl;
    QBuffer m_buffer; // rewound for each reply, never truncated
    QPointer<QNetworkReply> m_reply;
};
