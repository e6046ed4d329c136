// The editor's mouse handling: the zones of getAction, hover cursors, drags in
// every mode with their clamps and edge scrolling, play-cursor drags while
// paused and while playing, and the double click. Real WAVs, real engine.

#include "wavewndfixture.h"

#include "engine/timeconvert.h"

#include <QApplication>
#include <QMouseEvent>
#include <QSignalSpy>
#include <QTest>

#include <memory>

namespace {

constexpr int kWaveY = 100; // a row inside the wave area

QTime ms(long long t)
{
    return CTimeConvert::longToTime(long(t));
}

void press(QWidget* w, int x, int y = kWaveY, Qt::MouseButton b = Qt::LeftButton)
{
    QTest::mousePress(w, b, {}, QPoint(x, y));
}

void drag(QWidget* w, int x, int y = kWaveY)
{
    QTest::mouseMove(w, QPoint(x, y));
}

void release(QWidget* w, int x, int y = kWaveY, Qt::MouseButton b = Qt::LeftButton)
{
    QTest::mouseRelease(w, b, {}, QPoint(x, y));
}

// A move without any button, as hovering delivers it.
void hover(QWidget* w, int x, int y)
{
    QMouseEvent e(QEvent::MouseMove, QPointF(x, y), w->mapToGlobal(QPointF(x, y)), Qt::NoButton,
                  Qt::NoButton, Qt::NoModifier);
    QApplication::sendEvent(w, &e);
}

} // namespace

class TestWaveWndMouse : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir dir;
    // 60 s, 16-bit mono, 600 px at zoom 1. 32 kHz: whole frames per
    // millisecond keep engine positions exact, and the dummy audio driver
    // closes faster than at lower rates.
    QString sixty;

    // A shown editor (hover needs mouse tracking) with `path` loaded and the
    // selection begin .. end.
    std::unique_ptr<CWaveWnd> editor(const QString& path, int width, long long begin, long long end)
    {
        auto w = std::make_unique<CWaveWnd>();
        w->resize(width, 200);
        w->show();
        if (!QTest::qWaitForWindowExposed(w.get()) || twed::load(*w, path) != 0)
            return nullptr;
        w->model().setSelection(begin, w->model().endTime());
        w->model().setSelection(w->model().beginTime(), end);
        return w;
    }

