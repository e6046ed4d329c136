// The editor's drawing, checked on the pixels of grab() under the offscreen
// platform with WAV files made here and loaded by the real engine.

#include "editor/wavecolumns.h"
#include "songsynth.h"
#include "wavewndfixture.h"

#include <QCoreApplication>
#include <QFile>
#include <QPainter>
#include <QTest>

#include <memory>

namespace {

bool isCursorOrange(QRgb p)
{
    return qRed(p) > 180 && qGreen(p) < 150 && qBlue(p) < 110 && qRed(p) - qGreen(p) > 70;
}

bool near(QRgb p, int r, int g, int b, int tolerance)
{
    return qAbs(qRed(p) - r) <= tolerance && qAbs(qGreen(p) - g) <= tolerance &&
           qAbs(qBlue(p) - b) <= tolerance;
}

int waveTopRow()
{
    return 30; // below the ruler and the short line at x = 0
}

} // namespace

class TestWaveWndPaint : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir dir;
    QString sixty;    // 60 s, 16-bit mono, 8000 Hz
    QString long300;  // 300 s, 16-bit mono, 8000 Hz
    QString mono8bit; // 30 s, 8-bit mono, 8000 Hz

    // The drawing height for a widget of height h.
    static int drawHeight(CWaveWnd& w) { return w.height() - w.scrollBarWidget()->height() - 2; }

    std::unique_ptr<CWaveWnd> loaded(const QString& path, int width, int height = 200)
    {
        auto w = std::make_unique<CWaveWnd>();
        w->resize(width, height);
        if (twed::load(*w, path) != 0)
            return nullptr;
        return w;
    }

    static QImage shot(CWaveWnd& w)
    {
        return w.grab().toImage().convertToFormat(QImage::Format_RGB32);
    }

    static int countWave(const QImage& img, int x, int bottom, bool light)
    {
        return twed::countInColumn(img, x, waveTopRow(), bottom,
                                   light ? twed::isWaveLight : twed::isWaveGrey);
    }

