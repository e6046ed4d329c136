#include "update/update.h"

#include "update/updatereply.h"

#include <QNetworkProxy>
#include <QNetworkReply>
#include <QNetworkRequest>
#include <QUrl>

namespace {

// The transfer as a whole may not take longer than this.
constexpr int kTransferTimeoutMs = 30000;

// A transport failure (no connection, no proxy, a timeout): what ends a
// transfer without an answer. An HTTP error page is an answer, and is read.
bool transportFailed(QNetworkReply::NetworkError error)
{
    return error != QNetworkReply::NoError &&
           (error < 200 || error == QNetworkReply::UnknownNetworkError);
}

} // namespace

CUpdate::CUpdate()
{
    for (QString& slot : m_info)
        slot = QString();
}

CUpdate::~CUpdate()
{
    if (m_reply) {
        m_reply->disconnect(this);
        m_reply->abort();
    }
    m_buffer.close();
}

bool CUpdate::InitUpdate(int argc, QStringList argv)
{
    for (QString& slot : m_info)
        slot = QString();
    // Elements past the list read as empty, like a missing value.
    auto arg = [&argv, argc](int i) { return i < argc && i < argv.size() ? argv[i] : QString(); };
    int i = 0;
    while (i < argc) {
        const QString word = arg(i);
        // A keyword counts while its slot is empty: the first one wins, and a
        // repeated one is skipped as an unknown word.
        if (word == "-setProxy" && m_info[idxProxyHost].isEmpty()) {
            bUseProxyArg = true;
            m_info[idxProxyHost] = arg(i + 1);
            m_info[idxProxyPort] = arg(i + 2);
            m_proxyType = arg(i + 3).toInt(nullptr, 10);
            m_info[idxProxyUser] = arg(i + 4);
            m_info[idxProxyPassWord] = arg(i + 5);
            i += 6;
        } else if (word == "-url" && m_info[idxUrl].isEmpty()) {
            m_info[idxUrl] = arg(i + 1);
            i += 2;
        } else if (word == "-product" && m_info[idxProduct].isEmpty()) {
            m_info[idxProduct] = arg(i + 1);
            i += 2;
        } else if (word == "-ver" && m_info[idxVersion].isEmpty()) {
            m_info[idxVersion] = arg(i + 1);
            i += 2;
        } else if (word == "-showerr" && !bShowErr) {
            const QString value = arg(i + 1);
            if (value == "1" || value == "true")
                bShowErr = true;
            bShowFace = bShowErr;
            i += 2;
        } else if (word == "-msg" && m_info[idxMsg].isEmpty()) {
            m_info[idxMsg] = arg(i + 1);
            i += 2;
        } else if (word == "-language" && m_info[idxLanguage].isEmpty()) {
            m_info[idxLanguage] = arg(i + 1);
            i += 2;
        } else if (word == "-lskin" && m_info[idxSkin].isEmpty()) {
            m_info[idxSkin] = arg(i + 1);
            i += 2;
        } else {
            // "-showname" and "-auto" land here, and so do their values.
            i += 1;
        }
    }
    return !m_info[idxUrl].isEmpty() && !m_info[idxProduct].isEmpty() &&
           !m_info[idxVersion].isEmpty();
}

void CUpdate::TestUrl()
{
    // The parts go in as they are, unescaped.
    const QString text = m_info[idxUrl] + "?action=getinfo&product=" + m_info[idxProduct] +
                         "&versioncur=" + m_info[idxVersion];
    const QUrl url(text, QUrl::TolerantMode);
    if (!url.isValid() || url.path().isEmpty()) {
        if (bShowErr)
            emit SendUInfo(UINFO_URL_INVALID, QString());
        return;
    }

    // Without "-setProxy" the request goes direct, whatever the system's proxy.
    QNetworkProxy proxy(QNetworkProxy::NoProxy);
    if (bUseProxyArg) {
        switch (m_proxyType) {
        case 1:
            proxy.setType(QNetworkProxy::Socks5Proxy);
            break;
        case 2:
            proxy.setType(QNetworkProxy::HttpCachingProxy);
            break;
        case 3:
            proxy.setType(QNetworkProxy::FtpCachingProxy);
            break;
        default:
            proxy.setType(QNetworkProxy::HttpProxy);
            break;
        }
        proxy.setHostName(m_info[idxProxyHost]);
        proxy.setPort(static_cast<quint16>(m_info[idxProxyPort].toInt(nullptr, 10)));
        proxy.setUser(m_info[idxProxyUser]);
        proxy.setPassword(m_info[idxProxyPassWord]);
    }
    m_http.setProxy(proxy);

    // Rewound, not emptied: a shorter reply leaves the end of a longer one.
    if (!m_buffer.isOpen())
        m_buffer.open(QIODevice::ReadWrite);
    m_buffer.seek(0);

    m_encodedUrl = url.toEncoded();
    bBusy = true;
    QNetworkRequest request(url);
    request.setTransferTimeout(kTransferTimeoutMs);
    QNetworkReply* reply = m_http.get(request);
    m_reply = reply;
    connect(reply, &QNetworkReply::readyRead, this, [this, reply] {
        if (reply == m_reply)
            m_buffer.write(reply->readAll());
    });
    connect(reply, &QNetworkReply::finished, this, [this, reply] {
        reply->deleteLater();
        if (reply != m_reply)
            return;
        m_buffer.write(reply->readAll());
        OnDone(transportFailed(reply->error()));
    });
}

void CUpdate::OnDone(bool error)
{
    if (!bBusy)
        return;
    bBusy = false;
    const QByteArray body = m_buffer.data();
    if (error || body.isEmpty()) {
        emit SendUInfo(UINFO_NET_FAIL, QString());
        return;
    }
    const UpdateReply reply = parseUpdateReply(body);
    if (!reply.wellFormed) {
        // The reply as 8-bit text, up to its first zero byte.
        emit SendUInfo(
            UINFO_BAD_REPLY,
            QString::fromLocal8Bit(body.constData(), qstrnlen(body.constData(), body.size())));
        return;
    }
    m_info[idxDisplayName] = reply.displayName;
    m_info[idxNewVersion] = reply.version;
    m_info[idxWhatsNew] = reply.whatsNew;
    if (reply.productCode.isEmpty()) {
        emit SendUInfo(UINFO_NOT_FOUND, QString());
        return;
    }
    if (CompareVersion(m_info[idxVersion], m_info[idxNewVersion]) > 0) {
        m_info[idxDownloadUrl] = reply.downloadUrl + "?product=" + reply.productCode;
        emit SendUInfo(UINFO_NEW_VERSION, m_info[idxWhatsNew]);
    } else if (bShowErr) {
        emit SendUInfo(UINFO_NEWEST, QString());
    }
}

int CUpdate::CompareVersion(QString current, QString offered)
{
    return compareVersions(current, offered);
}
