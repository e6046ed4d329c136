// The update service's reply read without a network, and the version
// comparison table.

#include "testenv.h"
#include "update/update.h"
#include "update/updatereply.h"

class TestUpdateReply : public QObject
{
    Q_OBJECT

private slots:
    void shouldCompareVersions_data()
    {
        QTest::addColumn<QString>("current");
        QTest::addColumn<QString>("offered");
        QTest::addColumn<int>("result");
        QTest::newRow("1.4.1 is newer") << "1.4.0"
                                        << "1.4.1" << 1;
        QTest::newRow("the same") << "1.4.0"
                                  << "1.4.0" << 0;
        QTest::newRow("1.3.9 is older") << "1.4.0"
                                        << "1.3.9" << -1;
        QTest::newRow("1.4.0.1: more parts") << "1.4.0"
                                             << "1.4.0.1" << 1;
        QTest::newRow("1.4: fewer parts, equal") << "1.4.0"
                                                 << "1.4" << -1;
        QTest::newRow("2: the first part") << "1.4.0"
                                           << "2" << 1;
        QTest::newRow("1.x.5: not a number") << "1.4.0"
                                             << "1.x.5" << -1;
        QTest::newRow("1.4 against 1.4.0: the count alone") << "1.4"
                                                            << "1.4.0" << 1;
        QTest::newRow("1.4.00 written otherwise") << "1.4.0"
                                                  << "1.4.00" << -1;
        QTest::newRow("empty offer") << "1.4.0"
                                     << "" << -1;
        QTest::newRow("10 after 9") << "1.9.0"
                                    << "1.10.0" << 1;
        QTest::newRow("an empty part") << "1.4.0"
                                       << "1..0" << -1;
    }
    void shouldCompareVersions()
    {
        QFETCH(QString, current);
        QFETCH(QString, offered);
        QFETCH(int, result);
        QCOMPARE(compareVersions(current, offered), result);
        CUpdate client;
        QCOMPARE(client.CompareVersion(current, offered), result);
    }

    void shouldReadTheElementsByTheirPrefixedNames()
    {
        const QByteArray text = QString::fromUtf8("Überall schneller — 速い").toUtf8();
        const QByteArray doc =
            "<upd:Info><upd:ProductCode>C1</upd:ProductCode><upd:ProductVer>2.0</upd:ProductVer>"
            "<upd:DownloadURL>http://d/x</upd:DownloadURL><upd:WhatsNew><upd:Description>" +
            text.toBase64() + "</upd:Description></upd:WhatsNew></upd:Info>";
        const UpdateReply reply = parseUpdateReply(doc);
        QVERIFY(reply.wellFormed);
        QCOMPARE(reply.productCode, QString("C1"));
        QCOMPARE(reply.version, QString("2.0"));
        QCOMPARE(reply.downloadUrl, QString("http://d/x"));
        QCOMPARE(reply.whatsNew, QString::fromUtf8(text));
        QCOMPARE(reply.displayName, QString()); // absent: empty
    }

    void shouldStopTheDescriptionAtItsFirstZeroByte()
    {
        const QByteArray bytes("first\0second", 12);
        const UpdateReply reply =
            parseUpdateReply("<r><upd:WhatsNew><upd:Description>" + bytes.toBase64() +
                             "</upd:Description></upd:WhatsNew></r>");
        QCOMPARE(reply.whatsNew, QString("first"));
    }

    void shouldRefuseWhatIsNotXml_data()
    {
        QTest::addColumn<QByteArray>("document");
        QTest::newRow("empty") << QByteArray();
        QTest::newRow("cut") << QByteArray("<upd:Info><upd:ProductCode>x");
        QTest::newRow("text") << QByteArray("Service unavailable");
    }
    void shouldRefuseWhatIsNotXml()
    {
        QFETCH(QByteArray, document);
        QVERIFY(!parseUpdateReply(document).wellFormed);
    }
};

TW_TEST_MAIN(TestUpdateReply)
#include "tst_updatereply.moc"
