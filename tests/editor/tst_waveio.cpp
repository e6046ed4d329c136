// The editor's import and export on their own: no widget and no progress
// pane (the silent wait stands in), a CWaveModel and a CWavePlayback over
// the real engines. Sources become temporary WAVs, the selection becomes a
// ringtone in the library, and the temporary WAV is rebuilt for the next
// export.

#include "editor/ringtoneexport.h"
#include "editor/waveio.h"
#include "editor/wavemodel.h"
#include "editor/waveplayback.h"
#include "engine/platformfolders.h"
#include "mediafixtures.h"
#include "tests/itunesagent/agentfixtures.h"
#include "wavewndfixture.h"

#include <itunesagent.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QTest>

#include <cmath>

namespace {

const double kAacFrameMs = 1024.0 * 1000.0 / 44100.0;

QString ringtoneDir()
{
    char buffer[4096] = {};
    if (ItunesAgentGetRingtoneDir(buffer, sizeof buffer) < 0)
        return QString();
    return QString::fromLocal8Bit(buffer);
}

double probeDuration(const QString& path)
{
    return tw::ffprobe({"-show_entries", "format=duration", "-of", "default=nw=1:nk=1", path})
        .trimmed()
        .toDouble();
}

bool isTempWave(const QString& path)
{
    static const QRegularExpression name("/wave_\\d{9}\\.tmp$");
    return path.startsWith(programCacheDir() + "/") && name.match(path).hasMatch();
}

} // namespace

class TestWaveIo : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir m_dir;

private slots:
    void initTestCase()
    {
        QVERIFY(m_dir.isValid());
        QVERIFY(!ringtoneDir().isEmpty());
    }

    void shouldConvertAnyMediaIntoANewTemporaryWave()
    {
        CWaveModel model;
        CWavePlayback playback(model);
        CWaveIo io(playback, nullptr);
        const QString mp3 = tw::mp3Fixture(5);
        QVERIFY(!mp3.isEmpty());
        QCOMPARE(io.convertToWave(mp3), 1);
        const QString first = io.getWavePath();
        QVERIFY2(isTempWave(first), qPrintable(first));
        QVERIFY(CWaveIo::isWaveFile(QFile::encodeName(first).constData()));
        QCOMPARE(tw::ffprobe({"-show_entries", "stream=sample_rate,channels", "-of",
                              "default=nw=1:nk=1", first})
                     .split('\n', Qt::SkipEmptyParts),
                 QStringList({"44100", "2"}));
        // Nothing was opened: that is the editor's next step.
        QVERIFY(!playback.isOpen());
        QTest::qWait(2); // a new millisecond, a new name
        QCOMPARE(io.convertToWave(mp3), 1);
        QVERIFY(io.getWavePath() != first);
        QVERIFY(QFile::exists(first)); // the old one is left for the next start
    }

    void shouldCopyAWaveAsItStands()
    {
        CWaveModel model;
        CWavePlayback playback(model);
        CWaveIo io(playback, nullptr);
        const QString wav = tw::wavFixture(3);
        QCOMPARE(io.convertToWave(wav), 1);
        QCOMPARE(fx::sha1(io.getWavePath()), fx::sha1(wav));
    }

    void shouldRefuseASourceWithoutSound()
    {
        CWaveModel model;
        CWavePlayback playback(model);
        CWaveIo io(playback, nullptr);
        io.setWavePath("untouched");
        const QStringList before = QDir(programCacheDir()).entryList(QDir::Files);
        QCOMPARE(io.convertToWave(tw::textFixture()), -4);
        QCOMPARE(io.convertToWave(tw::silentVideoFixture(2)), -4);
        QCOMPARE(io.getWavePath(), QString("untouched"));
        QCOMPARE(QDir(programCacheDir()).entryList(QDir::Files), before);
    }

    void shouldTellWavesByTheirHeader()
    {
        QVERIFY(!CWaveIo::isWaveFile(nullptr));
        QVERIFY(!CWaveIo::isWaveFile(QFile::encodeName(m_dir.filePath("missing")).constData()));
        const QString avi = m_dir.filePath("clip.avi");
        QVERIFY(fx::writeFile(avi, QByteArray("RIFF\x10\0\0\0AVI LIST", 16)));
        QVERIFY(!CWaveIo::isWaveFile(QFile::encodeName(avi).constData()));
        const QString wave = m_dir.filePath("tone.bin");
        QVERIFY(fx::writeFile(wave, QByteArray("RIFF\x10\0\0\0WAVEfmt ", 16)));
        QVERIFY(CWaveIo::isWaveFile(QFile::encodeName(wave).constData()));
    }

    void shouldExportTheSelectionWithItsFadesAndReloadForTheNextExport()
    {
        CWaveModel model;
        CWavePlayback playback(model);
        CWaveIo io(playback, nullptr);
        CRingtoneExport ringtone(model, playback, io);
        QCOMPARE(ringtone.exportTo(QString()), -1);

        CRingToneNode song;
        song.LoadFromFile(tw::mp3Fixture(20));
        io.setNode(song);
        QCOMPARE(io.convertToWave(song.strPath), 1);
        model.setViewWidth(400);
        QCOMPARE(playback.open(io.getWavePath()), 0);
        model.load(playback.record().frameCount, playback.record().sampleRate);
        model.setSelection(2000, 12000);
        playback.enableFadeIn(true);
        playback.setFadeInLength(2);
        playback.setVolume(150);
        const QString wavBefore = io.getWavePath();

        const QString m4r = m_dir.filePath("Export Test.m4r");
        QSignalSpy paused(&playback, &CWavePlayback::onPause);
        bool ringtoneExistedAtPause = true;
        connect(&playback, &CWavePlayback::onPause, this,
                [&] { ringtoneExistedAtPause = QFile::exists(m4r); });
        QTest::qWait(2);
        const int rc = ringtone.exportTo(m4r);
        QCOMPARE(rc, 0); // the reload's WaveHelperInit
        QCOMPARE(paused.count(), 1);
        QVERIFY(!ringtoneExistedAtPause);
        QVERIFY(QFile::exists(m4r));
        QVERIFY(std::fabs(probeDuration(m4r) * 1000.0 - 10000.0) <= kAacFrameMs);
        QVERIFY(QFile::exists(ringtoneDir() + "/Export Test.m4r"));
        // A new temporary WAV, open, the selection kept, the effects back to
        // their defaults until they are set again.
        QVERIFY(io.getWavePath() != wavBefore);
        QVERIFY(isTempWave(io.getWavePath()));
        QVERIFY(playback.isOpen());
        QCOMPARE(model.beginTime(), 2000LL);
        QCOMPARE(model.endTime(), 12000LL);
        QCOMPARE(playback.volume(), 100);
        QCOMPARE(playback.record().fadeInStart, -1);
        // The fades and volume went into the old temporary WAV only.
        QVERIFY(fx::sha1(wavBefore) != fx::sha1(io.getWavePath()));
    }

    void shouldStopWhenTheSourceIsGone()
    {
        CWaveModel model;
        CWavePlayback playback(model);
        CWaveIo io(playback, nullptr);
        CRingToneNode gone;
        gone.strPath = m_dir.filePath("gone.mp3");
        io.setNode(gone);
        QCOMPARE(io.reload(), -2);
        QVERIFY(!playback.isOpen());
    }
};

TW_TEST_MAIN(TestWaveIo)
#include "tst_waveio.moc"
