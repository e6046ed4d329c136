// Paint time of the waveform editor (897 x 300) on a 60-minute song (16-bit
// stereo, 44.1 kHz, about 635 MB) at the minimum zoom, at zoom 1 and at zoom 5
// scrolled to the middle. Prints medians; as a reference from the same run,
// ffmpeg drawing the same file's whole-wave picture (showwavespic) and the
// editor's one-time load (peak scan) of the file. The WAV is made in a
// temporary directory and removed at the end.

#include "editor/wavecolumns.h"
#include "editor/wavewnd.h"
#include "testenv.h"
#include "tests/editor/songsynth.h"
#include "tests/editor/wavewndfixture.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QPixmap>
#include <QScrollBar>
#include <QTemporaryDir>
#include <QTest>

#include <algorithm>
#include <cstdio>
#include <functional>
#include <vector>

namespace {

constexpr int kRate = 44100;
constexpr int kMinutes = 60;
constexpr int kRuns = 300;

void put32(QByteArray& b, quint32 v)
{
    for (int i = 0; i < 4; ++i)
        b.append(char((v >> (8 * i)) & 0xFF));
}

void put16(QByteArray& b, quint16 v)
{
    b.append(char(v & 0xFF));
    b.append(char(v >> 8));
}

// 60 minutes: an 88-second synthetic song repeated, written in big blocks.
bool writeHourLongSong(const QString& path)
{
    const std::vector<qint16> song = twed::synthSong(kRate, 88.0);
    const qint64 frames = qint64(kRate) * 60 * kMinutes;
    const quint32 dataBytes = quint32(frames * 4);
    QByteArray h;
    h.append("RIFF");
    put32(h, 36 + dataBytes);
    h.append("WAVEfmt ");
    put32(h, 16);
    put16(h, 1);
    put16(h, 2);
    put32(h, kRate);
    put32(h, kRate * 4);
    put16(h, 4);
    put16(h, 16);
    h.append("data");
    put32(h, dataBytes);
    QFile f(path);
    if (!f.open(QIODevice::WriteOnly) || f.write(h) != 44)
        return false;
    const qint64 songFrames = qint64(song.size() / 2);
    const char* bytes = reinterpret_cast<const char*>(song.data());
    for (qint64 written = 0; written < frames;) {
        const qint64 n = std::min(songFrames, frames - written);
        if (f.write(bytes, n * 4) != n * 4)
            return false;
        written += n;
    }
    return true;
}

struct Figures
{
    double median;
    double p90;
    double best;
};

Figures measure(const std::function<void()>& paint)
{
    for (int i = 0; i < 10; ++i)
        paint();
    std::vector<double> ms;
    ms.reserve(kRuns);
    QElapsedTimer t;
    for (int i = 0; i < kRuns; ++i) {
        t.start();
        paint();
        ms.push_back(t.nsecsElapsed() / 1e6);
    }
    std::sort(ms.begin(), ms.end());
    return {ms[ms.size() / 2], ms[ms.size() * 9 / 10], ms.front()};
}

} // namespace

int main(int argc, char* argv[])
{
    tw::isolateEnvironment();
    if (qEnvironmentVariableIsEmpty("SDL_VIDEODRIVER"))
        qputenv("SDL_VIDEODRIVER", "dummy");
    QApplication app(argc, argv);
    tw::setIdentity();

    QTemporaryDir dir;
    const QString path = dir.filePath("hour.wav");
    QElapsedTimer t;
    t.start();
    if (!writeHourLongSong(path)) {
        std::printf("could not write %s\n", qPrintable(path));
        return 0;
    }
    std::printf("60-minute WAV: %.0f MB, written in %.1f s\n", QFile(path).size() / 1e6,
                t.elapsed() / 1000.0);

    CWaveWnd w;
    w.resize(897, 300);
    w.show();
    if (!QTest::qWaitForWindowExposed(&w)) {
        std::printf("the editor window was not exposed\n");
        return 0;
    }

    // Load: the engine's peak scan reads the whole file once.
    t.start();
    if (twed::load(w, path) != 0) {
        std::printf("the engine refused the file\n");
        return 0;
    }
    const double loadSeconds = t.elapsed() / 1000.0;

    QPixmap target(w.size());
    auto repaintOnce = [&] { w.repaint(); };
    auto renderOnce = [&] { w.render(&target); };
    QScrollBar* bar = w.scrollBarWidget();
    std::vector<QPoint> points(CWaveColumns::kPointCount);
    // The wave reduction alone, on the engine's peak table as painted.
    auto reduceOnce = [&] {
        const int columns = std::min(w.getLength() - w.model().scrollX(), w.width());
        CWaveColumns::reduce<qint16>(points.data(), w.model().scrollX(), w.model().framesPerPixel(),
                                     150, unsigned(columns), 240, w.playback().record().peakTable,
                                     2);
    };
    auto report = [&](const char* name) {
        const Figures r = measure(repaintOnce);
        const Figures g = measure(renderOnce);
        const Figures red = measure(reduceOnce);
        QPixmap barPixmap(bar->size());
        const Figures sb = measure([&] { bar->render(&barPixmap, QPoint(), QRegion(), {}); });
        std::printf("%-26s repaint median %6.3f ms (p90 %6.3f, best %6.3f); render to pixmap"
                    " %6.3f ms; of these: wave reduction %6.3f ms, scroll bar %6.3f ms\n",
                    name, r.median, r.p90, r.best, g.median, red.median, sb.median);
        return r.median;
    };

    std::printf("editor 897 x 300, %d paints per figure\n", kRuns);
    w.zoom(0.0f);
    const double fit = report("minimum zoom (whole song)");
    w.zoom(1.0f);
    bar->setValue(bar->maximum() / 2);
    report("zoom 1, middle");
    w.zoom(5.0f);
    bar->setValue(bar->maximum() / 2);
    report("zoom 5, middle");

    // ffmpeg drawing the same whole-song picture from the same file.
    const QString png = dir.filePath("wave.png");
    t.start();
    const bool ffOk = tw::ffmpeg(
        {"-i", path, "-filter_complex", "showwavespic=s=897x300", "-frames:v", "1", png});
    const double ffSeconds = t.elapsed() / 1000.0;
    std::printf("editor load (peak scan of the file): %.2f s\n", loadSeconds);
    if (ffOk) {
        std::printf("ffmpeg showwavespic 897x300 of the same file: %.2f s\n", ffSeconds);
        std::printf("ratio ffmpeg picture / editor paint at minimum zoom: %.0fx;"
                    " ffmpeg picture / editor load: %.1fx\n",
                    ffSeconds * 1000.0 / fit, ffSeconds / loadSeconds);
    } else {
        std::printf("ffmpeg showwavespic failed\n");
    }

    w.stop(); // closes the engine before the file goes
    QFile::remove(path);
    return 0;
}