private slots:
    void initTestCase()
    {
        if (qEnvironmentVariableIsEmpty("SDL_VIDEODRIVER"))
            qputenv("SDL_VIDEODRIVER", "dummy");
        QVERIFY(dir.isValid());
        sixty = twed::makeSine(dir, "sixty.wav", 8000, 1, 16, 60);
        long300 = twed::makeSine(dir, "long.wav", 8000, 1, 16, 300);
        mono8bit = twed::makeSine(dir, "mono8.wav", 8000, 1, 8, 30);
        QVERIFY(!sixty.isEmpty() && !long300.isEmpty() && !mono8bit.isEmpty());
    }

    void shouldDrawOnlyRulerAndPanelWithoutWave()
    {
        CWaveWnd w;
        w.resize(400, 200);
        const QImage img = shot(w);
        const int h = drawHeight(w);
        // Ruler baseline and the short first line.
        QCOMPARE(img.pixel(200, 18), qRgb(86, 86, 86));
        QCOMPARE(img.pixel(0, 25), qRgb(86, 86, 86));
        // The default selection (0 .. 40 hours) fills the view with the panel.
        QVERIFY(near(img.pixel(210, h - 1), 36, 94, 172, 1));
        // (Antialiased label text may hit the wave grey: the ruler rows are
        // left out of the wave check.)
        int wave = 0;
        int cursor = 0;
        for (int x = 0; x < img.width(); ++x)
            for (int y = 0; y < h; ++y) {
                const QRgb p = img.pixel(x, y);
                wave += y > 18 && (twed::isWaveGrey(p) || twed::isWaveLight(p));
                cursor += isCursorOrange(p);
            }
        QCOMPARE(wave, 0);
        QCOMPARE(cursor, 0);
    }

    void shouldGradePanelFromTopToBottomColour()
    {
        // 8-bit mono draws no wave, which leaves the panel bare.
        auto w = loaded(mono8bit, 800);
        QVERIFY(w);
        const QImage img = shot(*w);
        const int h = drawHeight(*w);
        QVERIFY2(near(img.pixel(210, 19), 119, 187, 207, 8),
                 qPrintable(QColor(img.pixel(210, 19)).name()));
        // Padded below the gradient's end.
        for (int y = (h + 18) / 2 + 1; y < h; ++y)
            QVERIFY2(near(img.pixel(210, y), 36, 94, 172, 1), qPrintable(QString::number(y)));
        // The blue falls steadily from top to the middle.
        int lastGreen = 255;
        for (int y = 19; y <= (h + 18) / 2; ++y) {
            QVERIFY(qGreen(img.pixel(210, y)) <= lastGreen);
            lastGreen = qGreen(img.pixel(210, y));
        }
        // The 30 s song is selected whole: pixels 0 .. 298 (the path's right
        // edge lies on x = 299); nothing right of it.
        QVERIFY(near(img.pixel(298, h - 30), 36, 94, 172, 1));
        QVERIFY(!near(img.pixel(299, h - 30), 36, 94, 172, 30));
        QVERIFY(!near(img.pixel(310, h - 30), 36, 94, 172, 30));
        // Rounded corners: the corner pixel is only partly covered, the
        // bottom edge a little further in fully.
        QVERIFY(!near(img.pixel(298, h - 1), 36, 94, 172, 1));
        QVERIFY(near(img.pixel(280, h - 1), 36, 94, 172, 1));
    }

    void shouldDrawWaveGreyOutsideAndLightInsideSelection_data()
    {
        QTest::addColumn<int>("channels");
        QTest::addColumn<int>("bits");
        QTest::addColumn<bool>("drawn");
        QTest::newRow("16-bit stereo") << 2 << 16 << true;
        QTest::newRow("16-bit mono") << 1 << 16 << true;
        QTest::newRow("8-bit stereo") << 2 << 8 << true;
        // Deliberately reduced but not drawn.
        QTest::newRow("8-bit mono") << 1 << 8 << false;
    }
    void shouldDrawWaveGreyOutsideAndLightInsideSelection()
    {
        QFETCH(int, channels);
        QFETCH(int, bits);
        QFETCH(bool, drawn);
        const QString path = twed::makeSine(dir, QString("fmt-%1-%2.wav").arg(channels).arg(bits),
                                            8000, channels, bits, 60);
        auto w = loaded(path, 800);
        QVERIFY(w);
        QCOMPARE(w->playback().record().formatKey, unsigned(bits | channels));
        w->model().setPlayPos(75000); // cursor at 750, clear of the columns below
        const QImage img = shot(*w);
        const int h = drawHeight(*w);
        // Selection 0 .. 40 s = columns 0 .. 399; the wave ends at 600.
        // (Test columns avoid multiples of 25, where faint grid lines lie.)
        if (drawn) {
            QVERIFY(countWave(img, 210, h, true) > 20);
            QCOMPARE(countWave(img, 210, h, false), 0);
            QVERIFY(countWave(img, 510, h, false) > 20);
            QCOMPARE(countWave(img, 510, h, true), 0);
            // Lightening starts one column after the begin edge.
            QVERIFY(countWave(img, 0, h, false) > 20);
            QVERIFY(countWave(img, 1, h, true) > 20);
            QVERIFY(countWave(img, 399, h, true) > 20);
            QVERIFY(countWave(img, 599, h, false) > 0);
        } else {
            QCOMPARE(countWave(img, 210, h, true), 0);
            QCOMPARE(countWave(img, 510, h, false), 0);
            // Ruler, panel and cursor are still there.
            QCOMPARE(img.pixel(100, 18), qRgb(86, 86, 86));
            QVERIFY(near(img.pixel(210, h - 1), 36, 94, 172, 1));
            QVERIFY(isCursorOrange(img.pixel(750, 5)));
        }
        for (int x = 600; x < 800; ++x) {
            if (x == 750)
                continue;
            QCOMPARE(countWave(img, x, h, false), 0);
            QCOMPARE(countWave(img, x, h, true), 0);
        }
    }

    void shouldDrawWaveAtComputedHeights_data()
    {
        QTest::addColumn<int>("bits");
        QTest::addColumn<float>("zoom");
        // 8000 frames per second: 800 frames per pixel at zoom 1 (peak
        // table), 160 at zoom 5 (raw frames).
        QTest::newRow("16-bit peak path") << 16 << 1.0f;
        QTest::newRow("16-bit raw path") << 16 << 5.0f;
        QTest::newRow("8-bit peak path") << 8 << 1.0f;
        QTest::newRow("8-bit raw path") << 8 << 5.0f;
    }
    void shouldDrawWaveAtComputedHeights()
    {
        QFETCH(int, bits);
        QFETCH(float, zoom);
        // A square wave between two known levels, left channel only; the
        // right channel is silent and must not show.
        const int hi = bits == 16 ? 20000 : 140;
        const int lo = bits == 16 ? -12000 : 60;
        const int mid = bits == 16 ? 0 : 128;
        const QString path = dir.filePath(QString("square-%1.wav").arg(bits));
        QVERIFY(tw::writeWav(path, 8000, 2, bits, 8000 * 60, [=](qint64 f, int c) {
            return c == 1 ? mid : ((f / 40) % 2 ? hi : lo);
        }));
        auto w = loaded(path, 600);
        QVERIFY(w);
        w->zoom(zoom);
        QVERIFY((w->model().framesPerPixel() < 512) == (zoom > 1.0f));
        const QImage img = shot(*w);

        // Where the drawing says the two levels lie (the layout and the rows
        // are checked on their own in tst_wavecolumns).
        const CWaveColumns::Layout layout = CWaveColumns::layout(
            w->width(), drawHeight(*w), w->model().totalWidth(), w->model().scrollX());
        auto levelRow = [&](int v) {
            return bits == 16
                       ? CWaveColumns::rowOf(qint16(v), layout.centreY, layout.amplitudeHeight)
                       : CWaveColumns::rowOf(quint8(v), layout.centreY, layout.amplitudeHeight);
        };
        const int yHi = levelRow(hi);
        const int yLo = levelRow(lo);
        // At zoom 5 these columns lie inside the selection (0 .. 2000 px).
        for (int x : {452, 520, 599}) {
            int top = -1, bottom = -1;
            for (int y = 0; y < img.height(); ++y) {
                const QRgb p = img.pixel(x, y);
                if (twed::isWaveGrey(p) || twed::isWaveLight(p)) {
                    if (top < 0)
                        top = y;
                    bottom = y;
                }
            }
            QCOMPARE(top, yHi);
            // The pen's square cap may add one row at the lower end.
            QVERIFY2(bottom == yLo || bottom == yLo + 1,
                     qPrintable(QString("%1 vs %2").arg(bottom).arg(yLo)));
        }
    }

    void shouldLightenSelectionStartingLeftOfView()
    {
        auto w = loaded(sixty, 600);
        QVERIFY(w);
        w->zoom(5.0f); // selection 0 .. 40 s = pixels 0 .. 2000
        w->scrollBarWidget()->setValue(500);
        QCOMPARE(w->model().scrollX(), 500);
        const QImage img = shot(*w);
        const int h = drawHeight(*w);
        for (int x : {0, 1, 301, 599}) {
            QVERIFY2(countWave(img, x, h, true) > 0, qPrintable(QString::number(x)));
            QCOMPARE(countWave(img, x, h, false), 0);
        }
    }

    void shouldStartRulerWithShortLineOnlyAtTheStart_data()
    {
        QTest::addColumn<int>("scroll");
        QTest::addColumn<bool>("line");
        QTest::newRow("scroll 0") << 0 << true;
        QTest::newRow("scroll 3") << 3 << true;
        QTest::newRow("scroll 12") << 12 << false;
    }
    void shouldStartRulerWithShortLineOnlyAtTheStart()
    {
        QFETCH(int, scroll);
        QFETCH(bool, line);
        auto w = loaded(sixty, 400);
        QVERIFY(w);
        w->model().setPlayPos(50000); // keep the cursor away from x = 0
        w->scrollBarWidget()->setValue(scroll);
        const QImage img = shot(*w);
        for (int y = 19; y <= 28; ++y)
            QCOMPARE(img.pixel(0, y) == qRgb(86, 86, 86), line);
        QVERIFY(img.pixel(0, 29) != qRgb(86, 86, 86));
    }

    void shouldLabelTheRulerAtRoundTimes_data()
    {
        QTest::addColumn<float>("zoom");
        QTest::addColumn<int>("scroll");
        QTest::addColumn<QList<int>>("xs"); // where each text starts
        QTest::addColumn<QStringList>("texts");
        // Zoom 1 (100 ms a pixel): a label every 10 s, 100 px apart; the
        // first one starts at the left edge.
        QTest::newRow("zoom 1") << 1.0f << 0 << QList<int>{2, 80, 180, 280, 380, 480, 580, 680, 780}
                                << QStringList{"00:00:00", "00:00:10", "00:00:20",
                                               "00:00:30", "00:00:40", "00:00:50",
                                               "00:01:00", "00:01:10", "00:01:20"};
        // Scrolled by 37 px the labels keep their times: 10 s lies at 63.
        QTest::newRow("scrolled") << 1.0f << 37 << QList<int>{43, 143, 243, 343, 443, 543, 643, 743}
                                  << QStringList{"00:00:10", "00:00:20", "00:00:30", "00:00:40",
                                                 "00:00:50", "00:01:00", "00:01:10", "00:01:20"};
        // Zoom 5 (20 ms a pixel): every 5 s, 250 px apart.
        QTest::newRow("zoom 5") << 5.0f << 0 << QList<int>{2, 230, 480, 730}
                                << QStringList{"00:00:00", "00:00:05", "00:00:10", "00:00:15"};
    }
    void shouldLabelTheRulerAtRoundTimes()
    {
        QFETCH(float, zoom);
        QFETCH(int, scroll);
        QFETCH(QList<int>, xs);
        QFETCH(QStringList, texts);
        const QString path = twed::makeSine(dir, "ninety.wav", 8000, 1, 16, 90);
        auto w = loaded(path, 800);
        QVERIFY(w);
        w->model().setPlayPos(10000000); // cursor out of view
        w->zoom(zoom);
        w->scrollBarWidget()->setValue(scroll);
        QCOMPARE(w->model().scrollX(), scroll);
        const QImage img = shot(*w);

        // The same labels drawn the same way on the same background.
        const QRgb background = img.pixel(img.width() - 3, 15);
        QImage expected(img.size(), QImage::Format_RGB32);
        expected.fill(background);
        {
            QPainter p(&expected);
            QFont f = w->font();
            f.setPixelSize(9);
            p.setFont(f);
            p.setPen(QColor(86, 86, 86));
            for (int i = 0; i < xs.size(); ++i)
                p.drawText(xs[i], 10, texts[i]);
        }
        int ink = 0;
        for (int y = 0; y < 12; ++y)
            for (int x = 0; x < img.width(); ++x) {
                const QRgb got = img.pixel(x, y);
                const QRgb want = expected.pixel(x, y);
                QVERIFY2(near(got, qRed(want), qGreen(want), qBlue(want), 12),
                         qPrintable(QString("pixel %1,%2").arg(x).arg(y)));
                ink += want != background;
            }
        QVERIFY(ink > 50 * xs.size());

        // Labelled ticks are long (13..18), the others short (16..18), a
        // fifth of a label's step apart at these zooms.
        const int label = xs[1] + 20;
        const int tick = (xs[2] - xs[1]) / 5;
        QCOMPARE(img.pixel(label, 14), qRgb(86, 86, 86));
        QVERIFY(img.pixel(label + tick, 14) != qRgb(86, 86, 86));
        QCOMPARE(img.pixel(label + tick, 17), qRgb(86, 86, 86));
        QVERIFY(img.pixel(label + tick / 2, 17) != qRgb(86, 86, 86));
    }

    void shouldDrawTheFadesAsRampsOverTheSelection()
    {
        auto w = loaded(sixty, 600); // 0 .. 40 s selected: pixels 0 .. 400
        QVERIFY(w);
        w->model().setPlayPos(50000);
        const QImage plain = shot(*w);
        // A 10 s fade in (0 .. 100 px) and a 5 s fade out, which the engine
        // runs from 35 s to one second past the end (350 .. 410 px).
        w->playback().enableFadeIn(true);
        w->playback().setFadeInLength(10);
        w->playback().enableFadeOut(true);
        w->playback().setFadeOutLength(5);
        const QImage faded = shot(*w);
        const int h = drawHeight(*w);
        auto lighter = [](QRgb a, QRgb b) { return qGray(a) > qGray(b) + 5; };
        // Above the rising ramp the panel is veiled; below it, as it was.
        QVERIFY(lighter(faded.pixel(50, 25), plain.pixel(50, 25)));
        QVERIFY(lighter(faded.pixel(90, 25), plain.pixel(90, 25)));
        QCOMPARE(faded.pixel(50, h - 5), plain.pixel(50, h - 5));
        QCOMPARE(faded.pixel(90, h - 5), plain.pixel(90, h - 5));
        // Near the fade's start almost all of the column is veiled.
        QVERIFY(lighter(faded.pixel(10, h / 2), plain.pixel(10, h / 2)));
        // Between the fades nothing changes.
        QCOMPARE(faded.pixel(250, 25), plain.pixel(250, 25));
        QCOMPARE(faded.pixel(250, h / 2), plain.pixel(250, h / 2));
        // The falling ramp: veiled near the end's top, not at the bottom.
        QVERIFY(lighter(faded.pixel(395, 25), plain.pixel(395, 25)));
        QCOMPARE(faded.pixel(360, h - 5), plain.pixel(360, h - 5));
        // Outside the selection nothing is drawn.
        QCOMPARE(faded.pixel(450, 25), plain.pixel(450, 25));
        // Off again: as before.
        w->playback().enableFadeIn(false);
        w->playback().enableFadeOut(false);
        QCOMPARE(shot(*w), plain);
    }

    void shouldRingTheWaveWhileItHasTheFocus()
    {
        auto w = loaded(sixty, 600);
        QVERIFY(w);
        QCOMPARE(w->focusPolicy(), Qt::StrongFocus);
        w->show();
        w->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(w.get()));
        w->setFocus();
        QVERIFY(w->hasFocus());
        const QImage focused = shot(*w);
        QVERIFY(near(focused.pixel(300, 0), 50, 160, 251, 2));
        QVERIFY(near(focused.pixel(0, 100), 50, 160, 251, 2));
        w->clearFocus();
        const QImage plain = shot(*w);
        QVERIFY(!near(plain.pixel(300, 0), 50, 160, 251, 30));
        QVERIFY(!near(plain.pixel(0, 100), 50, 160, 251, 30));
    }

    void shouldCentreCursorOnPlayPosition_data()
    {
        QTest::addColumn<float>("zoom");
        QTest::addColumn<int>("scroll");
        QTest::addColumn<long long>("pos");
        QTest::addColumn<int>("x");
        QTest::newRow("zoom 1") << 1.0f << 0 << 10000LL << 100;
        QTest::newRow("zoom 2") << 2.0f << 0 << 12345LL << 246;
        QTest::newRow("scrolled") << 1.0f << 50 << 30000LL << 250;
        QTest::newRow("half out at the left") << 1.0f << 0 << 0LL << 0;
    }
    void shouldCentreCursorOnPlayPosition()
    {
        QFETCH(float, zoom);
        QFETCH(int, scroll);
        QFETCH(long long, pos);
        QFETCH(int, x);
        auto w = loaded(sixty, 500);
        QVERIFY(w);
        w->zoom(zoom);
        w->scrollBarWidget()->setValue(scroll);
        w->model().setPlayPos(pos);
        const QImage img = shot(*w);
        // The head in the ruler band is symmetric about the play position.
        int left = -1, right = -1;
        for (int c = 0; c < img.width(); ++c)
            if (isCursorOrange(img.pixel(c, 5))) {
                if (left < 0)
                    left = c;
                right = c;
            }
        QVERIFY(right >= 0);
        if (x > 0)
            QCOMPARE((left + right) / 2, x);
        else
            QCOMPARE(left, 0);
        QVERIFY(right - left >= 4);
        // Below it, a one-pixel line at the play position.
        const int h = drawHeight(*w);
        for (int y : {40, h / 2, h - 3}) {
            QVERIFY(isCursorOrange(img.pixel(x, y)));
            QVERIFY(!isCursorOrange(img.pixel(x + 2, y)));
            if (x > 1)
                QVERIFY(!isCursorOrange(img.pixel(x - 2, y)));
        }
    }

    void shouldNeverDrawPastTwoThousandFortyEightColumns_data()
    {
        QTest::addColumn<float>("zoom");
        QTest::newRow("peak table") << 1.0f;
        QTest::newRow("raw frames") << 5.0f;
    }
    void shouldNeverDrawPastTwoThousandFortyEightColumns()
    {
        QFETCH(float, zoom);
        auto w = loaded(long300, 2600); // the wave is 3000 px wide at zoom 1
        QVERIFY(w);
        w->zoom(zoom);
        QVERIFY(w->getLength() > 2600);
        const QImage img = shot(*w);
        const int h = drawHeight(*w);
        QVERIFY(countWave(img, 2047, h, false) > 0);
        QVERIFY(countWave(img, 1010, h, false) + countWave(img, 1010, h, true) > 0);
        for (int x = 2048; x < 2600; ++x)
            QCOMPARE(countWave(img, x, h, false) + countWave(img, x, h, true), 0);
        // The ruler goes on over the full width.
        QCOMPARE(img.pixel(2500, 18), qRgb(86, 86, 86));
    }

    void shouldRecolourOnlyOpaqueWaveGreyInsideTheSelection()
    {
        CWaveWnd w; // 100 ms per pixel
        QImage img(50, 40, QImage::Format_ARGB32_Premultiplied);
        img.fill(0);
        const QRgb grey = qRgb(80, 80, 80);
        for (int x = 0; x < 50; ++x) {
            img.setPixel(x, 30, grey);
            img.setPixel(x, 17, grey);
        }
        img.setPixel(15, 25, qRgb(81, 80, 80));
        img.setPixel(16, 25, qPremultiply(qRgba(80, 80, 80, 128)));
        w.model().setSelection(2000, w.model().endTime());   // x = 20
        w.model().setSelection(w.model().beginTime(), 1000); // x = 10: swapped
        w.highLightSelectArea(&img);
        for (int x = 0; x < 50; ++x) {
            const bool inside = x >= 11 && x <= 19;
            QCOMPARE(img.pixel(x, 30), inside ? qRgb(222, 222, 222) : grey);
            QCOMPARE(img.pixel(x, 17), grey); // the ruler band stays
        }
        QCOMPARE(img.pixel(15, 25), qRgb(81, 80, 80));
        QCOMPARE(img.pixel(16, 25), qPremultiply(qRgba(80, 80, 80, 128)));

        // A selection running past both sides covers 0 .. width - 1.
        w.model().setSelection(-500, w.model().endTime());
        w.model().setSelection(w.model().beginTime(), 100000);
        w.highLightSelectArea(&img);
        QCOMPARE(img.pixel(0, 30), qRgb(222, 222, 222));
        QCOMPARE(img.pixel(49, 30), qRgb(222, 222, 222));
    }

    void shouldOutlinePanelWithSmallRoundedCorners()
    {
        CWaveWnd w;
        const QRect rect(QPoint(10, 19), QPoint(209, 119)); // 200 x 101
        const QPainterPath path = w.roundRectPath(rect);
        // half = 50, d = 12: the outline starts half the short side down the
        // right edge.
        QCOMPARE(QPointF(path.elementAt(0)), QPointF(209, 69));
        QCOMPARE(path.boundingRect(), QRectF(10, 19, 199, 100));
        QVERIFY(path.contains(QPointF(110, 70)));
        // The corners are cut by arcs of a 12-pixel square.
        QVERIFY(!path.contains(QPointF(10.5, 19.5)));
        QVERIFY(!path.contains(QPointF(208.5, 118.5)));
        QVERIFY(path.contains(QPointF(16, 25)));
        QVERIFY(path.contains(QPointF(203, 113)));
    }

    void shouldSaveScreenshotOfASong()
    {
        const int rate = 44100;
        const std::vector<qint16> song = twed::synthSong(rate, 92.0);
        const QString path = dir.filePath("song.wav");
        QVERIFY(tw::writeWav(path, rate, 2, 16, qint64(song.size() / 2),
                             [&](qint64 f, int c) { return int(song[size_t(f * 2 + c)]); }));

        QWidget frame;
        frame.setObjectName("editorFrame");
        frame.setStyleSheet("#editorFrame { background-color: #f7f8fa; }");
        frame.resize(897, 300);
        CWaveWnd w(&frame);
        w.resize(897, 300);
        QCOMPARE(twed::load(w, path), 0);
        w.setBeginTime(20500LL);
        w.setEndTime(47000LL);
        w.model().setPlayPos(31000);
        frame.show();
        QVERIFY(QTest::qWaitForWindowExposed(&frame));

        const QImage img = frame.grab().toImage();
        const QString out = QCoreApplication::applicationDirPath() + "/editor-screenshot.png";
        QVERIFY(img.save(out));
        const QImage rgb = img.convertToFormat(QImage::Format_RGB32);
        const int h = drawHeight(w);
        QVERIFY(countWave(rgb, 320, h, true) > 5);  // 32 s, inside
        QVERIFY(countWave(rgb, 710, h, false) > 5); // 71 s, outside
    }
};

TW_TEST_MAIN(TestWaveWndPaint)
#include "tst_wavewnd_paint.moc"
