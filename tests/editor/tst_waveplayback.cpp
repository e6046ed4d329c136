// The editor's playback on its own: no widget, a CWaveModel and the real WAV
// engine (SDL's dummy driver plays in real time). Opening and closing,
// volume steps and effects on the engine record, play / pause / preview,
// the timer's end-of-selection pause, rewind and paging, and a dropped play
// cursor while playing.

#include "editor/spanrender.h"
#include "editor/wavemodel.h"
#include "editor/waveplayback.h"
#include "wavewndfixture.h"

#include <QSignalSpy>
#include <QTest>

class TestWavePlayback : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir dir;
    QString sixty; // 60 s, 16-bit mono, 32 kHz
    QString three; // 3 s, 16-bit stereo, 32 kHz

    // Opens `path` the way the editor loads a song.
    static bool open(CWaveModel& model, CWavePlayback& playback, const QString& path, int width)
    {
        model.setViewWidth(width);
        model.reset();
        if (playback.open(path) != 0)
            return false;
        model.load(playback.record().frameCount, playback.record().sampleRate);
        return true;
    }

private slots:
    void initTestCase()
    {
        QVERIFY(dir.isValid());
        sixty = twed::makeSine(dir, "sixty.wav", 32000, 1, 16, 60);
        three = twed::makeSine(dir, "three.wav", 32000, 2, 16, 3);
        QVERIFY(!sixty.isEmpty() && !three.isEmpty());
    }

    void shouldOpenAndCloseTheEngineAndTellTheModel()
    {
        CWaveModel model;
        CWavePlayback playback(model);
        QVERIFY(!playback.isOpen());
        QSignalSpy stopped(&playback, &CWavePlayback::onStop);
        QVERIFY(open(model, playback, sixty, 400));
        QVERIFY(playback.isOpen());
        QCOMPARE(model.frameCount(), 60u * 32000u);
        QCOMPARE(playback.volume(), 100);
        QCOMPARE(playback.engineState(), 0);
        playback.close();
        QCOMPARE(stopped.count(), 1);
        QVERIFY(!playback.isOpen());
        QCOMPARE(model.frameCount(), 0u);
        QCOMPARE(model.minZoom(), 1.0f); // nothing left to fit
        const QString notWave = dir.filePath("text.wav");
        QVERIFY(tw::writeWav(notWave, 8000, 1, 8, 10, [](qint64, int) { return 0; }));
        QCOMPARE(playback.open(notWave), -4); // too short
        QVERIFY(!playback.isOpen());
    }

    void shouldStepVolumeAndSignalOnlyTheSteps()
    {
        CWaveModel model;
        CWavePlayback playback(model);
        QVERIFY(open(model, playback, sixty, 400));
        QSignalSpy changed(&playback, &CWavePlayback::volumeChange);
        playback.setVolume(300);
        QCOMPARE(playback.volume(), 256);
        playback.setVolume(-3);
        QCOMPARE(playback.volume(), 0);
        QCOMPARE(changed.count(), 0);
        playback.setVolume(250);
        playback.volumeAdd();
        QCOMPARE(playback.volume(), 256);
        playback.setVolume(5);
        playback.volumeReduce();
        QCOMPARE(playback.volume(), 0);
        playback.setVolume(11);
        playback.volumeReduce();
        QCOMPARE(playback.volume(), 1);
        QCOMPARE(changed.count(), 3);
        QCOMPARE(changed.at(2).at(0).toInt(), 1);
        QCOMPARE(playback.record().volume, 1);
    }

    void shouldPutTheFadesOnTheEngineInWholeSeconds()
    {
        CWaveModel model;
        CWavePlayback playback(model);
        QVERIFY(open(model, playback, sixty, 400));
        model.setSelection(12500, 40900);
        playback.setFadeInLength(3);
        playback.setFadeOutLength(4);
        playback.applyEffect(true); // neither fade enabled yet
        QCOMPARE(playback.record().fadeInStart, -1);
        QCOMPARE(playback.record().fadeOutStart, -1);
        playback.enableFadeIn(true);
        playback.enableFadeOut(true);
        QVERIFY(playback.isFadeInOn() && playback.isFadeOutOn());
        playback.applyEffect(true);
        const int bytesPerSecond = 2 * 32000;
        QCOMPARE(playback.record().fadeInStart, 12 * bytesPerSecond + 44);
        QCOMPARE(playback.record().fadeInEnd, 15 * bytesPerSecond + 44);
        QCOMPARE(playback.record().fadeOutStart, 36 * bytesPerSecond + 44);
        QCOMPARE(playback.record().fadeOutEnd, 41 * bytesPerSecond + 44); // a second longer
        playback.applyEffect(false);
        QCOMPARE(playback.record().fadeInStart, -1);
        QCOMPARE(playback.record().fadeOutEnd, -1);
    }

    void shouldPlayPauseAndToggle()
    {
        CWaveModel model;
        CWavePlayback playback(model);
        QVERIFY(open(model, playback, sixty, 400));
        QSignalSpy played(&playback, &CWavePlayback::onPlay);
        QSignalSpy paused(&playback, &CWavePlayback::onPause);
        model.setPlayPos(5000);
        QElapsedTimer started;
        started.start();
        playback.play();
        QCOMPARE(played.count(), 1);
        QCOMPARE(played.at(0).at(0).toLongLong(), 5000LL);
        QCOMPARE(played.at(0).at(1).toBool(), false);
        QVERIFY(playback.isTimerActive());
        const long long at = playback.enginePos();
        QVERIFY2(at >= 5000, qPrintable(twed::positionText(at, started)));
        QVERIFY2(twed::withinRealTime(at, 5000, started),
                 qPrintable(twed::positionText(at, started)));
        QTRY_VERIFY_WITH_TIMEOUT(model.playPos() > 5100, 5000);
        // Playing again pauses.
        playback.play();
        QCOMPARE(paused.count(), 1);
        QCOMPARE(playback.engineState(), 2);
        QVERIFY(!playback.isTimerActive());
        playback.stop();
        QVERIFY(!playback.isOpen());
    }

    void shouldPausePreviewAtTheSelectionsEnd()
    {
        CWaveModel model;
        CWavePlayback playback(model);
        QVERIFY(open(model, playback, sixty, 400));
        model.setSelection(2000, 2800);
        QSignalSpy paused(&playback, &CWavePlayback::onPause);
        playback.preview();
        QVERIFY(playback.isPreview());
        QTRY_COMPARE_WITH_TIMEOUT(paused.count(), 1, 5000);
        QCOMPARE(paused.at(0).at(0).toBool(), true);
        QVERIFY(!playback.isPreview());
        QCOMPARE(model.playPos(), 2800LL);
        QCOMPARE(playback.enginePos(), 2800LL);
        QCOMPARE(playback.engineState(), 2);
    }

    void shouldLoopThePreviewUntilPaused()
    {
        CWaveModel model;
        CWavePlayback playback(model);
        QVERIFY(open(model, playback, sixty, 400));
        model.setSelection(2000, 2800);
        playback.setLooping(true);
        QVERIFY(playback.isLooping());
        // Not previewing yet: no loop on the engine.
        QCOMPARE(playback.record().loopEnd, 0L);
        QSignalSpy paused(&playback, &CWavePlayback::onPause);
        playback.preview();
        const tagWaveInfo& wave = playback.record();
        const long frameBytes = wave.frameBytes;
        QCOMPARE(wave.loopStart, long(spanFrameAt(2000, wave.sampleRate) * frameBytes + 44));
        QCOMPARE(wave.loopEnd, long(spanFrameAt(2800, wave.sampleRate) * frameBytes + 44));
        // A new selection is looped at once.
        model.setSelection(3000, 4000);
        playback.selectionChanged();
        QCOMPARE(wave.loopEnd, long(spanFrameAt(4000, wave.sampleRate) * frameBytes + 44));
        model.setSelection(2000, 2800);
        playback.selectionChanged();
        // The position comes back round (sampled, never assumed) and the
        // preview goes on: no pause at the selection's end.
        long long last = 0;
        bool wrapped = false;
        QTRY_VERIFY_WITH_TIMEOUT(
            [&] {
                const long long pos = playback.enginePos();
                wrapped = wrapped || (pos < last && pos >= 2000);
                last = pos;
                return wrapped;
            }(),
            10000);
        QVERIFY(playback.isPreview());
        QCOMPARE(paused.count(), 0);
        QCOMPARE(playback.engineState(), int(WAVE_PLAYING));
        // Play leaves the loop behind.
        playback.pause();
        playback.play();
        QCOMPARE(wave.loopEnd, 0L);
        playback.pause();
    }

    void shouldRewindAtTheSongsEnd()
    {
        CWaveModel model;
        CWavePlayback playback(model);
        QVERIFY(open(model, playback, three, 400));
        model.setPlayPos(2500);
        QSignalSpy paused(&playback, &CWavePlayback::onPause);
        playback.play();
        QTRY_COMPARE_WITH_TIMEOUT(paused.count(), 1, 5000);
        QCOMPARE(model.playPos(), 0LL);
        QCOMPARE(playback.enginePos(), 0LL);
    }

    void shouldPageTheViewForwardWhilePlaying()
    {
        CWaveModel model;
        CWavePlayback playback(model);
        QVERIFY(open(model, playback, sixty, 200));
        model.zoom(5.0f); // 20 ms a pixel: a page is 4 s
        QSignalSpy scrolled(&playback, &CWavePlayback::scrolled);
        model.setPlayPos(3900);
        playback.play();
        QTRY_COMPARE_WITH_TIMEOUT(scrolled.count(), 1, 3000);
        QCOMPARE(scrolled.at(0).at(0).toInt(), 200);
        QCOMPARE(model.scrollX(), 200);
        playback.pause();
    }

    void shouldLeaveTheHeldCursorAloneAndGoOnFromWhereItDrops()
    {
        CWaveModel model;
        CWavePlayback playback(model);
        QVERIFY(open(model, playback, sixty, 600));
        QSignalSpy played(&playback, &CWavePlayback::onPlay);
        playback.play();
        QTRY_VERIFY_WITH_TIMEOUT(model.playPos() >= 500, 5000);
        model.setMouseMode(MM_PLAY_CURSOR);
        const long long held = model.playPos();
        QTRY_VERIFY_WITH_TIMEOUT(playback.enginePos() > held + 150, 5000);
        QCOMPARE(model.playPos(), held);
        model.setPlayPos(30000);
        model.setMouseMode(MM_NONE);
        QElapsedTimer dropped;
        dropped.start();
        playback.cursorMoved();
        QCOMPARE(played.count(), 2);
        QCOMPARE(played.at(1).at(0).toLongLong(), 30000LL);
        QCOMPARE(playback.engineState(), 1);
        const long long at = playback.enginePos();
        QVERIFY2(at >= 30000, qPrintable(twed::positionText(at, dropped)));
        QVERIFY2(twed::withinRealTime(at, 30000, dropped),
                 qPrintable(twed::positionText(at, dropped)));
        // Paused, a drop moves nothing on the engine.
        playback.pause();
        const long long pausedAt = playback.enginePos();
        model.setPlayPos(45000);
        playback.cursorMoved();
        QCOMPARE(played.count(), 2);
        QCOMPARE(playback.enginePos(), pausedAt);
    }

    void shouldSignalAPauseWhenAnExportClosesTheEngine()
    {
        CWaveModel model;
        CWavePlayback playback(model);
        QVERIFY(open(model, playback, sixty, 400));
        model.setSelection(1000, 9000);
        playback.preview();
        QSignalSpy paused(&playback, &CWavePlayback::onPause);
        QSignalSpy stopped(&playback, &CWavePlayback::onStop);
        playback.closeForExport();
        QCOMPARE(paused.count(), 1);
        QCOMPARE(paused.at(0).at(0).toBool(), true);
        QCOMPARE(stopped.count(), 0);
        QVERIFY(!playback.isOpen());
    }
};

TW_TEST_MAIN(TestWavePlayback)
#include "tst_waveplayback.moc"
