// `cmake --install` of this build into a scratch prefix: the programs, the
// skin, help and translations under share/tonewright, the desktop entry,
// the AppStream file and the icons, each where the desktop looks, and the
// validators content with them.

#include "installcheck.h"
#include "testenv.h"

#include <QFile>
#include <QStandardPaths>
#include <QTemporaryDir>

class TestInstall : public QObject
{
    Q_OBJECT

private slots:
    void shouldInstallEverythingInItsPlace()
    {
        for (const char* tool : {"desktop-file-validate", "appstreamcli"})
            if (QStandardPaths::findExecutable(tool).isEmpty())
                QFAIL(qPrintable(QString("%1 is missing: run scripts/install-deps.sh").arg(tool)));
        QTemporaryDir prefix;
        QVERIFY(prefix.isValid());
        const twdist::Tool install = twdist::runTool(
            TW_CMAKE_COMMAND, {"--install", TW_BINARY_DIR, "--prefix", prefix.path()});
        QVERIFY2(install.code == 0, qPrintable(install.output));
        twdist::checkInstalledTree(prefix.path());
    }

    void shouldNameTheMetadataAfterTheMakersDomain()
    {
        QCOMPARE(twdist::appId(), QString("example.vandrel.tonewright"));
        QFile built(QString(TW_BINARY_DIR "/dist/") + twdist::appId() + ".metainfo.xml");
        QVERIFY(built.open(QIODevice::ReadOnly));
        const QString xml = QString::fromUtf8(built.readAll());
        QVERIFY(xml.contains("<id>" + twdist::appId() + "</id>"));
        QVERIFY(xml.contains("<release version=\"" TONEWRIGHT_VERSION "\""));
        QVERIFY(xml.contains("<screenshot type=\"default\">"));
        QVERIFY(xml.contains("<launchable type=\"desktop-id\">tonewright.desktop</launchable>"));
        QVERIFY(xml.contains("https://www." TONEWRIGHT_DOMAIN "/"));
    }
};

TW_TEST_MAIN(TestInstall)
#include "tst_install.moc"
