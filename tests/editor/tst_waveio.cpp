// The editor's import and export on their own: no widget and no progress
// pane (the silent wait stands in), a CWaveModel and a CWavePlayback over
// the real engines. Sources become temporary WAVs, the selection becomes a
// ringtone in the library, and the temporary WAV opens again, as it was
// decoded, for the next export.

#include "editor/ringtoneexport.h"
#include "editor/waveio.h"
#include "editor/wavemodel.h"
#include "editor/waveplayback.h"
#include "engine/platformfolders.h"
#include "mediafixtures.h"
#include "piperescue.h"
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

    void shouldConvertAWaveThatIsNotTheEnginesForm_data()
    {
        QTest::addColumn<QStringList>("encode");
        const QStringList bitexact{"-flags", "+bitexact", "-fflags", "+bitexact"};
        QTest::newRow("LIST INFO chunk")
            << QStringList{"-ac",       "2",         "-ar",        "44100",     "-c:a",
                           "pcm_s16le", "-metadata", "title=Memo", "-metadata", "artist=Recorder"};
        QTest::newRow("bext chunk")
            << QStringList{"-ac",       "2",           "-ar", "44100",     "-c:a",
                           "pcm_s16le", "-write_bext", "1",   "-metadata", "description=rec"};
        QTest::newRow("48 kHz") << QStringList{"-ac", "2", "-ar", "48000", "-c:a", "pcm_s16le"} +
                                       bitexact;
        QTest::newRow("mono") << QStringList{"-ac", "1", "-ar", "44100", "-c:a", "pcm_s16le"} +
                                     bitexact;
        QTest::newRow("24-bit") << QStringList{"-ac", "2", "-ar", "44100", "-c:a", "pcm_s24le"} +
                                       bitexact;
        QTest::newRow("float with a fact chunk")
            << QStringList{"-ac", "2", "-ar", "44100", "-c:a", "pcm_f32le"} + bitexact;
        QTest::newRow("four channels, extensible format")
            << QStringList{"-ac", "4", "-ar", "44100", "-c:a", "pcm_s16le"} + bitexact;
    }

    void shouldConvertAWaveThatIsNotTheEnginesForm()
    {
        QFETCH(QStringList, encode);
        const QString source =
            m_dir.filePath(QString("recorder %1.wav").arg(QTest::currentDataTag()));
        QString error;
        QVERIFY2(tw::ffmpeg(QStringList{"-f", "lavfi", "-i", "sine=frequency=440:duration=3"} +
                                encode + QStringList{source},
                            &error),
                 qPrintable(error));
        QVERIFY(CWaveIo::isWaveFile(QFile::encodeName(source).constData()));
        QVERIFY(!CWaveIo::isCanonicalWave(QFile::encodeName(source).constData()));
        const QByteArray before = tw::fileChecksum(source);

        CWaveModel model;
        CWavePlayback playback(model);
        CWaveIo io(playback, nullptr);
        QCOMPARE(io.convertToWave(source), 1);
        QVERIFY(CWaveIo::isCanonicalWave(QFile::encodeName(io.getWavePath()).constData()));
        QCOMPARE(playback.open(io.getWavePath()), 0);
        const double seconds = playback.record().frameCount / 44100.0;
        QVERIFY2(std::fabs(seconds - 3.0) < 0.05, qPrintable(QString::number(seconds)));
        playback.release();
        QCOMPARE(tw::fileChecksum(source), before); // the user's file untouched
    }

    void shouldTellTheEnginesOwnWaveForm()
    {
        QVERIFY(CWaveIo::isCanonicalWave(QFile::encodeName(tw::wavFixture(3)).constData()));
        QVERIFY(!CWaveIo::isCanonicalWave(nullptr));
        QVERIFY(!CWaveIo::isCanonicalWave(QFile::encodeName(m_dir.filePath("none")).constData()));
        // The header alone, cut short.
        const QString cut = m_dir.filePath("cut.wav");
        QFile whole(tw::wavFixture(3));
        QVERIFY(whole.open(QIODevice::ReadOnly));
        QVERIFY(fx::writeFile(cut, whole.read(40)));
        QVERIFY(!CWaveIo::isCanonicalWave(QFile::encodeName(cut).constData()));
    }

    void shouldTellWhatKeepsASourceOut()
    {
        long long ms = -1;
        QCOMPARE(CWaveIo::checkSource(tw::mp3Fixture(20), &ms), SourceProblem::None);
        QVERIFY2(qAbs(ms - 20000) < 100, qPrintable(QString::number(ms)));
        QCOMPARE(CWaveIo::checkSource(m_dir.filePath("gone.mp3"), &ms), SourceProblem::Unreadable);
        QCOMPARE(ms, 0LL);
        QCOMPARE(CWaveIo::checkSource(m_dir.path()), SourceProblem::Unreadable); // a folder
        QCOMPARE(CWaveIo::checkSource(tw::textFixture()), SourceProblem::NotMedia);
        QCOMPARE(CWaveIo::checkSource(tw::emptyFixture()), SourceProblem::NotMedia);
        QCOMPARE(CWaveIo::checkSource(tw::silentVideoFixture(2)), SourceProblem::NoSound);
        QCOMPARE(CWaveIo::checkSource(tw::mp3Fixture(3), &ms), SourceProblem::TooShort);
        QVERIFY(ms > 2900 && ms < 3100);
        // Just long enough: five seconds of sound.
        QCOMPARE(CWaveIo::checkSource(tw::wavFixture(5)), SourceProblem::None);
    }

    void shouldRefuseAPipeWithoutWaitingForIt()
    {
        tw::PipeRescue pipe(m_dir.filePath("pipe.mp3"), 10000);
        QVERIFY(pipe.made());
        QCOMPARE(CWaveIo::checkSource(m_dir.filePath("pipe.mp3")), SourceProblem::NotAFile);
        QVERIFY2(!pipe.finish(), "the check waited for a writer");
        QCOMPARE(CWaveIo::checkSource("/dev/zero"), SourceProblem::NotAFile);
    }

    void shouldRefuseASourceLongerThanItsWaveHoldsBeforeWritingIt()
    {
        // Silence in a sparse file, its header saying how long: no disk
        // space taken, and nothing read but the header.
        const QString wav = m_dir.filePath("hours.wav");
        QVERIFY(tw::writeWav(wav, 44100, 2, 16, 44100, [](qint64, int) { return 0; }));
        auto lasting = [&wav](long long ms) {
            const qint64 bytes = ms * 441 / 10 * 4;
            QFile file(wav);
            QByteArray size;
            for (int i = 0; i < 4; ++i)
                size.append(char(quint32(bytes) >> (8 * i) & 0xFF));
            return file.open(QIODevice::ReadWrite) && file.seek(40) && file.write(size) == 4 &&
                   file.resize(44 + bytes);
        };
        const QStringList before = QDir(programCacheDir()).entryList(QDir::Files | QDir::Hidden);
        long long ms = 0;
        QVERIFY(lasting(210LL * 60 * 1000));
        QCOMPARE(CWaveIo::checkSource(wav, &ms), SourceProblem::TooLong);
        QCOMPARE(ms, 210LL * 60 * 1000);
        // Just within: all that the editor's WAV holds.
        QVERIFY(kEditorMaxSoundMs > 3 * 3600 * 1000 && kEditorMaxSoundMs < 210LL * 60 * 1000);
        QVERIFY(lasting(kEditorMaxSoundMs));
        QCOMPARE(CWaveIo::checkSource(wav, &ms), SourceProblem::None);
        QCOMPARE(QDir(programCacheDir()).entryList(QDir::Files | QDir::Hidden), before);
        QVERIFY(QFile::remove(wav));
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
        const QByteArray decoded = fx::sha1(wavBefore);

        const QString m4r = m_dir.filePath("Export Test.m4r");
        QSignalSpy paused(&playback, &CWavePlayback::onPause);
        bool ringtoneExistedAtPause = true;
        connect(&playback, &CWavePlayback::onPause, this,
                [&] { ringtoneExistedAtPause = QFile::exists(m4r); });
        QTest::qWait(2);
        const int rc = ringtone.exportTo(m4r);
        QCOMPARE(rc, 0); // the WAV's WaveHelperInit, opened again
        QCOMPARE(paused.count(), 1);
        QVERIFY(!ringtoneExistedAtPause);
        QVERIFY(QFile::exists(m4r));
        QVERIFY(std::fabs(probeDuration(m4r) * 1000.0 - 10000.0) <= kAacFrameMs);
        QVERIFY(QFile::exists(ringtoneDir() + "/Export Test.m4r"));
        // The same temporary WAV, open again, the selection kept, the
        // effects back to their defaults until they are set again.
        QCOMPARE(io.getWavePath(), wavBefore);
        QVERIFY(isTempWave(io.getWavePath()));
        QVERIFY(playback.isOpen());
        QCOMPARE(model.beginTime(), 2000LL);
        QCOMPARE(model.endTime(), 12000LL);
        QCOMPARE(playback.volume(), 100);
        QCOMPARE(playback.record().fadeInStart, -1);
        // The fades and volume went into the ringtone only: the WAV is as
        // it was decoded, so nothing had to be decoded again.
        QCOMPARE(fx::sha1(wavBefore), decoded);
    }
};

TW_TEST_MAIN(TestWaveIo)
#include "tst_waveio.moc"
