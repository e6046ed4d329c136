// The update client over real HTTP: a local server answers as the update
// service would (a newer version, the same one, an unknown product, broken
// XML, nothing), connections that fail, an invalid address, and a local
// proxy that the request must really pass through. Also the argument
// parsing, the flags that stay from one check to the next, and a reply
// handled once.

#include "httpservers.h"
#include "testenv.h"
#include "update/update.h"

#include <QSignalSpy>
#include <QTcpServer>

namespace {

// A reply of the update service.
QByteArray reply(const QString& code, const QString& version, const QString& whatsNew,
                 const QString& download = "http://downloads.example/tonewright.dmg")
{
    return QString("<?xml version=\"1.0\" encoding=\"utf-8\"?>\n"
                   "<upd:ProductInfo xmlns:upd=\"http://update.example/schema\">\n"
                   "  <upd:ProductCode>%1</upd:ProductCode>\n"
                   "  <upd:ProductDisplayName>Tonewright</upd:ProductDisplayName>\n"
                   "  <upd:ProductVer>%2</upd:ProductVer>\n"
                   "  <upd:ProductState>release</upd:ProductState>\n"
                   "  <upd:DownloadURL>%4</upd:DownloadURL>\n"
                   "  <upd:ProductDescURL>http://example/desc</upd:ProductDescURL>\n"
                   "  <upd:CheckSUM>0</upd:CheckSUM>\n"
                   "  <upd:WhatsNew><upd:Format>html</upd:Format>"
                   "<upd:Description>%3</upd:Description></upd:WhatsNew>\n"
                   "</upd:ProductInfo>\n")
        .arg(code, version, QString::fromLatin1(whatsNew.toUtf8().toBase64()), download)
        .toUtf8();
}

QStringList args(const QString& url, const QString& showErr = "true")
{
    return {"MainWnd",
            "-url",
            url,
            "-ver",
            "1.4.0",
            "-product",
            "Vandrel Tonewright Mac",
            "-showerr",
            showErr,
            "-language",
            "en",
            "-showname",
            "Tonewright",
            "-auto",
            "false"};
}

// Runs one check and waits for its outcome (or for the quiet end).
struct Check
{
    explicit Check(CUpdate& client) : spy(&client, &CUpdate::SendUInfo) {}
    QSignalSpy spy;
    int code() const { return spy.isEmpty() ? 0 : spy.last().at(0).toInt(); }
    QString text() const { return spy.isEmpty() ? QString() : spy.last().at(1).toString(); }
};

} // namespace

class TestUpdate : public QObject
{
    Q_OBJECT

private:
    tw::HttpServer m_server;
    QString m_script;

private slots:
    void initTestCase()
    {
        QVERIFY(m_server.listen());
        m_script = m_server.url("/update-product-info/update.php");
    }

    void shouldReportANewerVersionWithWhatIsNewAndWhereToGetIt()
    {
        const QString whatsNew = QString::fromUtf8("<b>Nouveautés</b>: fondus plus doux, 日本語");
        m_server.setReply(reply("TW-01", "1.5.0", whatsNew));
        CUpdate client;
        QVERIFY(client.InitUpdate(args(m_script).size(), args(m_script)));
        Check check(client);
        client.TestUrl();
        QTRY_COMPARE_WITH_TIMEOUT(check.spy.count(), 1, 10000);
        QCOMPARE(check.code(), int(UINFO_NEW_VERSION));
        QCOMPARE(check.text(), whatsNew);
        QCOMPARE(client.SzI(CUpdate::idxWhatsNew), whatsNew);
        QCOMPARE(client.SzI(CUpdate::idxDownloadUrl),
                 QString("http://downloads.example/tonewright.dmg?product=TW-01"));
        QCOMPARE(client.SzI(CUpdate::idxNewVersion), QString("1.5.0"));
        QCOMPARE(client.SzI(CUpdate::idxDisplayName), QString("Tonewright"));
        // The query as it went out, unescaped parts and all.
        QCOMPARE(m_server.requests.last(),
                 QString("GET /update-product-info/update.php?action=getinfo&product="
                         "Vandrel%20Tonewright%20Mac&versioncur=1.4.0 HTTP/1.1"));
    }

    void shouldReportTheSameVersionOnlyWhenAsked_data()
    {
        QTest::addColumn<QString>("showErr");
        QTest::addColumn<int>("code");
        QTest::newRow("shown") << "true" << int(UINFO_NEWEST);
        QTest::newRow("shown with 1") << "1" << int(UINFO_NEWEST);
        QTest::newRow("quiet") << "false" << 0;
        QTest::newRow("a capital True is not true") << "True" << 0;
    }
    void shouldReportTheSameVersionOnlyWhenAsked()
    {
        QFETCH(QString, showErr);
        QFETCH(int, code);
        m_server.setReply(reply("TW-01", "1.4.0", "nothing"));
        CUpdate client;
        QVERIFY(client.InitUpdate(args(m_script, showErr).size(), args(m_script, showErr)));
        QCOMPARE(client.IsShowFace(), code != 0);
        const int before = m_server.requests.size();
        Check check(client);
        client.TestUrl();
        // The request is answered either way; only then is silence certain.
        QTRY_COMPARE_WITH_TIMEOUT(m_server.requests.size(), before + 1, 10000);
        if (code) {
            QTRY_COMPARE_WITH_TIMEOUT(check.spy.count(), 1, 10000);
            QCOMPARE(check.code(), code);
        } else {
            // A quiet check ends with the reply read, which fills the slots.
            QTRY_COMPARE_WITH_TIMEOUT(client.SzI(CUpdate::idxNewVersion), QString("1.4.0"), 10000);
            QCOMPARE(check.spy.count(), 0);
        }
    }

