// The wave's drawing geometry and its reduction to a (min, max) pair of
// points per pixel column, on buffers made here: no widget, no engine.

#include "editor/wavecolumns.h"
#include "testenv.h"

#include <QPoint>
#include <QTest>

#include <vector>

class TestWaveColumns : public QObject
{
    Q_OBJECT

private slots:
    // --- the layout ---------------------------------------------------------

    void shouldCentreTheWaveBetweenTheRulerAndTheBottomEdge()
    {
        // A drawing 182 rows high: the wave's band is rows 28 .. 179, its
        // centre 104, and a full-scale swing spans 144 rows.
        const CWaveColumns::Layout l = CWaveColumns::layout(800, 182, 600, 0);
        QCOMPARE(l.centreY, 104);
        QCOMPARE(l.amplitudeHeight, 144);
        // An odd band rounds the centre down.
        const CWaveColumns::Layout odd = CWaveColumns::layout(800, 183, 600, 0);
        QCOMPARE(odd.centreY, 104);
        QCOMPARE(odd.amplitudeHeight, 145);
    }

    void shouldTellTheColumnsInView_data()
    {
        QTest::addColumn<int>("width");
        QTest::addColumn<int>("totalWidth");
        QTest::addColumn<int>("scrollX");
        QTest::addColumn<int>("columns");
        QTest::newRow("wave narrower than the view") << 800 << 600 << 0 << 600;
        QTest::newRow("wave wider than the view") << 400 << 1000 << 0 << 400;
        QTest::newRow("scrolled, the view full") << 400 << 1000 << 600 << 400;
        QTest::newRow("scrolled to the wave's end") << 400 << 1000 << 700 << 300;
        QTest::newRow("scrolled past the wave") << 400 << 1000 << 1200 << -200;
        QTest::newRow("wider than the point buffer") << 3000 << 5000 << 0 << 2048;
        QTest::newRow("a wide wave, narrower than the view") << 3000 << 2500 << 0 << 2048;
        QTest::newRow("no wave") << 400 << 0 << 0 << 0;
    }
    void shouldTellTheColumnsInView()
    {
        QFETCH(int, width);
        QFETCH(int, totalWidth);
        QFETCH(int, scrollX);
        QFETCH(int, columns);
        QCOMPARE(CWaveColumns::layout(width, 200, totalWidth, scrollX).columns, columns);
    }

    void shouldPlaceSampleValuesOnRows()
    {
        QCOMPARE(CWaveColumns::rowOf(qint16(0), 100, 236), 100);
        QCOMPARE(CWaveColumns::rowOf(qint16(-32768), 100, 200), 200);
        // Only the even part of the amplitude height counts: 3 rows scale
        // as 2.
        QCOMPARE(CWaveColumns::rowOf(qint16(32767), 100, 3), 99);
        // 8-bit values count from 0: silence (128) lies half a swing up.
        QCOMPARE(CWaveColumns::rowOf(quint8(128), 100, 200), 0);
        QCOMPARE(CWaveColumns::rowOf(quint8(0), 100, 200), 100);
    }

    void shouldStartThePeakWalkAtTheViewsFirstBlock()
    {
        // 1024 frames a pixel = 2 blocks: 3 pixels in is block 6.
        QCOMPARE(CWaveColumns::firstPeakBlock(3, 1024.0f), 6);
        // 800 frames a pixel: 5 pixels in is frame 4000, inside block 7.
        QCOMPARE(CWaveColumns::firstPeakBlock(5, 800.0f), 7);
        QCOMPARE(CWaveColumns::firstPeakBlock(0, 800.0f), 0);
    }

    // --- the reduction ------------------------------------------------------

    void shouldReduceRawFramesToMinMaxPerColumn()
    {
        // A ramp, 16-bit mono: column k covers frames 10k .. 10k + 9.
        std::vector<qint16> ramp(1000);
        for (int i = 0; i < 1000; ++i)
            ramp[size_t(i)] = qint16(i * 30);
        QPoint pts[10];
        const int n = CWaveColumns::reduce<qint16>(pts, 0, 10.0f, 100, 5, 236, ramp.data(), 1);
        QCOMPARE(n, 10);
        const float s = 236 / 65535.0f;
        for (int k = 0; k < 5; ++k) {
            QCOMPARE(pts[2 * k], QPoint(k, int(100 - 300 * k * s)));
            QCOMPARE(pts[2 * k + 1], QPoint(k, int(100 - (300 * k + 270) * s)));
        }
    }