private slots:
    void initTestCase()
    {
        if (qEnvironmentVariableIsEmpty("SDL_VIDEODRIVER"))
            qputenv("SDL_VIDEODRIVER", "dummy");
        QVERIFY(dir.isValid());
        sixty = twed::makeSine(dir, "sixty.wav", 32000, 1, 16, 60);
        QVERIFY(!sixty.isEmpty());
    }

    void shouldFindActionZonesInPriorityOrder_data()
    {
        QTest::addColumn<long long>("begin");
        QTest::addColumn<long long>("end");
        QTest::addColumn<long long>("play");
        QTest::addColumn<int>("x");
        QTest::addColumn<int>("y");
        QTest::addColumn<int>("action");
        // Times at zoom 1: pixel = ms / 100.
        QTest::newRow("edges 3 px apart, between")
            << 10000LL << 10300LL << 50000LL << 101 << 100 << 3;
        QTest::newRow("edges 2 px apart, both zones")
            << 10000LL << 10200LL << 50000LL << 101 << 100 << 3;
        QTest::newRow("begin edge") << 10000LL << 20000LL << 50000LL << 99 << 100 << 3;
        QTest::newRow("end edge") << 10000LL << 20000LL << 50000LL << 201 << 100 << 4;
        QTest::newRow("inside") << 10000LL << 20000LL << 50000LL << 150 << 100 << 2;
        QTest::newRow("edges 3 px apart, nearer the end")
            << 10000LL << 10300LL << 50000LL << 103 << 100 << 4;
        QTest::newRow("6 px inside the begin") << 10000LL << 20000LL << 50000LL << 106 << 100 << 3;
        QTest::newRow("7 px inside the begin, inside")
            << 10000LL << 20000LL << 50000LL << 107 << 100 << 2;
        QTest::newRow("6 px left of the begin") << 10000LL << 20000LL << 50000LL << 94 << 100 << 3;
        QTest::newRow("7 px left of the begin, outside")
            << 10000LL << 20000LL << 50000LL << 93 << 100 << 0;
        QTest::newRow("6 px right of the end") << 10000LL << 20000LL << 50000LL << 206 << 100 << 4;
        QTest::newRow("cursor in wave area") << 10000LL << 20000LL << 30000LL << 301 << 100 << 5;
        QTest::newRow("beside cursor") << 10000LL << 20000LL << 30000LL << 302 << 100 << 0;
        QTest::newRow("begin wins over cursor") << 10000LL << 20000LL << 10000LL << 100 << 100 << 3;
        QTest::newRow("ruler, 8 px right of cursor")
            << 10000LL << 20000LL << 30000LL << 308 << 10 << 5;
        QTest::newRow("wave area, 8 px right of cursor")
            << 10000LL << 20000LL << 30000LL << 308 << 100 << 0;
        QTest::newRow("ruler, 10 px right of cursor")
            << 10000LL << 20000LL << 30000LL << 310 << 10 << 0;
        QTest::newRow("ruler, 1 px left of cursor")
            << 10000LL << 20000LL << 30000LL << 299 << 17 << 5;
        QTest::newRow("ruler over the selection")
            << 10000LL << 20000LL << 30000LL << 150 << 17 << 0;
        QTest::newRow("first wave row") << 10000LL << 20000LL << 30000LL << 150 << 18 << 2;
    }
    void shouldFindActionZonesInPriorityOrder()
    {
        QFETCH(long long, begin);
        QFETCH(long long, end);
        QFETCH(long long, play);
        QFETCH(int, x);
        QFETCH(int, y);
        QFETCH(int, action);
        auto w = editor(sixty, 500, begin, end);
        QVERIFY(w);
        w->model().setPlayPos(play);
        QCOMPARE(w->getAction(x, y), action);
    }

    void shouldIgnoreTheBandOverTheScrollBar()
    {
        auto w = editor(sixty, 500, 10000, 20000);
        QVERIFY(w);
        const int limit = w->height() - w->scrollBarWidget()->height() - 4;
        QCOMPARE(w->getAction(150, limit), 2);
        QCOMPARE(w->getAction(150, limit + 1), 0);
        QCOMPARE(w->getAction(100, limit + 1), 0);
    }

    void shouldShowCursorOfWhatAPressWouldGrab_data()
    {
        QTest::addColumn<int>("x");
        QTest::addColumn<int>("y");
        QTest::addColumn<int>("shape");
        QTest::newRow("begin edge") << 100 << 100 << int(Qt::SizeHorCursor);
        QTest::newRow("end edge") << 200 << 100 << int(Qt::SizeHorCursor);
        QTest::newRow("6 px off the begin edge") << 94 << 100 << int(Qt::SizeHorCursor);
        QTest::newRow("6 px off the end edge") << 206 << 100 << int(Qt::SizeHorCursor);
        QTest::newRow("inside") << 150 << 100 << int(Qt::OpenHandCursor);
        QTest::newRow("play cursor") << 300 << 100 << int(Qt::OpenHandCursor);
        QTest::newRow("play cursor in ruler") << 306 << 5 << int(Qt::OpenHandCursor);
        QTest::newRow("elsewhere") << 400 << 100 << int(Qt::ArrowCursor);
    }
    void shouldShowCursorOfWhatAPressWouldGrab()
    {
        QFETCH(int, x);
        QFETCH(int, y);
        QFETCH(int, shape);
        auto w = editor(sixty, 500, 10000, 20000);
        QVERIFY(w);
        w->model().setPlayPos(30000);
        QVERIFY(w->hasMouseTracking());
        w->setCursor(Qt::WaitCursor);
        hover(w.get(), x, y);
        QCOMPARE(int(w->cursor().shape()), shape);
        QCOMPARE(w->model().mouseMode(), 0);
    }

    void shouldMoveThePlayPositionOnAClick_data()
    {
        QTest::addColumn<int>("x");
        QTest::addColumn<int>("y");
        QTest::newRow("on the wave, outside the selection") << 400 << kWaveY;
        QTest::newRow("inside the selection") << 150 << kWaveY;
        QTest::newRow("in the ruler") << 250 << 5;
    }
    void shouldMoveThePlayPositionOnAClick()
    {
        QFETCH(int, x);
        QFETCH(int, y);
        auto w = editor(sixty, 500, 10000, 20000);
        QVERIFY(w);
        w->model().setPlayPos(30000);
        QSignalSpy selected(w.get(), &CWaveWnd::selectChange);
        QSignalSpy pos(w.get(), &CWaveWnd::playPosChange);
        QSignalSpy played(w.get(), &CWaveWnd::onPlay);
        QTest::mousePress(w.get(), Qt::LeftButton, {}, QPoint(x, y));
        QTest::mouseRelease(w.get(), Qt::LeftButton, {}, QPoint(x, y));
        QCOMPARE(w->model().playPos(), x * 100LL);
        QVERIFY(pos.count() >= 1);
        QCOMPARE(pos.last().at(0).toLongLong(), x * 100LL);
        QCOMPARE(WaveHelperGetPos(&w->playback().record()) / 100, static_cast<long long>(x));
        // The selection stays; nothing plays.
        QCOMPARE(w->model().beginTime(), 10000LL);
        QCOMPARE(w->model().endTime(), 20000LL);
        QCOMPARE(selected.count(), 0);
        QCOMPARE(played.count(), 0);
        QCOMPARE(w->model().mouseMode(), 0);
        QVERIFY(w->hasMouseTracking());
    }

    void shouldDrawANewSelectionOnADragFromAnEmptyZone()
    {
        auto w = editor(sixty, 500, 10000, 20000);
        QVERIFY(w);
        w->model().setPlayPos(30000);
        QCOMPARE(w->getAction(400, kWaveY), 0); // right of the cursor, off every zone
        QSignalSpy selected(w.get(), &CWaveWnd::selectChange);
        QSignalSpy gestures(w.get(), &CWaveWnd::gestureFinished);
        press(w.get(), 400);
        // A press alone changes nothing yet: it may still be a click.
        QCOMPARE(w->model().beginTime(), 10000LL);
        QCOMPARE(w->model().endTime(), 20000LL);
        drag(w.get(), 450);
        QCOMPARE(w->model().beginTime(), 40000LL);
        QCOMPARE(w->model().endTime(), 45000LL);
        QCOMPARE(selected.count(), 0); // no signal while drawing
        release(w.get(), 470);
        QCOMPARE(w->model().beginTime(), 40000LL);
        QCOMPARE(w->model().endTime(), 47000LL);
        QCOMPARE(selected.count(), 1);
        QCOMPARE(gestures.count(), 1);
        // The play position stays where it was.
        QCOMPARE(w->model().playPos(), 30000LL);
        QCOMPARE(w->model().mouseMode(), 0);
    }

    void shouldDrawNewSelectionWithoutMinimum_data()
    {
        QTest::addColumn<int>("from");
        QTest::addColumn<int>("to");
        QTest::addColumn<long long>("begin");
        QTest::addColumn<long long>("end");
        QTest::newRow("rightwards, 2 s") << 100 << 120 << 10000LL << 12000LL;
        QTest::newRow("leftwards") << 200 << 150 << 15000LL << 20000LL;
        QTest::newRow("click only") << 250 << 250 << 25000LL << 25000LL;
    }
    void shouldDrawNewSelectionWithoutMinimum()
    {
        QFETCH(int, from);
        QFETCH(int, to);
        QFETCH(long long, begin);
        QFETCH(long long, end);
        auto w = editor(sixty, 500, 0, 40000);
        QVERIFY(w);
        QSignalSpy selected(w.get(), &CWaveWnd::selectChange);
        w->select();
        // The slot's mode takes the press even over the selection's body.
        press(w.get(), from);
        QCOMPARE(w->model().mouseMode(), 1);
        QVERIFY(!w->hasMouseTracking());
        QCOMPARE(w->cursor().shape(), Qt::OpenHandCursor);
        QCOMPARE(w->model().beginTime(), from * 100LL);
        drag(w.get(), (from + to) / 2);
        QCOMPARE(w->model().endTime(), (from + to) / 2 * 100LL);
        QCOMPARE(selected.count(), 0); // no signal while drawing
        release(w.get(), to);
        QCOMPARE(w->model().beginTime(), begin);
        QCOMPARE(w->model().endTime(), end);
        QCOMPARE(selected.count(), 1);
        QCOMPARE(selected.at(0).at(0).toTime(), ms(begin));
        QCOMPARE(selected.at(0).at(1).toTime(), ms(end));
        QCOMPARE(w->model().mouseMode(), 0);
        QVERIFY(w->hasMouseTracking());
    }

    void shouldMoveSelectionByDrag()
    {
        auto w = editor(sixty, 500, 10000, 20000);
        QVERIFY(w);
        QSignalSpy selected(w.get(), &CWaveWnd::selectChange);
        press(w.get(), 150);
        QCOMPARE(w->model().mouseMode(), 2);
        QCOMPARE(w->cursor().shape(), Qt::ClosedHandCursor);
        QVERIFY(!w->hasMouseTracking());
        drag(w.get(), 170);
        QCOMPARE(w->model().beginTime(), 12000LL);
        QCOMPARE(w->model().endTime(), 22000LL);
        QCOMPARE(selected.count(), 1);
        QCOMPARE(selected.at(0).at(0).toTime(), ms(12000));
        QCOMPARE(selected.at(0).at(1).toTime(), ms(22000));
        release(w.get(), 180);
        QCOMPARE(w->model().beginTime(), 13000LL);
        QCOMPARE(w->model().endTime(), 23000LL);
        QCOMPARE(selected.count(), 2);
        QCOMPARE(w->cursor().shape(), Qt::OpenHandCursor);
        QCOMPARE(w->model().mouseMode(), 0);
        QVERIFY(w->hasMouseTracking());
    }

    void shouldStopMovedSelectionAtSongEnds_data()
    {
        QTest::addColumn<long long>("begin0");
        QTest::addColumn<long long>("end0");
        QTest::addColumn<int>("from");
        QTest::addColumn<int>("to");
        QTest::addColumn<long long>("begin");
        QTest::addColumn<long long>("end");
        QTest::newRow("past the end") << 30000LL << 50000LL << 400 << 690 << 40000LL << 60000LL;
        QTest::newRow("past the start") << 10000LL << 30000LL << 200 << 0 << 0LL << 20000LL;
    }
    void shouldStopMovedSelectionAtSongEnds()
    {
        QFETCH(long long, begin0);
        QFETCH(long long, end0);
        QFETCH(int, from);
        QFETCH(int, to);
        QFETCH(long long, begin);
        QFETCH(long long, end);
        auto w = editor(sixty, 700, begin0, end0); // the whole 600 px wave in view
        QVERIFY(w);
        press(w.get(), from);
        QCOMPARE(w->model().mouseMode(), 2);
        drag(w.get(), to);
        QCOMPARE(w->model().beginTime(), begin);
        QCOMPARE(w->model().endTime(), end);
        // Further pulling does not move it past the end either.
        drag(w.get(), to == 0 ? 1 : to - 1);
        drag(w.get(), to);
        QVERIFY(w->model().beginTime() >= 0);
        QVERIFY(w->model().endTime() <= 60000);
        QCOMPARE(w->model().endTime() - w->model().beginTime(), end0 - begin0);
        release(w.get(), to);
    }

    void shouldScrollAlongWhileMovingSelection()
    {
        auto w = editor(sixty, 400, 10000, 35000); // 600 px wave in 400 px
        QVERIFY(w);
        press(w.get(), 200);
        drag(w.get(), 240); // end at 390: not yet past width - 10
        QCOMPARE(w->model().scrollX(), 0);
        drag(w.get(), 250); // end at 400
        QCOMPARE(w->model().endTime(), 40000LL);
        QCOMPARE(w->model().scrollX(), 10);
        QCOMPARE(w->scrollBarWidget()->value(), 10);
        // Back to the left, past the start: clamped to begin 0, whose pixel
        // lies left of the side, so the view scrolls back.
        drag(w.get(), 40);
        QCOMPARE(w->model().beginTime(), 0LL);
        QCOMPARE(w->model().endTime(), 25000LL);
        QCOMPARE(w->model().scrollX(), 0);
        release(w.get(), 40);
    }

    void shouldDragBeginEdgeWithinLimits()
    {
        auto w = editor(sixty, 700, 10000, 40000);
        QVERIFY(w);
        QSignalSpy selected(w.get(), &CWaveWnd::selectChange);
        press(w.get(), 100);
        QCOMPARE(w->model().mouseMode(), 3);
        QVERIFY(!w->hasMouseTracking());
        drag(w.get(), 150);
        QCOMPARE(w->model().beginTime(), 15000LL);
        QCOMPARE(selected.count(), 1);
        // Within 5 s of the end: held at end - 5000.
        drag(w.get(), 390);
        QCOMPARE(w->model().beginTime(), 35000LL);
        // Past the wave's end: ignored.
        drag(w.get(), 650);
        QCOMPARE(w->model().beginTime(), 35000LL);
        QCOMPARE(selected.count(), 2);
        // Left of the wave: held at 0.
        drag(w.get(), -20);
        QCOMPARE(w->model().beginTime(), 0LL);
        QCOMPARE(w->model().endTime(), 40000LL);
        release(w.get(), 150);
        QCOMPARE(w->cursor().shape(), Qt::SizeHorCursor);
        QCOMPARE(w->model().beginTime(), 0LL); // set while moving, not on release
        QCOMPARE(selected.count(), 4);
        QCOMPARE(selected.last().at(0).toTime(), ms(0));
        QCOMPARE(w->model().mouseMode(), 0);
    }

    void shouldScrollLeftWhenBeginEdgeNearsTheSide()
    {
        auto w = editor(sixty, 400, 15000, 40000);
        QVERIFY(w);
        w->scrollBarWidget()->setValue(100);
        press(w.get(), 50); // 15 s at scroll 100
        QCOMPARE(w->model().mouseMode(), 3);
        drag(w.get(), 5);
        QCOMPARE(w->model().beginTime(), 10500LL);
        QCOMPARE(w->model().scrollX(), 90);
        release(w.get(), 5);
    }

    void shouldDragEndEdgeWithinLimits()
    {
        auto w = editor(sixty, 700, 10000, 30000);
        QVERIFY(w);
        QSignalSpy selected(w.get(), &CWaveWnd::selectChange);
        press(w.get(), 300);
        QCOMPARE(w->model().mouseMode(), 4);
        drag(w.get(), 200);
        QCOMPARE(w->model().endTime(), 20000LL);
        // Within 5 s of the begin: held at begin + 5000.
        drag(w.get(), 120);
        QCOMPARE(w->model().endTime(), 15000LL);
        drag(w.get(), 20);
        QCOMPARE(w->model().endTime(), 15000LL);
        QCOMPARE(w->model().beginTime(), 10000LL);
        release(w.get(), 20);
        QCOMPARE(w->cursor().shape(), Qt::SizeHorCursor);
        QCOMPARE(selected.count(), 4);
        QCOMPARE(selected.last().at(1).toTime(), ms(15000));
    }

    void shouldHoldEndEdgeAtSongEnd()
    {
        auto w = editor(sixty, 700, 57000, 60000);
        QVERIFY(w);
        press(w.get(), 600);
        QCOMPARE(w->model().mouseMode(), 4);
        drag(w.get(), 590); // begin + 5000 would be 62 s: held at 60 s
        QCOMPARE(w->model().endTime(), 60000LL);
        release(w.get(), 590);
    }

    void shouldTakeNextPressForEndEdgeAfterAdjust()
    {
        auto w = editor(sixty, 700, 10000, 30000);
        QVERIFY(w);
        w->adjust();
        press(w.get(), 150); // inside the selection, yet it drags the end
        QCOMPARE(w->model().mouseMode(), 4);
        drag(w.get(), 250);
        QCOMPARE(w->model().endTime(), 25000LL);
        QCOMPARE(w->model().beginTime(), 10000LL);
        release(w.get(), 250);
        QCOMPARE(w->model().mouseMode(), 0);
    }

    void shouldScrollRightWhenEndEdgeNearsTheSide()
    {
        auto w = editor(sixty, 400, 10000, 38000);
        QVERIFY(w);
        press(w.get(), 380);
        QCOMPARE(w->model().mouseMode(), 4);
        drag(w.get(), 395);
        QCOMPARE(w->model().endTime(), 39500LL);
        QCOMPARE(w->model().scrollX(), 10);
        release(w.get(), 395);
    }

    // The 40-hour limits. Reaching them on a real 40-hour file would cost
    // tens of seconds (the dummy audio driver's close waits two buffers), so
    // the selection is taken there through the setters, which leave the end
    // unlimited above and the begin unlimited below.
    void shouldHoldBeginEdgeWithinFortyHoursOfTheEnd()
    {
        auto w = editor(sixty, 500, 0, 40000);
        QVERIFY(w);
        w->setEndTime(150000000LL); // typed in, past the song
        QCOMPARE(w->model().endTime(), 150000000LL);
        press(w.get(), 0);
        QCOMPARE(w->model().mouseMode(), 3);
        drag(w.get(), 50);
        QCOMPARE(w->model().beginTime(), 150000000LL - 144000000LL);
        // Closer than 40 hours: taken as it is.
        w->model().setSelection(w->model().beginTime(), 144004000);
        drag(w.get(), 45);
        QCOMPARE(w->model().beginTime(), 4500LL);
        release(w.get(), 45);
    }

    void shouldHoldEndEdgeWithinFortyHoursOfTheBegin()
    {
        auto w = editor(sixty, 500, 0, 40000);
        QVERIFY(w);
        w->setBeginTime(-144000000LL); // no lower limit on the begin
        QCOMPARE(w->model().beginTime(), -144000000LL);
        w->adjust();
        press(w.get(), 300);
        drag(w.get(), 300); // 30 s is 40 hours and 30 s after the begin
        QCOMPARE(w->model().endTime(), 0LL);
        w->model().setSelection(-143990000, w->model().endTime());
        drag(w.get(), 301); // 40 h + 100 ms: held again
        QCOMPARE(w->model().endTime(), 10000LL);
        w->model().setSelection(-143900000, w->model().endTime());
        drag(w.get(), 50); // 40 h - 95 s: taken as it is
        QCOMPARE(w->model().endTime(), 5000LL);
        release(w.get(), 50);
    }

    void shouldMovePlayCursorOnlyOnReleaseSignal()
    {
        auto w = editor(sixty, 500, 10000, 20000);
        QVERIFY(w);
        w->model().setPlayPos(30000);
        QSignalSpy pos(w.get(), &CWaveWnd::playPosChange);
        press(w.get(), 300);
        QCOMPARE(w->model().mouseMode(), 5);
        QCOMPARE(w->cursor().shape(), Qt::ClosedHandCursor);
        drag(w.get(), 350);
        QCOMPARE(w->model().playPos(), 35000LL);
        QCOMPARE(pos.count(), 0);
        release(w.get(), 360);
        QCOMPARE(w->model().playPos(), 36000LL);
        QCOMPARE(pos.count(), 1);
        QCOMPARE(pos.at(0).at(0).toLongLong(), 36000LL);
        QCOMPARE(w->cursor().shape(), Qt::OpenHandCursor);
        // Paused, the engine stays put; the next play starts there.
        QCOMPARE(WaveHelperGetState(&w->playback().record()), 0);
        QSignalSpy played(w.get(), &CWaveWnd::onPlay);
        QElapsedTimer started;
        started.start();
        w->play();
        QCOMPARE(played.count(), 1);
        QCOMPARE(played.at(0).at(0).toLongLong(), 36000LL);
        const long long enginePos = WaveHelperGetPos(&w->playback().record());
        QVERIFY2(enginePos >= 36000, qPrintable(twed::positionText(enginePos, started)));
        QVERIFY2(twed::withinRealTime(enginePos, 36000, started),
                 qPrintable(twed::positionText(enginePos, started)));
        w->pause();
    }

    void shouldMoveOnlyTheCursorWhenDraggedWhilePaused()
    {
        auto w = editor(sixty, 600, 30000, 40000); // the cursor runs left of it
        QVERIFY(w);
        w->play();
        QTRY_VERIFY_WITH_TIMEOUT(w->model().playPos() >= 1000, 5000);
        w->pause();
        QCOMPARE(WaveHelperGetState(&w->playback().record()), 2);
        QVERIFY(!w->playback().isTimerActive());
        QTest::qWait(100);
        const long long held = w->model().playPos();
        const long long engineHeld = WaveHelperGetPos(&w->playback().record());
        QSignalSpy played(w.get(), &CWaveWnd::onPlay);
        QSignalSpy paused(w.get(), &CWaveWnd::onPause);
        QSignalSpy pos(w.get(), &CWaveWnd::playPosChange);

        const int x = int(held / 100);
        press(w.get(), x);
        QCOMPARE(w->model().mouseMode(), 5);
        drag(w.get(), x + 150);
        const long long target = held + 15000;
        QCOMPARE(w->model().playPos(), target);
        QCOMPARE(pos.count(), 0);
        release(w.get(), x + 150);
        QCOMPARE(w->model().playPos(), target);
        QCOMPARE(pos.count(), 1);
        QCOMPARE(pos.at(0).at(0).toLongLong(), target);
        // Still paused, and the engine was neither resumed nor moved.
        QCOMPARE(played.count(), 0);
        QCOMPARE(paused.count(), 0);
        QCOMPARE(WaveHelperGetState(&w->playback().record()), 2);
        QVERIFY(!w->playback().isTimerActive());
        QCOMPARE(WaveHelperGetPos(&w->playback().record()), engineHeld);

        // The next play starts from the dragged place.
        QElapsedTimer started;
        started.start();
        w->play();
        QCOMPARE(played.count(), 1);
        QCOMPARE(played.at(0).at(0).toLongLong(), target);
        QCOMPARE(played.at(0).at(1).toBool(), false);
        QCOMPARE(WaveHelperGetState(&w->playback().record()), 1);
        const long long enginePos = WaveHelperGetPos(&w->playback().record());
        QVERIFY2(enginePos >= target, qPrintable(twed::positionText(enginePos, started)));
        QVERIFY2(twed::withinRealTime(enginePos, target, started),
                 qPrintable(twed::positionText(enginePos, started)));
        w->pause();
    }

    void shouldGrabPlayCursorByItsMarkerInTheRuler()
    {
        auto w = editor(sixty, 500, 10000, 20000);
        QVERIFY(w);
        w->model().setPlayPos(30000);
        press(w.get(), 308, 8);
        QCOMPARE(w->model().mouseMode(), 5);
        drag(w.get(), 258, 8);
        release(w.get(), 258, 8);
        QCOMPARE(w->model().playPos(), 25000LL);
    }

    void shouldKeepPlayCursorOffTheStartWhenDragging()
    {
        auto w = editor(sixty, 500, 10000, 20000);
        QVERIFY(w);
        w->model().setPlayPos(3000); // x = 30, outside the selection
        press(w.get(), 30);
        QCOMPARE(w->model().mouseMode(), 5);
        drag(w.get(), -50); // clamped to 0, which is not taken
        QCOMPARE(w->model().playPos(), 3000LL);
        drag(w.get(), 10);
        QCOMPARE(w->model().playPos(), 1000LL);
        release(w.get(), 10);
        QCOMPARE(w->model().playPos(), 1000LL);
    }

    void shouldScrollAlongWithPlayCursor()
    {
        auto w = editor(sixty, 400, 10000, 20000);
        QVERIFY(w);
        w->model().setPlayPos(38000);
        press(w.get(), 380);
        drag(w.get(), 395);
        QCOMPARE(w->model().playPos(), 39500LL);
        QCOMPARE(w->model().scrollX(), 15);
        release(w.get(), 395);
    }

    void shouldScrollLeftWhenPlayCursorNearsTheSide()
    {
        auto w = editor(sixty, 400, 10000, 20000); // 600 px wave in 400 px
        QVERIFY(w);
        w->scrollBarWidget()->setValue(200); // the view shows 20 .. 60 s
        QCOMPARE(w->model().scrollX(), 200);
        w->model().setPlayPos(25000); // x = 50
        QSignalSpy pos(w.get(), &CWaveWnd::playPosChange);
        press(w.get(), 50);
        QCOMPARE(w->model().mouseMode(), 5);
        drag(w.get(), 45); // one step further on it is still in view
        QCOMPARE(w->model().playPos(), 24500LL);
        QCOMPARE(w->model().scrollX(), 200);
        drag(w.get(), 5); // one step further on it would be left of the view
        QCOMPARE(w->model().playPos(), 20500LL);
        QCOMPARE(w->model().scrollX(), 160);
        QCOMPARE(w->scrollBarWidget()->value(), 160);
        QCOMPARE(pos.count(), 0);
        release(w.get(), 5);
        QCOMPARE(w->model().playPos(), 20500LL);
        QCOMPARE(w->model().scrollX(), 160);
        QCOMPARE(pos.count(), 1);
        QCOMPARE(pos.at(0).at(0).toLongLong(), 20500LL);
    }

    void shouldContinuePlaybackFromDraggedPlace()
    {
        auto w = editor(sixty, 600, 30000, 40000); // the cursor runs left of it
        QVERIFY(w);
        QSignalSpy played(w.get(), &CWaveWnd::onPlay);
        QSignalSpy pos(w.get(), &CWaveWnd::playPosChange);
        w->play();
        QTRY_VERIFY_WITH_TIMEOUT(w->model().playPos() >= 1000, 5000);

        const int x = int(w->model().playPos() / 100);
        press(w.get(), x);
        QCOMPARE(w->model().mouseMode(), 5);
        // While the cursor is held the timer leaves it alone, though it runs
        // and the engine plays on.
        const long long held = w->model().playPos();
        QVERIFY(w->playback().isTimerActive());
        QTRY_VERIFY_WITH_TIMEOUT(WaveHelperGetPos(&w->playback().record()) > held + 150, 5000);
        QCOMPARE(w->model().playPos(), held);

        drag(w.get(), x + 200);
        const long long target = held + 20000;
        QCOMPARE(w->model().playPos(), target);
        pos.clear();
        QStringList order;
        connect(w.get(), &CWaveWnd::onPlay, this, [&] { order << "onPlay"; });
        connect(w.get(), &CWaveWnd::onPause, this, [&] { order << "onPause"; });
        connect(w.get(), &CWaveWnd::playPosChange, this, [&] { order << "playPosChange"; });
        QElapsedTimer released;
        released.start();
        release(w.get(), x + 200);
        // The engine is paused and re-seeked quietly; playback restarts first.
        QCOMPARE(order, QStringList({"onPlay", "playPosChange"}));
        QCOMPARE(played.count(), 2);
        QCOMPARE(played.at(1).at(0).toLongLong(), target);
        QCOMPARE(played.at(1).at(1).toBool(), false);
        QCOMPARE(pos.count(), 1);
        QCOMPARE(pos.at(0).at(0).toLongLong(), target);
        QCOMPARE(WaveHelperGetState(&w->playback().record()), 1);
        const long long enginePos = WaveHelperGetPos(&w->playback().record());
        QVERIFY2(enginePos >= target, qPrintable(twed::positionText(enginePos, released)));
        QVERIFY2(twed::withinRealTime(enginePos, target, released),
                 qPrintable(twed::positionText(enginePos, released)));
        QTRY_VERIFY_WITH_TIMEOUT(w->model().playPos() > target + 100, 3000);
        w->pause();
    }

    void shouldPreviewOrPlayOnDoubleClick_data()
    {
        QTest::addColumn<int>("x");
        QTest::addColumn<bool>("preview");
        QTest::addColumn<long long>("pos"); // after the double click's first click
        QTest::newRow("inside the selection") << 150 << true << 15000LL;
        QTest::newRow("on its begin") << 100 << true << 42000LL;
        QTest::newRow("on its end") << 200 << true << 42000LL;
        QTest::newRow("outside") << 300 << false << 30000LL;
    }
    void shouldPreviewOrPlayOnDoubleClick()
    {
        QFETCH(int, x);
        QFETCH(bool, preview);
        QFETCH(long long, pos);
        auto w = editor(sixty, 500, 10000, 20000);
        QVERIFY(w);
        w->model().setPlayPos(42000);
        QSignalSpy played(w.get(), &CWaveWnd::onPlay);
        QTest::mouseClick(w.get(), Qt::LeftButton, {}, QPoint(x, kWaveY));
        QElapsedTimer started;
        started.start();
        QTest::mouseDClick(w.get(), Qt::LeftButton, {}, QPoint(x, kWaveY));
        release(w.get(), x);
        QCOMPARE(played.count(), 1);
        QCOMPARE(played.at(0).at(1).toBool(), preview);
        QCOMPARE(w->playback().isPreview(), preview);
        // The first click moved the play cursor off the edges; preview
        // starts at the begin, play where the cursor is.
        QCOMPARE(w->model().playPos(), pos);
        const long long start = preview ? 10000 : pos;
        const long long enginePos = WaveHelperGetPos(&w->playback().record());
        QVERIFY2(enginePos >= start, qPrintable(twed::positionText(enginePos, started)));
        QVERIFY2(twed::withinRealTime(enginePos, start, started),
                 qPrintable(twed::positionText(enginePos, started)));
        QCOMPARE(w->model().beginTime(), 10000LL);
        QCOMPARE(w->model().endTime(), 20000LL);
        w->pause();
    }

    void shouldEndGestureOnAnyButtonRelease()
    {
        auto w = editor(sixty, 500, 10000, 20000);
        QVERIFY(w);
        QSignalSpy selected(w.get(), &CWaveWnd::selectChange);
        press(w.get(), 150, kWaveY, Qt::RightButton);
        QCOMPARE(w->model().mouseMode(), 2);
        QVERIFY(w->hasMouseTracking()); // only the left button starts a drag
        release(w.get(), 150, kWaveY, Qt::RightButton);
        QCOMPARE(w->model().mouseMode(), 0);
        QCOMPARE(selected.count(), 0);
        QCOMPARE(w->model().beginTime(), 10000LL);
    }
};

TW_TEST_MAIN(TestWaveWndMouse)
#include "tst_wavewnd_mouse.moc"
