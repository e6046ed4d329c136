// The Debian package that `make package` builds: unpacked with dpkg -x into
// a scratch root, its programs run from there with a clean environment,
// its desktop entry and AppStream file pass their validators, and its
// dependencies were computed from the programs' libraries. Skipped, saying
// so, when no package of this build is there (`make check-package` builds
// one and runs this).

#include "../dist/installcheck.h"
#include "testenv.h"

#include <QDir>
#include <QFileInfo>
#include <QTemporaryDir>

class TestPackage : public QObject
{
    Q_OBJECT

private:
    QString m_deb;

private slots:
    void initTestCase()
    {
        const QDir build(TW_BINARY_DIR);
        const QStringList debs =
            build.entryList({"tonewright_" TONEWRIGHT_VERSION "_*.deb"}, QDir::Files, QDir::Time);
        if (debs.isEmpty())
            QSKIP("no package built: run `make package` (or `make check-package`) first");
        m_deb = build.filePath(debs.first());
        const QFileInfo program(qEnvironmentVariable("TONEWRIGHT_BINARY"));
        if (program.exists() && QFileInfo(m_deb).lastModified() < program.lastModified())
            QSKIP(qPrintable(m_deb + " is older than the program: run `make package` again"));
    }

    void shouldInstallAndRunFromTheUnpackedPackage()
    {
        QTemporaryDir root;
        QVERIFY(root.isValid());
        const twdist::Tool unpack = twdist::runTool("dpkg", {"-x", m_deb, root.path()});
        QVERIFY2(unpack.code == 0, qPrintable(unpack.output));
        twdist::checkInstalledTree(root.path() + "/usr");
    }

    void shouldNameItsComputedDependencies()
    {
        const twdist::Tool control =
            twdist::runTool("dpkg-deb", {"-f", m_deb, "Package", "Version", "Depends"});
        QVERIFY2(control.code == 0, qPrintable(control.output));
        QVERIFY2(control.output.contains("Package: tonewright\n"), qPrintable(control.output));
        QVERIFY2(control.output.contains("Version: " TONEWRIGHT_VERSION "\n"),
                 qPrintable(control.output));
        // From the libraries the programs link (dpkg-shlibdeps) and the
        // plugins they load.
        for (const char* dependency : {"libqt6core6", "libqt6widgets6", "libavcodec", "libavformat",
                                       "libsdl2", "libtag1", "libc6", "qt6-qpa-plugins"})
            QVERIFY2(control.output.contains(dependency), dependency);
    }
};

TW_TEST_MAIN(TestPackage)
#include "tst_package.moc"
