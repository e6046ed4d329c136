// The proxy and update settings: defaults, round trips, no validation.

#include "core/mpconfig.h"
#include "testenv.h"

#include <QSettings>

class TestMPConfig : public QObject
{
    Q_OBJECT

private slots:
    void init() { QSettings().clear(); }

    void shouldReadDefaultsFromEmptyStore()
    {
        CMPConfig* cfg = CMPConfig::instance();
        const QDateTime before = QDateTime::currentDateTime();
        cfg->reload();
        const QDateTime after = QDateTime::currentDateTime();
        QCOMPARE(cfg->bUseProxy, false);
        QCOMPARE(cfg->strHost, QString());
        QCOMPARE(cfg->nPort, 80);
        QCOMPARE(cfg->nProxyType, 0);
        QCOMPARE(cfg->strUserName, QString());
        QCOMPARE(cfg->strPassWord, QString());
        QCOMPARE(cfg->bAutoUpdate, true);
        QCOMPARE(cfg->nInterval, 7);
        QVERIFY(cfg->dtUpdateTime >= before.addMSecs(-1));
        QVERIFY(cfg->dtUpdateTime <= after.addMSecs(1));
    }

    void shouldReproduceEveryFieldAfterSaveAndReload()
    {
        CMPConfig* cfg = CMPConfig::instance();
        cfg->bUseProxy = true;
        cfg->strHost = QString();
        cfg->nPort = 3128;
        cfg->nProxyType = 2;
        cfg->strUserName = QString::fromUtf8("zoë");
        cfg->strPassWord = QString();
        cfg->bAutoUpdate = false;
        cfg->nInterval = 30;
        const QDateTime when(QDate(2026, 11, 15), QTime(8, 30, 15));
        cfg->dtUpdateTime = when;
        cfg->save();

        cfg->strUserName = "changed";
        cfg->nPort = 1;
        cfg->reload();
        QCOMPARE(cfg->bUseProxy, true);
        QCOMPARE(cfg->strHost, QString());
        QCOMPARE(cfg->nPort, 3128);
        QCOMPARE(cfg->nProxyType, 2);
        QCOMPARE(cfg->strUserName, QString::fromUtf8("zoë"));
        QCOMPARE(cfg->strPassWord, QString());
        QCOMPARE(cfg->bAutoUpdate, false);
        QCOMPARE(cfg->nInterval, 30);
        QCOMPARE(cfg->dtUpdateTime, when);
    }

    void shouldKeepOutOfRangeProxyType()
    {
        QSettings().setValue("Proxy/Type", 9);
        CMPConfig::instance()->reload();
        QCOMPARE(CMPConfig::instance()->nProxyType, 9);
    }

    void shouldReadNonNumericPortAsZero()
    {
        QSettings().setValue("Proxy/Port", "eighty");
        CMPConfig::instance()->reload();
        QCOMPARE(CMPConfig::instance()->nPort, 0);
    }

    void shouldKeepUnsavedIntervalUntilReload()
    {
        CMPConfig* cfg = CMPConfig::instance();
        cfg->reload();
        cfg->nInterval = 30; // chosen in the options page, dialog then cancelled
        QCOMPARE(CMPConfig::instance()->nInterval, 30);
        cfg->reload();
        QCOMPARE(cfg->nInterval, 7);
    }

    void shouldWriteAllKeysEveryTime()
    {
        CMPConfig::instance()->reload();
        CMPConfig::instance()->save();
        QSettings s;
        for (const char* key :
             {"Proxy/useProxy", "Proxy/Host", "Proxy/Port", "Proxy/Type", "Proxy/UserName",
              "Proxy/PassWord", "Update/AutoUpdate", "Update/Interval", "Update/UpdateTime"})
            QVERIFY2(s.contains(key), key);
    }
};

TW_TEST_MAIN(TestMPConfig)
#include "tst_mpconfig.moc"
