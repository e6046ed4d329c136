// The editor's model: loading, the selection rules, volume, zoom, scroll bar,
// effects and playback driven through the real WAV engine (SDL's dummy
// driver consumes the audio in real time).

#include "wavewndfixture.h"

#include "engine/timeconvert.h"

#include <QFileInfo>
#include <QSignalSpy>
#include <QTest>

#include <memory>

namespace {

QTime ms(long long t)
{
    return CTimeConvert::longToTime(long(t));
}

} // namespace

class TestWaveWndModel : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir dir;
    // 32 kHz: whole frames per millisecond keep engine positions exact, and
    // the dummy audio driver closes faster than at lower rates.
    QString sixty;     // 60 s, 16-bit mono
    QString threeSec;  // 3 s, 16-bit stereo
    QString stereo44k; // 30 s, 16-bit stereo, 44100 Hz

    std::unique_ptr<CWaveWnd> loaded(const QString& path, int width = 400)
    {
        auto w = std::make_unique<CWaveWnd>();
        w->resize(width, 200);
        if (twed::load(*w, path) != 0)
            return nullptr;
        return w;
    }

private slots:
    void initTestCase()
    {
        if (qEnvironmentVariableIsEmpty("SDL_VIDEODRIVER"))
            qputenv("SDL_VIDEODRIVER", "dummy");
        QVERIFY(dir.isValid());
        sixty = twed::makeSine(dir, "sixty.wav", 32000, 1, 16, 60);
        threeSec = twed::makeSine(dir, "three.wav", 32000, 2, 16, 3);
        stereo44k = twed::makeSine(dir, "stereo44k.wav", 44100, 2, 16, 30);
        QVERIFY(!sixty.isEmpty() && !threeSec.isEmpty() && !stereo44k.isEmpty());
    }

    void shouldStartWithDescribedDefaults()
    {
        CWaveWnd w;
        QCOMPARE(w.model().playPos(), 0LL);
        QCOMPARE(w.model().beginTime(), 0LL);
        QCOMPARE(w.model().endTime(), 144000000LL);
        QCOMPARE(w.model().msPerPixel(), 100.0f);
        QCOMPARE(w.model().zoomFactor(), 1.0f);
        QCOMPARE(w.playback().getFadeInLength(), 5);
        QCOMPARE(w.playback().getFadeOutLength(), 5);
        QCOMPARE(w.getLength(), 0);
        QCOMPARE(w.getPageLength(), 100);
        QCOMPARE(w.getMaxZoom(), 5.0f);
        QCOMPARE(w.getMinZoom(), 1.0f);
        QVERIFY(w.acceptDrops());
        QVERIFY(!w.scrollBarWidget()->isVisibleTo(&w));
        QCOMPARE(w.contentsMargins(), QMargins(0, 0, 0, 0));
    }

    void shouldSelectFirstFortySecondsOrWholeSong_data()
    {
        QTest::addColumn<int>("rate");
        QTest::addColumn<int>("channels");
        QTest::addColumn<double>("seconds");
        QTest::addColumn<long long>("end");
        QTest::newRow("30 s mono 8 kHz") << 8000 << 1 << 30.0 << 30000LL;
        QTest::newRow("3 min mono 8 kHz") << 8000 << 1 << 180.0 << 40000LL;
        QTest::newRow("30 s stereo 44.1 kHz") << 44100 << 2 << 30.0 << 30000LL;
        QTest::newRow("40.5 s stereo 22.05 kHz") << 22050 << 2 << 40.5 << 40000LL;
    }
    void shouldSelectFirstFortySecondsOrWholeSong()
    {
        QFETCH(int, rate);
        QFETCH(int, channels);
        QFETCH(double, seconds);
        QFETCH(long long, end);
        const QString path = twed::makeSine(
            dir, QString("load-%1.wav").arg(QTest::currentDataTag()), rate, channels, 16, seconds);
        QVERIFY(!path.isEmpty());

        CWaveWnd w;
        w.resize(500, 200);
        w.io().getNode().strTitle = "Song title";
        QStringList order;
        connect(&w, &CWaveWnd::onStop, this, [&] { order << "onStop"; });
        connect(&w, &CWaveWnd::waveOpened, this, [&] { order << "waveOpened"; });
        connect(&w, &CWaveWnd::selectChange, this, [&] { order << "selectChange"; });
        connect(&w, &CWaveWnd::playPosChange, this, [&] { order << "playPosChange"; });
        QSignalSpy opened(&w, &CWaveWnd::waveOpened);
        QSignalSpy selected(&w, &CWaveWnd::selectChange);
        QSignalSpy pos(&w, &CWaveWnd::playPosChange);

        QCOMPARE(twed::load(w, path), 0);

        QCOMPARE(order, QStringList({"onStop", "waveOpened", "selectChange", "playPosChange"}));
        QCOMPARE(opened.count(), 1);
        QCOMPARE(opened.at(0).at(0).value<CRingToneNode>().strTitle, QString("Song title"));
        QCOMPARE(selected.at(0).at(0).toTime(), ms(0));
        QCOMPARE(selected.at(0).at(1).toTime(), ms(end));
        QCOMPARE(pos.at(0).at(0).toLongLong(), 0LL);
        QCOMPARE(w.model().beginTime(), 0LL);
        QCOMPARE(w.model().endTime(), end);
        QCOMPARE(w.getEndTime(), ms(end));
        QVERIFY(qAbs(w.model().maxTime() - seconds * 1000) < 1.0);
        QCOMPARE(w.getMaxTime(), ms(static_cast<long long>(w.model().maxTime())));
        // At zoom 1 one pixel is 100 ms.
        QVERIFY(qAbs(w.getLength() - int(seconds * 10)) <= 1);
        QCOMPARE(w.getPageLength(), 500);
        QVERIFY(w.scrollBarWidget()->isVisibleTo(&w));
    }

    void shouldFailOnFileWithoutRiffHeaderWithoutOpeningIt()
    {
        const QString path = dir.filePath("not-a-wave.wav");
        QFile f(path);
        QVERIFY(f.open(QIODevice::WriteOnly));
        f.write(QByteArray(100000, 'x'));
        f.close();

        CWaveWnd w;
        QSignalSpy opened(&w, &CWaveWnd::waveOpened);
        QSignalSpy selected(&w, &CWaveWnd::selectChange);
        QTest::ignoreMessage(QtDebugMsg, "WaveHelperInit failed");
        QCOMPARE(twed::load(w, path), -2);
        QCOMPARE(opened.count(), 0);
        QCOMPARE(selected.count(), 0);
        QCOMPARE(w.getPageLength(), 100);
        QCOMPARE(QFileInfo(path).size(), 100000);
    }

    void shouldApplySelectionRules_data()
    {
        QTest::addColumn<QString>("file");
        QTest::addColumn<long long>("begin0");
        QTest::addColumn<long long>("end0");
        QTest::addColumn<bool>("setBegin");
        QTest::addColumn<long long>("t");
        QTest::addColumn<long long>("begin");
        QTest::addColumn<long long>("end");
        // setEndTime holds the 5 s minimum by moving the end.
        QTest::newRow("end 3000 from 0")
            << "sixty" << 0LL << 40000LL << false << 3000LL << 0LL << 5000LL;
        // Moving the begin right drags the end, limited to the song's end.
        QTest::newRow("begin 38000")
            << "sixty" << 0LL << 40000LL << true << 38000LL << 38000LL << 60000LL;
        QTest::newRow("begin 58000, end 60000")
            << "sixty" << 0LL << 60000LL << true << 58000LL << 55000LL << 60000LL;
        QTest::newRow("begin right inside")
            << "sixty" << 10000LL << 20000LL << true << 15000LL << 15000LL << 25000LL;
        // Moving the begin left leaves the end alone.
        QTest::newRow("begin left")
            << "sixty" << 20000LL << 40000LL << true << 10000LL << 10000LL << 40000LL;
        // The end passing the begin drags it along, keeping the length.
        QTest::newRow("end before begin")
            << "sixty" << 20000LL << 40000LL << false << 30000LL << 20000LL << 30000LL;
        QTest::newRow("end passes begin")
            << "sixty" << 20000LL << 30000LL << false << 15000LL << 5000LL << 15000LL;
        QTest::newRow("end passes begin, floor 0")
            << "sixty" << 20000LL << 40000LL << false << 10000LL << 0LL << 10000LL;
        QTest::newRow("end too near begin")
            << "sixty" << 10000LL << 40000LL << false << 12000LL << 10000LL << 15000LL;
        // No upper limit on the end.
        QTest::newRow("end past song")
            << "sixty" << 0LL << 40000LL << false << 90000LL << 0LL << 90000LL;
        // No lower limit on the begin: a 3 s song cannot hold 5 s.
        QTest::newRow("begin goes negative")
            << "three" << 0LL << 3000LL << true << 1000LL << -2000LL << 3000LL;
    }
    void shouldApplySelectionRules()
    {
        QFETCH(QString, file);
        QFETCH(long long, begin0);
        QFETCH(long long, end0);
        QFETCH(bool, setBegin);
        QFETCH(long long, t);
        QFETCH(long long, begin);
        QFETCH(long long, end);
        auto w = loaded(file == "sixty" ? sixty : threeSec);
        QVERIFY(w);
        w->model().setSelection(begin0, w->model().endTime());
        w->model().setSelection(w->model().beginTime(), end0);
        QSignalSpy selected(w.get(), &CWaveWnd::selectChange);

        if (setBegin)
            w->setBeginTime(t);
        else
            w->setEndTime(t);

        QCOMPARE(w->model().beginTime(), begin);
        QCOMPARE(w->model().endTime(), end);
        QCOMPARE(selected.count(), 1);
        QCOMPARE(selected.at(0).at(0).toTime(), ms(begin));
        QCOMPARE(selected.at(0).at(1).toTime(), ms(end));
    }

    void shouldSetTimesFromClockTimesAndPlayPosition()
    {
        auto w = loaded(sixty);
        QVERIFY(w);
        w->setBeginTime(QTime(0, 0, 12, 500));
        QCOMPARE(w->model().beginTime(), 12500LL);
        QCOMPARE(w->model().endTime(), 52500LL);
        w->setEndTime(QTime(0, 0, 45));
        QCOMPARE(w->model().endTime(), 45000LL);

        w->model().setPlayPos(20000);
        w->setBeginTime();
        QCOMPARE(w->model().beginTime(), 20000LL);
        w->model().setPlayPos(31000);
        w->setEndTime();
        QCOMPARE(w->model().endTime(), 31000LL);
        QCOMPARE(w->getBeginTime(), QTime(0, 0, 20));
        QCOMPARE(w->getEndTime(), QTime(0, 0, 31));
    }

    void shouldStepVolumeAsymmetrically_data()
    {
        QTest::addColumn<int>("start");
        QTest::addColumn<bool>("up");
        QTest::addColumn<int>("result");
        QTest::newRow("250 up") << 250 << true << 256;
        QTest::newRow("246 up") << 246 << true << 256;
        QTest::newRow("245 up") << 245 << true << 255;
        QTest::newRow("100 up") << 100 << true << 110;
        QTest::newRow("256 up") << 256 << true << 256;
        QTest::newRow("5 down") << 5 << false << 0;
        QTest::newRow("10 down") << 10 << false << 0;
        QTest::newRow("11 down") << 11 << false << 1;
        QTest::newRow("100 down") << 100 << false << 90;
    }
    void shouldStepVolumeAsymmetrically()
    {
        QFETCH(int, start);
        QFETCH(bool, up);
        QFETCH(int, result);
        auto w = loaded(sixty);
        QVERIFY(w);
        QSignalSpy changed(w.get(), &CWaveWnd::volumeChange);
        w->setVolume(start);
        QCOMPARE(changed.count(), 0);
        if (up)
            w->volumeAdd();
        else
            w->volumeReduce();
        QCOMPARE(w->playback().record().volume, result);
        QCOMPARE(changed.count(), 1);
        QCOMPARE(changed.at(0).at(0).toInt(), result);
    }

    void shouldClampVolumeWithoutSignal_data()
    {
        QTest::addColumn<int>("value");
        QTest::addColumn<int>("stored");
        QTest::newRow("above") << 300 << 256;
        QTest::newRow("below") << -5 << 0;
        QTest::newRow("inside") << 180 << 180;
    }
    void shouldClampVolumeWithoutSignal()
    {
        QFETCH(int, value);
        QFETCH(int, stored);
        auto w = loaded(sixty);
        QVERIFY(w);
        QCOMPARE(w->playback().record().volume, 100);
        QSignalSpy changed(w.get(), &CWaveWnd::volumeChange);
        w->setVolume(value);
        QCOMPARE(w->playback().record().volume, stored);
        QCOMPARE(changed.count(), 0);
    }

    void shouldClampZoomBetweenFitAndFive_data()
    {
        QTest::addColumn<float>("from");
        QTest::addColumn<bool>("in");
        QTest::addColumn<float>("to");
        QTest::newRow("in at 5.0 stays") << 5.0f << true << 5.0f;
        QTest::newRow("in at 4.5 reaches 5") << 4.5f << true << 5.0f;
        QTest::newRow("in at 1") << 1.0f << true << 1.5f;
        QTest::newRow("out at 2") << 2.0f << false << 1.5f;
        // 60 s in 400 px fits at zoom 400 / 600.
        QTest::newRow("out at 1 clamps to fit") << 1.0f << false << 400.0f / 600.0f;
    }
    void shouldClampZoomBetweenFitAndFive()
    {
        QFETCH(float, from);
        QFETCH(bool, in);
        QFETCH(float, to);
        auto w = loaded(sixty, 400);
        QVERIFY(w);
        w->zoom(from);
        QSignalSpy zoomed(w.get(), &CWaveWnd::zoomChange);
        if (in)
            w->zoomIn();
        else
            w->zoomOut();
        QCOMPARE(zoomed.count(), 1);
        QVERIFY(qFuzzyCompare(zoomed.at(0).at(0).toFloat(), to));
        QVERIFY(qFuzzyCompare(w->model().zoomFactor(), to));
        QVERIFY(qFuzzyCompare(w->model().msPerPixel(), 100.0f / to));
        // 60 s: the whole wave is 600 px at zoom 1.
        QVERIFY(qAbs(w->getLength() - int(600 * to)) <= 1);
    }

    void shouldNotZoomOutBelowFit()
    {
        auto w = loaded(sixty, 400);
        QVERIFY(w);
        w->zoom(0.01f);
        QVERIFY(qFuzzyCompare(w->model().zoomFactor(), w->getMinZoom()));
        QVERIFY(qAbs(w->getLength() - 400) <= 1);
        QSignalSpy zoomed(w.get(), &CWaveWnd::zoomChange);
        w->zoomOut(); // at the minimum: clamps back to it
        w->zoom(0.5f);
        QCOMPARE(zoomed.count(), 2);
        QVERIFY(qFuzzyCompare(w->model().zoomFactor(), w->getMinZoom()));

        // A short song fits at zoom 1 already: the minimum never exceeds 1.
        auto shortSong = loaded(threeSec, 400);
        QVERIFY(shortSong);
        QCOMPARE(shortSong->getMinZoom(), 1.0f);
        shortSong->zoom(0.5f);
        QCOMPARE(shortSong->model().zoomFactor(), 1.0f);
    }

    void shouldKeepLeftEdgeTimeWhenZooming()
    {
        auto w = loaded(sixty, 200);
        QVERIFY(w);
        QScrollBar* bar = w->scrollBarWidget();
        QCOMPARE(bar->maximum(), 600 - 200);
        bar->setValue(300); // 30 s at the left edge
        QCOMPARE(w->model().scrollX(), 300);
        w->zoom(2.0f);
        QCOMPARE(w->model().scrollX(), 600);
        QCOMPARE(bar->value(), 600);
        QCOMPARE(bar->maximum(), 1200 - 200);
        QCOMPARE(bar->pageStep(), 200);
        QCOMPARE(bar->singleStep(), 1);
        // Back to 1: the 30 s edge survives even though the old value was
        // beyond the new range.
        w->zoom(1.0f);
        QCOMPARE(w->model().scrollX(), 300);
        QCOMPARE(bar->value(), 300);
        // The bar lies over the bottom edge, full width.
        QCOMPARE(bar->geometry().bottom(), w->height() - 1);
        QCOMPARE(bar->width(), w->width());
    }

    void shouldSetFadesOnEngineOnlyWhenAsked()
    {
        auto w = loaded(sixty);
        QVERIFY(w);
        const int bytesPerSecond = 2 * 32000;
        w->model().setSelection(12500, w->model().endTime());
        w->model().setSelection(w->model().beginTime(), 40900);
        w->enableFadeIn(true);
        w->enableFadeOut(true);
        w->fadeIn(3);
        w->fadeOut(4);
        w->applyEffect(true);
        const tagWaveInfo& info = w->playback().record();
        // Whole seconds: begin 12.5 s fades from second 12.
        QCOMPARE(info.fadeInStart, bytesPerSecond * 12 + 44);
        QCOMPARE(info.fadeInEnd, bytesPerSecond * 15 + 44);
        // End 40.9 s, four seconds: from second 36, one second longer.
        QCOMPARE(info.fadeOutStart, bytesPerSecond * 36 + 44);
        QCOMPARE(info.fadeOutEnd, bytesPerSecond * 41 + 44);

        w->applyEffect(false);
        QCOMPARE(info.fadeInStart, -1);
        QCOMPARE(info.fadeOutStart, -1);

        w->enableFadeIn(false);
        w->applyEffect(true);
        QCOMPARE(info.fadeInStart, -1);
        QCOMPARE(info.fadeOutStart, bytesPerSecond * 36 + 44);
    }

    void shouldSetMouseModesFromSlots()
    {
        QWidget parent;
        parent.resize(400, 300);
        CWaveWnd w(&parent);
        parent.show();
        QVERIFY(QTest::qWaitForWindowExposed(&parent));
        QVERIFY(w.hasMouseTracking());
        w.select();
        QCOMPARE(w.model().mouseMode(), 1);
        w.move();
        QCOMPARE(w.model().mouseMode(), 2);
        QVERIFY(!w.hasMouseTracking());
        w.adjust();
        QCOMPARE(w.model().mouseMode(), 4);
        // Geometry moves still work despite the move() slot.
        w.move(QPoint(3, 4));
        QCOMPARE(w.pos(), QPoint(3, 4));
    }

    void shouldBeHarmlessWithoutWave()
    {
        CWaveWnd w;
        w.resize(300, 150);
        QSignalSpy stopped(&w, &CWaveWnd::onStop);
        w.play();
        w.pause();
        w.preview();
        w.zoomIn();
        w.zoomOut();
        w.volumeAdd();
        w.stop();
        QCOMPARE(stopped.count(), 1);
        QVERIFY(!w.grab().isNull());
    }

    void shouldPlayPauseAndStopWithSignals()
    {
        auto w = loaded(sixty);
        QVERIFY(w);
        QSignalSpy played(w.get(), &CWaveWnd::onPlay);
        QSignalSpy paused(w.get(), &CWaveWnd::onPause);
        QSignalSpy stopped(w.get(), &CWaveWnd::onStop);
        QSignalSpy pos(w.get(), &CWaveWnd::playPosChange);

        w->play();
        QCOMPARE(played.count(), 1);
        QCOMPARE(played.at(0).at(0).toLongLong(), 0LL);
        QCOMPARE(played.at(0).at(1).toBool(), false);
        QCOMPARE(WaveHelperGetState(&w->playback().record()), 1);
        QVERIFY(w->playback().isTimerActive());

        // The timer reports the position as the engine advances.
        QTRY_VERIFY_WITH_TIMEOUT(w->model().playPos() >= 300, 5000);
        QVERIFY(pos.count() >= 2);
        long long last = -1;
        for (const auto& args : pos) {
            QVERIFY(args.at(0).toLongLong() >= last);
            last = args.at(0).toLongLong();
        }

        w->pause();
        QCOMPARE(paused.count(), 1);
        QCOMPARE(paused.at(0).at(0).toBool(), false);
        QCOMPARE(WaveHelperGetState(&w->playback().record()), 2);
        QVERIFY(!w->playback().isTimerActive());
        const long long at = w->model().playPos();

        // Play resumes from the play position.
        QElapsedTimer resumed;
        resumed.start();
        w->play();
        QCOMPARE(played.count(), 2);
        QCOMPARE(played.at(1).at(0).toLongLong(), at);
        const long long resumedAt = WaveHelperGetPos(&w->playback().record());
        QVERIFY2(resumedAt >= at, qPrintable(twed::positionText(resumedAt, resumed)));
        QVERIFY2(twed::withinRealTime(resumedAt, at, resumed),
                 qPrintable(twed::positionText(resumedAt, resumed)));

        // Play while playing pauses instead.
        w->play();
        QCOMPARE(played.count(), 2);
        QCOMPARE(paused.count(), 2);
        QCOMPARE(WaveHelperGetState(&w->playback().record()), 2);

        w->stop();
        QCOMPARE(stopped.count(), 1);
        QVERIFY(!w->playback().isTimerActive());
        QVERIFY(w->playback().record().peakTable == nullptr);
        QCOMPARE(w->getPageLength(), 100);
    }

    void shouldPausePreviewAtSelectionEnd()
    {
        auto w = loaded(sixty);
        QVERIFY(w);
        // A short selection, as a mouse-drawn one can be.
        w->model().setSelection(2000, w->model().endTime());
        w->model().setSelection(w->model().beginTime(), 2800);
        QSignalSpy played(w.get(), &CWaveWnd::onPlay);
        QSignalSpy paused(w.get(), &CWaveWnd::onPause);

        QElapsedTimer started;
        started.start();
        w->preview();
        QVERIFY(w->playback().isPreview());
        QCOMPARE(played.count(), 1);
        QCOMPARE(played.at(0).at(1).toBool(), true);
        const long long startedAt = WaveHelperGetPos(&w->playback().record());
        QVERIFY2(startedAt >= 2000, qPrintable(twed::positionText(startedAt, started)));
        QVERIFY2(twed::withinRealTime(startedAt, 2000, started),
                 qPrintable(twed::positionText(startedAt, started)));

        QTRY_COMPARE_WITH_TIMEOUT(paused.count(), 1, 5000);
        QCOMPARE(paused.at(0).at(0).toBool(), true);
        QCOMPARE(w->model().playPos(), 2800LL);
        QVERIFY(!w->playback().isPreview());
        QCOMPARE(WaveHelperGetState(&w->playback().record()), 2);
        QCOMPARE(WaveHelperGetPos(&w->playback().record()), 2800LL);
        QVERIFY(!w->playback().isTimerActive());
    }

    void shouldToggleOrRestartPreview()
    {
        auto w = loaded(sixty);
        QVERIFY(w);
        w->model().setSelection(10000, w->model().endTime());
        w->model().setSelection(w->model().beginTime(), 20000);
        QSignalSpy paused(w.get(), &CWaveWnd::onPause);
        w->preview();
        QTRY_VERIFY_WITH_TIMEOUT(w->model().playPos() >= 10100, 5000);
        // Inside the selection a second preview() pauses ...
        w->preview();
        QCOMPARE(paused.count(), 1);
        QCOMPARE(WaveHelperGetState(&w->playback().record()), 2);
        const long long at = WaveHelperGetPos(&w->playback().record());
        // ... and a third resumes where it was.
        w->preview();
        QCOMPARE(WaveHelperGetState(&w->playback().record()), 1);
        QVERIFY(WaveHelperGetPos(&w->playback().record()) >= at);
        QVERIFY(w->playback().isPreview());

        // play() leaves preview and restarts the song from its beginning.
        QElapsedTimer restarted;
        restarted.start();
        w->play();
        QVERIFY(!w->playback().isPreview());
        QCOMPARE(WaveHelperGetState(&w->playback().record()), 1);
        const long long restartedAt = WaveHelperGetPos(&w->playback().record());
        QVERIFY2(restartedAt >= 0, qPrintable(twed::positionText(restartedAt, restarted)));
        QVERIFY2(twed::withinRealTime(restartedAt, 0, restarted),
                 qPrintable(twed::positionText(restartedAt, restarted)));
        QTRY_VERIFY_WITH_TIMEOUT(w->model().playPos() < 1000, 2000);
    }

    void shouldRewindAtSongEnd()
    {
        auto w = loaded(threeSec);
        QVERIFY(w);
        w->model().setPlayPos(2500);
        QSignalSpy paused(w.get(), &CWaveWnd::onPause);
        w->play();
        QTRY_COMPARE_WITH_TIMEOUT(paused.count(), 1, 5000);
        QCOMPARE(paused.at(0).at(0).toBool(), false);
        QCOMPARE(w->model().playPos(), 0LL);
        QCOMPARE(WaveHelperGetPos(&w->playback().record()), 0LL);
        QVERIFY(!w->playback().isTimerActive());
    }

    void shouldPageForwardWhenCursorLeavesView()
    {
        auto w = loaded(sixty, 200);
        QVERIFY(w);
        w->zoom(5.0f); // 20 ms per pixel: a page is 4 s
        QCOMPARE(w->model().scrollX(), 0);
        w->model().setPlayPos(3900);
        w->play();
        QTRY_COMPARE_WITH_TIMEOUT(w->model().scrollX(), 200, 3000);
        QCOMPARE(w->scrollBarWidget()->value(), 200);
        w->pause();
    }

    void shouldEmitStopWhenClosing()
    {
        auto w = loaded(sixty);
        QVERIFY(w);
        QSignalSpy stopped(w.get(), &CWaveWnd::onStop);
        w->closeWave();
        QCOMPARE(stopped.count(), 1);
        QVERIFY(w->playback().record().peakTable == nullptr);
        // A new load works after closing.
        QCOMPARE(twed::load(*w, stereo44k), 0);
        QCOMPARE(w->playback().record().formatKey, 18u);
    }
};

TW_TEST_MAIN(TestWaveWndModel)
#include "tst_wavewnd_model.moc"