    void shouldReportAnUnknownProduct()
    {
        m_server.setReply(reply("", "9.9.9", "x"));
        CUpdate client;
        QVERIFY(client.InitUpdate(args(m_script, "false").size(), args(m_script, "false")));
        Check check(client);
        client.TestUrl();
        QTRY_COMPARE_WITH_TIMEOUT(check.spy.count(), 1, 10000);
        QCOMPARE(check.code(), int(UINFO_NOT_FOUND));
    }

    void shouldHandBackAReplyThatIsNotXml()
    {
        m_server.setReply("<html><body>Service down", 200);
        CUpdate client;
        QVERIFY(client.InitUpdate(args(m_script).size(), args(m_script)));
        Check check(client);
        client.TestUrl();
        QTRY_COMPARE_WITH_TIMEOUT(check.spy.count(), 1, 10000);
        QCOMPARE(check.code(), int(UINFO_BAD_REPLY));
        QCOMPARE(check.text(), QString("<html><body>Service down"));
    }

    void shouldReportAnEmptyReplyAsANetworkFailureEvenQuietly()
    {
        m_server.setReply(QByteArray());
        CUpdate client;
        QVERIFY(client.InitUpdate(args(m_script, "false").size(), args(m_script, "false")));
        Check check(client);
        client.TestUrl();
        QTRY_COMPARE_WITH_TIMEOUT(check.spy.count(), 1, 10000);
        QCOMPARE(check.code(), int(UINFO_NET_FAIL));
    }

    void shouldReportARefusedConnectionAsANetworkFailure()
    {
        // A port that was just free: nothing listens there.
        QTcpServer probe;
        QVERIFY(probe.listen(QHostAddress::LocalHost, 0));
        const quint16 port = probe.serverPort();
        probe.close();
        const QString dead =
            QString("http://127.0.0.1:%1/update-product-info/update.php").arg(port);
        CUpdate client;
        QVERIFY(client.InitUpdate(args(dead, "false").size(), args(dead, "false")));
        Check check(client);
        client.TestUrl();
        QTRY_COMPARE_WITH_TIMEOUT(check.spy.count(), 1, 10000);
        QCOMPARE(check.code(), int(UINFO_NET_FAIL));
    }

    void shouldReportAnInvalidAddressOnlyWhenAsked_data()
    {
        QTest::addColumn<QString>("url");
        QTest::addColumn<QString>("showErr");
        QTest::addColumn<int>("count");
        QTest::newRow("no path, shown") << "http://127.0.0.1"
                                        << "true" << 1;
        QTest::newRow("no path, quiet") << "http://127.0.0.1"
                                        << "false" << 0;
        QTest::newRow("not an address") << "http://[::1"
                                        << "true" << 1;
    }
    void shouldReportAnInvalidAddressOnlyWhenAsked()
    {
        QFETCH(QString, url);
        QFETCH(QString, showErr);
        QFETCH(int, count);
        CUpdate client;
        QVERIFY(client.InitUpdate(args(url, showErr).size(), args(url, showErr)));
        Check check(client);
        client.TestUrl(); // decided at once, before any transfer
        QCOMPARE(check.spy.count(), count);
        if (count)
            QCOMPARE(check.code(), int(UINFO_URL_INVALID));
    }

    void shouldGoThroughTheProxyItIsGiven()
    {
        tw::HttpProxy proxy;
        QVERIFY(proxy.listen());
        m_server.setReply(reply("TW-01", "2.0", "proxied"));
        CUpdate client;
        QStringList list{"MainWnd", "-setProxy", "127.0.0.1", QString::number(proxy.port()),
                         "0",       "proxyuser", "proxypass"};
        list += args(m_script).mid(1);
        QVERIFY(client.InitUpdate(list.size(), list));
        QCOMPARE(client.SzI(CUpdate::idxProxyHost), QString("127.0.0.1"));
        QCOMPARE(client.SzI(CUpdate::idxProxyUser), QString("proxyuser"));
        Check check(client);
        const int before = m_server.requests.size();
        client.TestUrl();
        QTRY_COMPARE_WITH_TIMEOUT(check.spy.count(), 1, 10000);
        QCOMPARE(check.code(), int(UINFO_NEW_VERSION));
        QCOMPARE(check.text(), QString("proxied"));
        // The proxy saw the request in absolute form and passed it on.
        QCOMPARE(proxy.requests.size(), 1);
        QVERIFY2(proxy.requests[0].startsWith("GET " + m_script + "?action=getinfo"),
                 qPrintable(proxy.requests[0]));
        QCOMPARE(m_server.requests.size(), before + 1);
    }

