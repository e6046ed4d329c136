// tonewright-cli -d: several inputs, one ringtone each, named after each
// input, made by child runs of the program; a summary, and a failing exit
// code when any input failed while the others are still made.

#include "cli/batchrun.h"
#include "cli/exitcodes.h"
#include "clirun.h"
#include "library/ItunesWrap.h"
#include "mediafixtures.h"
#include "testenv.h"

#include <QFileInfo>
#include <QTemporaryDir>

#include <cmath>

class TestCliBatch : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir m_dir;
    QString m_song;
    QString m_video;
    QString m_short;

    QString copyAs(const QString& from, const QString& name)
    {
        const QString path = m_dir.filePath(name);
        QDir().mkpath(QFileInfo(path).absolutePath());
        if (!QFile::exists(path) && !QFile::copy(from, path))
            return QString();
        return path;
    }

private slots:
    void initTestCase()
    {
        QVERIFY(m_dir.isValid());
        m_song = copyAs(tw::mp3Fixture(60), "in/song.mp3");
        m_video = copyAs(tw::mp4AvFixture(45), "in/clip.mp4");
        m_short = copyAs(tw::mp3Fixture(3), "in/short.mp3");
        QVERIFY(!m_song.isEmpty() && !m_video.isEmpty() && !m_short.isEmpty());
    }

    void shouldNameEachRingtoneAfterItsInput()
    {
        QCOMPARE(CBatchRun::outputFor("out", "/music/My Song.mp3"), QString("out/My Song.m4r"));
        QCOMPARE(CBatchRun::outputFor("out", "a/.hidden tune.live.flac"),
                 QString("out/hidden tune.live.m4r"));
        QCOMPARE(CBatchRun::outputFor("/tmp/r", "x/...mp3"), QString("/tmp/r/Ringtone.m4r"));
    }

    void shouldMakeOneRingtonePerInput()
    {
        const QString odd = copyAs(m_song, "in/.Odd name.mp3");
        const QString outDir = m_dir.filePath("all-good");
        const twcli::Run r = twcli::run({m_song, m_video, odd, "-d", outDir, "--start", "0:05",
                                         "--length", "0:20", "--fade-out", "2"});
        QVERIFY2(r.code == kExitOk, qPrintable(twcli::describe(r)));
        QVERIFY2(r.out.contains("3 of 3 ringtones made, 0 failed"), qPrintable(r.out));
        QStringList made = QDir(outDir).entryList(QDir::Files | QDir::Hidden, QDir::Name);
        QCOMPARE(made, QStringList({"Odd name.m4r", "clip.m4r", "song.m4r"}));
        for (const QString& name : made) {
            const double seconds = twcli::probeDuration(outDir + "/" + name);
            QVERIFY2(std::fabs(seconds - 20.0) < 0.03, qPrintable(name));
            QVERIFY2(r.out.contains(outDir + "/" + name), qPrintable(r.out));
        }
        QCOMPARE(twcli::leftoverWaves(), QStringList());

        // Each is the ringtone a run of its own makes.
        const QString single = m_dir.filePath("single-song.m4r");
        QCOMPARE(twcli::run({m_song, "-o", single, "--start", "0:05", "--length", "0:20",
                             "--fade-out", "2", "-q"})
                     .code,
                 int(kExitOk));
        QCOMPARE(twcli::decodePcm(outDir + "/song.m4r"), twcli::decodePcm(single));
    }

    void shouldGoOnPastAFailedInputAndSaySo()
    {
        const QString outDir = m_dir.filePath("one-fails");
        const QString missing = m_dir.filePath("in/missing.mp3");
        const twcli::Run r =
            twcli::run({m_short, m_song, missing, m_video, "-d", outDir, "-j", "2"});
        QVERIFY2(r.code == kExitBatchFailed, qPrintable(twcli::describe(r)));
        QVERIFY2(r.out.contains("2 of 4 ringtones made, 2 failed"), qPrintable(r.out));
        QVERIFY2(r.err.contains("short.mp3: too short (3.0 s)"), qPrintable(r.err));
        QVERIFY2(r.err.contains("missing.mp3: no such file"), qPrintable(r.err));
        QCOMPARE(QDir(outDir).entryList(QDir::Files | QDir::Hidden, QDir::Name),
                 QStringList({"clip.m4r", "song.m4r"}));
    }

    void shouldRefuseTwoInputsOfOneName()
    {
        const QString other = copyAs(m_video, "elsewhere/song.mp4");
        const QString outDir = m_dir.filePath("same-name");
        const twcli::Run r = twcli::run({m_song, other, "-d", outDir, "-q"});
        QVERIFY2(r.code == kExitBatchFailed, qPrintable(twcli::describe(r)));
        QVERIFY2(r.err.contains("another input is already made into"), qPrintable(r.err));
        QVERIFY2(r.out.contains("1 of 2 ringtones made, 1 failed"), qPrintable(r.out));
        // The first input of that name is the one made.
        QVERIFY(std::fabs(twcli::probeDuration(outDir + "/song.m4r") - 30.0) < 0.03);
        QVERIFY(!QFile::exists(outDir + "/song (2).m4r"));
    }

    void shouldKeepExistingRingtonesUnlessForced()
    {
        const QString outDir = m_dir.filePath("existing");
        QCOMPARE(twcli::run({m_song, "-d", outDir, "--length", "10", "-q"}).code, int(kExitOk));
        const QByteArray first = tw::fileChecksum(outDir + "/song.m4r");
        const twcli::Run again = twcli::run({m_song, m_video, "-d", outDir, "-q"});
        QVERIFY2(again.code == kExitBatchFailed, qPrintable(twcli::describe(again)));
        QVERIFY2(again.err.contains("exists (--force replaces it)"), qPrintable(again.err));
        QCOMPARE(tw::fileChecksum(outDir + "/song.m4r"), first);
        QVERIFY(QFile::exists(outDir + "/clip.m4r"));
        const twcli::Run forced = twcli::run({m_song, "-d", outDir, "--force", "-q"});
        QCOMPARE(forced.code, int(kExitOk));
        QVERIFY(tw::fileChecksum(outDir + "/song.m4r") != first);
    }

    void shouldAddEveryMadeRingtoneToTheLibrary()
    {
        const QString library = CItunesWraper::instance()->ringtoneDir();
        QVERIFY(!library.isEmpty());
        const QString a = copyAs(m_song, "lib/Batch One.mp3");
        const QString b = copyAs(m_video, "lib/Batch Two.mp4");
        const QString outDir = m_dir.filePath("to-library");
        const twcli::Run r = twcli::run({a, b, m_short, "-d", outDir, "--add-to-library", "-q"});
        QVERIFY2(r.code == kExitBatchFailed, qPrintable(twcli::describe(r)));
        QVERIFY(QFile::exists(library + "/Batch One.m4r"));
        QVERIFY(QFile::exists(library + "/Batch Two.m4r"));
        QVERIFY(!QFile::exists(library + "/short.m4r"));
        QCOMPARE(tw::fileChecksum(library + "/Batch One.m4r"),
                 tw::fileChecksum(outDir + "/Batch One.m4r"));
    }

    void shouldMakeTheFolderWhenMissingAndRefuseOneThatCannotBe()
    {
        const QString nested = m_dir.filePath("new/nested/folder");
        QCOMPARE(twcli::run({m_song, "-d", nested, "-q"}).code, int(kExitOk));
        QVERIFY(QFile::exists(nested + "/song.m4r"));
        const QString blocker = m_dir.filePath("blocker");
        QVERIFY(QFile::copy(m_short, blocker));
        const twcli::Run r = twcli::run({m_song, "-d", blocker + "/sub", "-q"});
        QVERIFY2(r.code == kExitOutputUnwritable, qPrintable(twcli::describe(r)));
        QVERIFY(r.err.contains("the folder cannot be made"));
    }
};

TW_TEST_MAIN(TestCliBatch)
#include "tst_cli_batch.moc"