    void shouldUseOnlyTheFirstChannelOfRawFrames()
    {
        std::vector<qint16> frames(2 * 400);
        for (int i = 0; i < 400; ++i) {
            frames[size_t(2 * i)] = qint16(i % 4 == 0 ? -1000 : 1000);
            frames[size_t(2 * i + 1)] = 30000;
        }
        QPoint pts[8];
        const int n = CWaveColumns::reduce<qint16>(pts, 0, 4.0f, 50, 4, 100, frames.data(), 2);
        QCOMPARE(n, 8);
        const float s = 100 / 65535.0f;
        for (int k = 0; k < 4; ++k) {
            QCOMPARE(pts[2 * k].y(), int(50 + 1000 * s));
            QCOMPARE(pts[2 * k + 1].y(), int(50 - 1000 * s));
        }
    }

    void shouldSplitFractionalFramesPerPixel()
    {
        // 2.5 frames per pixel: columns take 3, 2, 3, 2 ... frames.
        std::vector<qint16> ramp(20);
        for (int i = 0; i < 20; ++i)
            ramp[size_t(i)] = qint16(i * 1000);
        QPoint pts[8];
        const float s = 236 / 65535.0f;
        QCOMPARE(CWaveColumns::reduce<qint16>(pts, 0, 2.5f, 100, 4, 236, ramp.data(), 1), 8);
        const int firsts[4] = {0, 3, 5, 8};
        const int lasts[4] = {2, 4, 7, 9};
        for (int k = 0; k < 4; ++k) {
            QCOMPARE(pts[2 * k].y(), int(100 - firsts[k] * 1000 * s));
            QCOMPARE(pts[2 * k + 1].y(), int(100 - lasts[k] * 1000 * s));
        }
    }

    void shouldWalkPeakPairsFromTheViewStart()
    {
        // 40 blocks of (min, max) = (-b, b); 1024 frames per pixel = 2 blocks.
        std::vector<qint16> table(80);
        for (int b = 0; b < 40; ++b) {
            table[size_t(2 * b)] = qint16(-100 * b);
            table[size_t(2 * b + 1)] = qint16(100 * b);
        }
        QPoint pts[8];
        const float s = 200 / 65535.0f;
        // Scrolled by 3 px: the walk starts at block 6.
        QCOMPARE(CWaveColumns::reduce<qint16>(pts, 3, 1024.0f, 120, 4, 200, table.data(), 2), 8);
        for (int k = 0; k < 4; ++k) {
            // Column k covers blocks 6 + 2k and 7 + 2k; the second is wider.
            const int lastBlock = 6 + 2 * k + 1;
            QCOMPARE(pts[2 * k], QPoint(k, int(120 + 100 * lastBlock * s)));
            QCOMPARE(pts[2 * k + 1], QPoint(k, int(120 - 100 * lastBlock * s)));
        }
    }

    void shouldEndPeakColumnsOnTheBlockThatReachesThem()
    {
        // 800 frames per pixel = 1.5625 blocks: columns end on blocks
        // 2, 4, 5, 7, 8 (counting from 1), the first taking at least two.
        std::vector<qint16> table(40);
        for (int b = 0; b < 20; ++b) {
            table[size_t(2 * b)] = qint16(-100 * b);
            table[size_t(2 * b + 1)] = qint16(100 * b);
        }
        QPoint pts[10];
        const float s = 200 / 65535.0f;
        QCOMPARE(CWaveColumns::reduce<qint16>(pts, 0, 800.0f, 120, 5, 200, table.data(), 1), 10);
        const int lastBlocks[5] = {1, 3, 4, 6, 7}; // zero-based
        for (int k = 0; k < 5; ++k)
            QCOMPARE(pts[2 * k + 1].y(), int(120 - 100 * lastBlocks[k] * s));
        // The third column is the single block 4 (restarted there).
        QCOMPARE(pts[4].y(), int(120 + 100 * 4 * s));
    }

    void shouldDrawEightBitValuesAboveTheCentre()
    {
        std::vector<quint8> silence(200, 128);
        QPoint pts[4];
        QCOMPARE(CWaveColumns::reduce<quint8>(pts, 0, 50.0f, 100, 2, 200, silence.data(), 1), 4);
        const int y = int(100 - 128 * (200 / 256.0f));
        QCOMPARE(pts[0].y(), y);
        QVERIFY(y < 100);
    }

    void shouldRefuseBadChannelsOrTooFewFrames_data()
    {
        QTest::addColumn<int>("channels");
        QTest::addColumn<float>("fpp");
        QTest::newRow("no channel") << 0 << 10.0f;
        QTest::newRow("three channels") << 3 << 10.0f;
        QTest::newRow("1.5 frames per pixel") << 1 << 1.5f;
    }
    void shouldRefuseBadChannelsOrTooFewFrames()
    {
        QFETCH(int, channels);
        QFETCH(float, fpp);
        std::vector<qint16> data(1000, 5);
        QPoint pts[20];
        QCOMPARE(CWaveColumns::reduce<qint16>(pts, 0, fpp, 50, 10, 100, data.data(), channels), 0);
    }

