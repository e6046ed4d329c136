// The editor's time model on its own: no widget, no engine. Loading, the
// selection setters, zoom and scroll, time <-> pixel, what a press grabs,
// and every drag's rule with its clamps and scroll steps.

#include "editor/wavemodel.h"
#include "testenv.h"

#include <QTest>

namespace {

constexpr int kRate = 32000;

// A model of a loaded wave of `seconds` at 32 kHz in a view `width` wide.
CWaveModel loaded(double seconds, int width)
{
    CWaveModel m;
    m.setViewWidth(width);
    m.reset();
    m.load(static_cast<unsigned>(seconds * kRate), kRate);
    return m;
}

} // namespace

class TestWaveModel : public QObject
{
    Q_OBJECT

private slots:
    void shouldStartEmptyWithTheEndFortyHoursAway()
    {
        CWaveModel m;
        QCOMPARE(m.beginTime(), 0LL);
        QCOMPARE(m.endTime(), kMaxSelection);
        QCOMPARE(m.playPos(), 0LL);
        QCOMPARE(m.msPerPixel(), 100.0f);
        QCOMPARE(m.zoomFactor(), 1.0f);
        QCOMPARE(m.totalWidth(), 0);
        QCOMPARE(m.mouseMode(), int(MM_NONE));
        m.setViewWidth(400);
        QCOMPARE(m.minZoom(), 1.0f); // nothing loaded: nothing to fit
    }

    void shouldLoadWithTheFirstFortySecondsSelected_data()
    {
        QTest::addColumn<double>("seconds");
        QTest::addColumn<long long>("end");
        QTest::newRow("30 s") << 30.0 << 30000LL;
        QTest::newRow("3 min") << 180.0 << 40000LL;
        QTest::newRow("40.5 s") << 40.5 << 40000LL;
        QTest::newRow("12.3456 s: rounded") << 12.3456 << 12346LL;
    }
    void shouldLoadWithTheFirstFortySecondsSelected()
    {
        QFETCH(double, seconds);
        QFETCH(long long, end);
        CWaveModel m = loaded(seconds, 500);
        QCOMPARE(m.beginTime(), 0LL);
        QCOMPARE(m.endTime(), end);
        QVERIFY(qAbs(m.maxTime() - seconds * 1000) < 1.0);
        QCOMPARE(m.framesPerPixel(), kRate / 10.0f);
        QCOMPARE(m.totalWidth(), int(seconds * kRate / (kRate / 10.0)));
        QCOMPARE(m.fitMsPerPixel(), m.maxTime() / 500);
        QCOMPARE(m.maxZoomValue(), 5.0f);
    }

    void shouldResetTimesButKeepTheZoomUntilTheNextLoad()
    {
        CWaveModel m = loaded(60, 400);
        m.zoom(3.0f);
        m.setPlayPos(12000);
        m.setScrollX(40);
        m.setDragX(7);
        m.reset();
        QCOMPARE(m.playPos(), 0LL);
        QCOMPARE(m.scrollX(), 0);
        QCOMPARE(m.beginTime(), 0LL);
        QCOMPARE(m.endTime(), 0LL);
        QCOMPARE(m.dragX(), 0);
        QCOMPARE(m.maxTime(), 0.0f);
        QCOMPARE(m.framesPerPixel(), 0.0f);
        QCOMPARE(m.msPerPixel(), 100.0f);
        QCOMPARE(m.zoomFactor(), 3.0f);
    }

    void shouldApplyTheSelectionRules_data()
    {
        QTest::addColumn<double>("seconds");
        QTest::addColumn<long long>("begin0");
        QTest::addColumn<long long>("end0");
        QTest::addColumn<bool>("setBegin");
        QTest::addColumn<long long>("t");
        QTest::addColumn<long long>("begin");
        QTest::addColumn<long long>("end");
        QTest::newRow("end 3000 keeps 5 s")
            << 60.0 << 0LL << 40000LL << false << 3000LL << 0LL << 5000LL;
        QTest::newRow("begin 38000 drags the end to the song's end")
            << 60.0 << 0LL << 40000LL << true << 38000LL << 38000LL << 60000LL;
        QTest::newRow("begin 58000 near the end")
            << 60.0 << 0LL << 60000LL << true << 58000LL << 55000LL << 60000LL;
        QTest::newRow("begin left leaves the end")
            << 60.0 << 20000LL << 40000LL << true << 10000LL << 10000LL << 40000LL;
        QTest::newRow("end passes begin, length kept")
            << 60.0 << 20000LL << 30000LL << false << 15000LL << 5000LL << 15000LL;
        QTest::newRow("end passes begin, floor 0")
            << 60.0 << 20000LL << 40000LL << false << 10000LL << 0LL << 10000LL;
        QTest::newRow("end past the song")
            << 60.0 << 0LL << 40000LL << false << 90000LL << 0LL << 90000LL;
        QTest::newRow("begin below zero")
            << 3.0 << 0LL << 3000LL << true << 1000LL << -2000LL << 3000LL;
    }
    void shouldApplyTheSelectionRules()
    {
        QFETCH(double, seconds);
        QFETCH(long long, begin0);
        QFETCH(long long, end0);
        QFETCH(bool, setBegin);
        QFETCH(long long, t);
        QFETCH(long long, begin);
        QFETCH(long long, end);
        CWaveModel m = loaded(seconds, 400);
        m.setSelection(begin0, end0);
        if (setBegin)
            m.setBeginTime(t);
        else
            m.setEndTime(t);
        QCOMPARE(m.beginTime(), begin);
        QCOMPARE(m.endTime(), end);
    }