    void shouldKeepTheProxyFlagForTheNextCheck()
    {
        // A check through a proxy, then one without "-setProxy": the flag
        // stays, the proxy is made of the now empty host and port, and the
        // check fails as a network failure.
        tw::HttpProxy proxy;
        QVERIFY(proxy.listen());
        m_server.setReply(reply("TW-01", "1.4.0", "x"));
        CUpdate client;
        QStringList list{"MainWnd", "-setProxy", "127.0.0.1", QString::number(proxy.port()),
                         "0",       "",          ""};
        list += args(m_script).mid(1);
        QVERIFY(client.InitUpdate(list.size(), list));
        Check first(client);
        client.TestUrl();
        QTRY_COMPARE_WITH_TIMEOUT(first.spy.count(), 1, 10000);
        QCOMPARE(first.code(), int(UINFO_NEWEST));

        QVERIFY(client.InitUpdate(args(m_script).size(), args(m_script)));
        QCOMPARE(client.SzI(CUpdate::idxProxyHost), QString()); // the slots were cleared
        Check second(client);
        const int direct = m_server.requests.size();
        client.TestUrl();
        QTRY_COMPARE_WITH_TIMEOUT(second.spy.count(), 1, 10000);
        QCOMPARE(second.code(), int(UINFO_NET_FAIL));
        QCOMPARE(m_server.requests.size(), direct); // it never went direct
        QCOMPARE(proxy.requests.size(), 1);
    }

    void shouldParseTheArguments()
    {
        CUpdate client;
        // No "-ver": no request can be made.
        QStringList noVersion{"x", "-url", m_script, "-product", "P"};
        QVERIFY(!client.InitUpdate(noVersion.size(), noVersion));
        QStringList list{"x",        "-url",      "http://a/b", "-url",   "http://other/",
                         "-product", "P",         "-ver",       "1",      "-msg",
                         "m",        "-language", "fr",         "-lskin", "s",
                         "-showerr", "yes"};
        QVERIFY(client.InitUpdate(list.size(), list));
        QCOMPARE(client.SzI(CUpdate::idxUrl), QString("http://a/b")); // the first wins
        QCOMPARE(client.SzI(CUpdate::idxMsg), QString("m"));
        QCOMPARE(client.SzI(CUpdate::idxLanguage), QString("fr"));
        QCOMPARE(client.SzI(CUpdate::idxSkin), QString("s"));
        QVERIFY(!client.IsShowFace());
        // Only the given count is read; a count past the list reads blanks.
        QVERIFY(!client.InitUpdate(3, list));
        QCOMPARE(client.SzI(CUpdate::idxUrl), QString("http://a/b"));
        QCOMPARE(client.SzI(CUpdate::idxVersion), QString());
        QStringList proxy{"x", "-setProxy", "h", "8x"};
        QVERIFY(!client.InitUpdate(10, proxy));
        QCOMPARE(client.SzI(CUpdate::idxProxyHost), QString("h"));
        QCOMPARE(client.SzI(CUpdate::idxProxyPort), QString("8x"));
    }

    void shouldAnswerOnceForOneRequest()
    {
        m_server.setReply(reply("TW-01", "1.4.1", "once"));
        CUpdate client;
        QVERIFY(client.InitUpdate(args(m_script).size(), args(m_script)));
        Check check(client);
        client.TestUrl();
        QTRY_COMPARE_WITH_TIMEOUT(check.spy.count(), 1, 10000);
        client.OnDone(false);
        client.OnDone(true);
        QCOMPARE(check.spy.count(), 1);
        // Without a request, nothing at all.
        CUpdate idle;
        Check none(idle);
        idle.OnDone(true);
        QCOMPARE(none.spy.count(), 0);
    }

    void shouldKeepTheTailOfALongerEarlierReply()
    {
        // The reply buffer is rewound, not emptied: after a long reply, a
        // shorter one leaves the long one's end behind it, and the document
        // read is no longer well formed.
        m_server.setReply(reply("TW-01", "1.5.0", QString(400, 'x')));
        CUpdate client;
        QVERIFY(client.InitUpdate(args(m_script).size(), args(m_script)));
        Check first(client);
        client.TestUrl();
        QTRY_COMPARE_WITH_TIMEOUT(first.spy.count(), 1, 10000);
        QCOMPARE(first.code(), int(UINFO_NEW_VERSION));
        m_server.setReply(reply("TW-01", "1.5.0", "short"));
        QVERIFY(client.InitUpdate(args(m_script).size(), args(m_script)));
        Check second(client);
        client.TestUrl();
        QTRY_COMPARE_WITH_TIMEOUT(second.spy.count(), 1, 10000);
        QCOMPARE(second.code(), int(UINFO_BAD_REPLY));
    }
};

TW_TEST_MAIN(TestUpdate)
#include "tst_update.moc"