    void shouldNotOverrunThePointBuffer()
    {
        std::vector<qint16> data(3 * 5000 + 16, 7);
        std::vector<QPoint> pts(CWaveColumns::kPointCount + 100, QPoint(-9, -9));
        const int n =
            CWaveColumns::reduce<qint16>(pts.data(), 0, 3.0f, 50, 5000, 100, data.data(), 1);
        QCOMPARE(n, CWaveColumns::kPointCount);
        QCOMPARE(pts[size_t(CWaveColumns::kPointCount)], QPoint(-9, -9));
    }

    void shouldWriteNothingForNoColumns()
    {
        std::vector<qint16> data(100, 5);
        QPoint pts[4] = {QPoint(-9, -9), QPoint(-9, -9), QPoint(-9, -9), QPoint(-9, -9)};
        QCOMPARE(CWaveColumns::reduce<qint16>(pts, 0, 10.0f, 50, 0, 100, data.data(), 1), 0);
        QCOMPARE(pts[0], QPoint(-9, -9));
    }

    void shouldTakeNothingPastTheFramesItsColumnsCover()
    {
        // 5 columns of 10 frames cover frames 0 .. 49; a full-scale frame
        // behind them must not show in any column.
        std::vector<qint16> data(60, 0);
        for (int i = 0; i < 50; ++i)
            data[size_t(i)] = qint16(i % 2 ? 100 : -100);
        for (size_t i = 50; i < data.size(); ++i)
            data[i] = 32767;
        QPoint pts[10];
        QCOMPARE(CWaveColumns::reduce<qint16>(pts, 0, 10.0f, 100, 5, 200, data.data(), 1), 10);
        const int top = CWaveColumns::rowOf(qint16(100), 100, 200);
        const int bottom = CWaveColumns::rowOf(qint16(-100), 100, 200);
        for (int k = 0; k < 5; ++k) {
            QCOMPARE(pts[2 * k], QPoint(k, bottom));
            QCOMPARE(pts[2 * k + 1], QPoint(k, top));
        }
    }

    void shouldDrawStereoAsItsFirstChannelAlone_data()
    {
        QTest::addColumn<float>("fpp");
        QTest::newRow("raw frames") << 7.0f;
        QTest::newRow("peak pairs") << 1024.0f;
    }
    void shouldDrawStereoAsItsFirstChannelAlone()
    {
        QFETCH(float, fpp);
        // Raw frames interleave the channels; a peak table holds the first
        // channel's pairs whatever the channel count.
        const bool raw = fpp < 512.0f;
        std::vector<qint16> mono(400);
        for (size_t i = 0; i < mono.size(); ++i)
            mono[i] = qint16((int(i) * 37) % 2001 - 1000);
        std::vector<qint16> stereo = mono;
        if (raw) {
            stereo.assign(2 * mono.size(), 0);
            for (size_t i = 0; i < mono.size(); ++i) {
                stereo[2 * i] = mono[i];
                stereo[2 * i + 1] = qint16(i % 2 ? 32767 : -32768);
            }
        }
        QPoint fromMono[20];
        QPoint fromStereo[20];
        QCOMPARE(CWaveColumns::reduce<qint16>(fromMono, 0, fpp, 100, 10, 200, mono.data(), 1), 20);
        QCOMPARE(CWaveColumns::reduce<qint16>(fromStereo, 0, fpp, 100, 10, 200, stereo.data(), 2),
                 20);
        int spread = 0;
        for (int i = 0; i < 20; ++i) {
            QCOMPARE(fromStereo[i], fromMono[i]);
            spread += fromMono[i].y() != 100;
        }
        QVERIFY(spread > 0); // the columns carry the wave, not a flat line
    }

    void shouldDrawEightBitSilenceAsAFlatLine_data()
    {
        QTest::addColumn<float>("fpp");
        QTest::addColumn<int>("channels");
        QTest::newRow("raw mono") << 50.0f << 1;
        QTest::newRow("raw stereo") << 50.0f << 2;
        QTest::newRow("peak pairs") << 1024.0f << 2;
    }
    void shouldDrawEightBitSilenceAsAFlatLine()
    {
        QFETCH(float, fpp);
        QFETCH(int, channels);
        // 8-bit silence is 128 (the engine fills a short peak table with it).
        std::vector<quint8> silence(2 * 50 * 8, 128);
        QPoint pts[16];
        QCOMPARE(CWaveColumns::reduce<quint8>(pts, 0, fpp, 100, 8, 200, silence.data(), channels),
                 16);
        const int row = int(100 - 128 * (200 / 256.0f));
        for (int i = 0; i < 16; ++i)
            QCOMPARE(pts[i], QPoint(i / 2, row));
    }
};

TW_TEST_MAIN(TestWaveColumns)
#include "tst_wavecolumns.moc"