    void shouldClampTheZoomAndKeepTheLeftEdge()
    {
        CWaveModel m = loaded(60, 400); // fits at 400 / 600
        QCOMPARE(m.minZoom(), 400.0f / 600.0f);
        QCOMPARE(m.zoom(9.0f), 5.0f);
        QCOMPARE(m.msPerPixel(), 20.0f);
        QCOMPARE(m.totalWidth(), 3000);
        m.setScrollX(1000); // 20 s at the left edge
        QCOMPARE(m.zoom(2.0f), 2.0f);
        QCOMPARE(m.scrollX(), 400); // still 20 s
        QCOMPARE(m.zoom(0.1f), 400.0f / 600.0f);
        QCOMPARE(m.totalWidth(), 400);
        QCOMPARE(m.scrollRange(), 0);
    }

    void shouldStepTheZoomByHalves()
    {
        CWaveModel m = loaded(60, 400);
        m.zoom(5.0f);
        QCOMPARE(m.zoomInTarget(), 5.5f); // clamped back by zoom()
        m.zoom(4.5f);
        QCOMPARE(m.zoomInTarget(), 5.0f);
        m.zoom(1.0f);
        QCOMPARE(m.zoomOutTarget(), 0.5f);
        m.zoom(0.1f);
        QCOMPARE(m.zoomOutTarget(), 0.5f / 3.0f); // still steps: zoom() clamps
        CWaveModel shorter = loaded(20, 400);     // fits at 2: the minimum is 1
        QCOMPARE(shorter.minZoom(), 1.0f);
        QCOMPARE(shorter.zoomOutTarget(), 0.5f);
    }

    void shouldConvertBetweenTimesAndPixels()
    {
        CWaveModel m = loaded(60, 400);
        QCOMPARE(m.timeToX(12345), 123);
        QCOMPARE(m.xToTime(123), 12300LL);
        m.setScrollX(50);
        QCOMPARE(m.timeToX(12345), 73);
        QCOMPARE(m.xToTime(0), 5000LL);
        m.zoom(3.0f); // 33.3 ms a pixel; the left edge keeps 5 s
        QCOMPARE(m.scrollX(), 150);
        QCOMPARE(m.xToTime(1), std::llround(151 * (100.0f / 3.0f)));
    }

    void shouldGrabByZone_data()
    {
        QTest::addColumn<int>("x");
        QTest::addColumn<int>("y");
        QTest::addColumn<int>("action");
        // Begin at 100, end at 103, play cursor at 300, view 200 high.
        QTest::newRow("between edges 3 px apart: the begin") << 101 << 100 << int(MM_BEGIN_EDGE);
        QTest::newRow("the end's right side") << 104 << 100 << int(MM_END_EDGE);
        QTest::newRow("the cursor's line") << 301 << 100 << int(MM_PLAY_CURSOR);
        QTest::newRow("ruler, 8 px right of the cursor") << 308 << 5 << int(MM_PLAY_CURSOR);
        QTest::newRow("wave, 8 px right of the cursor") << 308 << 100 << int(MM_NONE);
        QTest::newRow("ruler over the begin") << 100 << 17 << int(MM_NONE);
        QTest::newRow("over the scroll bar") << 100 << 190 << int(MM_NONE);
    }
    void shouldGrabByZone()
    {
        QFETCH(int, x);
        QFETCH(int, y);
        QFETCH(int, action);
        CWaveModel m = loaded(60, 600);
        m.setSelection(10000, 10300);
        m.setPlayPos(30000);
        QCOMPARE(m.actionAt(x, y, 200, 14), action);
        // A wide selection: its inside moves it.
        m.setSelection(10000, 20000);
        QCOMPARE(m.actionAt(150, 100, 200, 14), int(MM_MOVE));
    }

    void shouldNudgeOneEdgeWithinTheLimits()
    {
        CWaveModel m = loaded(60, 600);
        m.setSelection(10000, 20000);
        QVERIFY(m.nudgeBeginEdge(100));
        QCOMPARE(m.beginTime(), 10100LL);
        QCOMPARE(m.endTime(), 20000LL); // the other edge stays
        QVERIFY(m.nudgeEndEdge(-1000));
        QCOMPARE(m.endTime(), 19000LL);
        QCOMPARE(m.beginTime(), 10100LL);
        // Five seconds apart at least.
        QVERIFY(m.nudgeBeginEdge(100000));
        QCOMPARE(m.beginTime(), 14000LL);
        QVERIFY(!m.nudgeBeginEdge(100));
        QVERIFY(!m.nudgeEndEdge(-100));
        QCOMPARE(m.endTime(), 19000LL);
        // Not before the start, not past the song's end.
        QVERIFY(m.nudgeBeginEdge(-100000));
        QCOMPARE(m.beginTime(), 0LL);
        QVERIFY(!m.nudgeBeginEdge(-100));
        QVERIFY(m.nudgeEndEdge(1000000));
        QCOMPARE(m.endTime(), static_cast<long long>(m.maxTime()));
        QVERIFY(!m.nudgeEndEdge(100));
    }

    void shouldHoldEdgesToFiveSecondsAndTheSong()
    {
        CWaveModel m = loaded(60, 600);
        m.setSelection(10000, 20000);
        // The end dragged to within 5 s of the begin stays 5 s away.
        CWaveModel::Step step = m.dragEndEdge(120);
        QVERIFY(step.changed);
        QCOMPARE(m.endTime(), 15000LL);
        // The end is held to the song's end; past the wave it does nothing.
        step = m.dragEndEdge(599);
        QCOMPARE(m.endTime(), 59900LL);
        QCOMPARE(step.scroll, 0); // the whole song is in view
        QVERIFY(!m.dragEndEdge(600).changed);
        // The begin likewise, and never below zero.
        m.setSelection(10000, 20000);
        step = m.dragBeginEdge(180);
        QCOMPARE(m.beginTime(), 15000LL);
        m.setSelection(3000, 20000);
        step = m.dragBeginEdge(5);
        QCOMPARE(m.beginTime(), 500LL);
        QCOMPARE(step.scroll, -kEdgeZone);
        QVERIFY(m.edgeReleaseCounts(5));
        QVERIFY(!m.edgeReleaseCounts(0));
        QVERIFY(!m.edgeReleaseCounts(600));
    }

    void shouldMoveTheSelectionWithinTheSong()
    {
        CWaveModel m = loaded(60, 300); // 600 px of wave, 300 in view
        m.setSelection(40000, 50000);
        m.setDragX(100);
        CWaveModel::Step step = m.moveSelection(250); // 15 s right: past the end
        QVERIFY(step.changed);
        QCOMPARE(m.endTime(), 60000LL);
        QCOMPARE(m.beginTime(), 50000LL);
        // Its end beyond the view's right side scrolls along.
        QCOMPARE(step.scroll, 100);
        // Leftwards it stops at zero.
        m.setSelection(3000, 13000);
        m.setDragX(100);
        step = m.moveSelection(0);
        QCOMPARE(m.beginTime(), 0LL);
        QCOMPARE(m.endTime(), 10000LL);
        QCOMPARE(m.dragX(), 0);
        // A drop that would reach the start is left out.
        QVERIFY(!m.dropSelection(-5));
        QVERIFY(m.dropSelection(10));
        QCOMPARE(m.beginTime(), 1000LL);
    }

    void shouldDrawANewSelectionEitherWay()
    {
        CWaveModel m = loaded(60, 600);
        m.startNewSelection(300);
        QCOMPARE(m.beginTime(), 30000LL);
        QCOMPARE(m.endTime(), 0LL);
        m.drawNewSelection(200);
        QCOMPARE(m.endTime(), 20000LL);
        m.finishNewSelection(100); // drawn leftwards: swapped
        QCOMPARE(m.beginTime(), 10000LL);
        QCOMPARE(m.endTime(), 30000LL);
        // A click without movement selects nothing, not even 5 s.
        m.startNewSelection(250);
        m.finishNewSelection(250);
        QCOMPARE(m.beginTime(), 25000LL);
        QCOMPARE(m.endTime(), 25000LL);
    }

    void shouldDragThePlayCursorWithinTheSong()
    {
        CWaveModel m = loaded(60, 200); // 600 px of wave, 200 in view
        m.setPlayPos(10000);
        m.setDragX(100);
        CWaveModel::Step step = m.dragPlayCursor(180);
        QVERIFY(step.changed);
        QCOMPARE(m.playPos(), 18000LL);
        QCOMPARE(m.dragX(), 180);
        // Judged a step ahead: 180 + 80 lies beyond the view.
        QCOMPARE(step.scroll, 80);
        // Never to zero or past the wave.
        m.setDragX(180);
        QVERIFY(!m.dragPlayCursor(0).changed);
        QCOMPARE(m.playPos(), 18000LL);
        QVERIFY(!m.dropPlayCursor(0));
        QVERIFY(m.dropPlayCursor(190));
        QCOMPARE(m.playPos(), 19000LL);
    }

    void shouldAskTheViewForItsWidth()
    {
        CWaveModel m;
        int width = 300;
        m.setViewWidthSource([&width] { return width; });
        m.load(60 * kRate, kRate);
        QCOMPARE(m.minZoom(), 0.5f);
        width = 600;
        QCOMPARE(m.minZoom(), 1.0f);
        QCOMPARE(m.viewWidth(), 600);
        m.setViewWidth(150); // a fixed width replaces the source
        width = 1;
        QCOMPARE(m.viewWidth(), 150);
    }
};

TW_TEST_MAIN(TestWaveModel)
#include "tst_wavemodel.moc"
