// The video preview with a 720p H.264 video: the time from waveOpened to the
// first picture painted in the pane (median of 7), and the CPU the pane uses
// while playing 10 s at its display size (240 x 180), beside the ffmpeg
// command line decoding the same 10 s at that size in real time (-re). CPU
// is user + system time over the wall time, in % of one core.

#include "engine/previewwnd.h"
#include "testenv.h"

#include <videownd.h>

#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QEvent>
#include <QEventLoop>
#include <QFile>
#include <QProcess>
#include <QTimer>

#include <sys/resource.h>

#include <algorithm>
#include <cstdio>
#include <vector>

namespace {

double cpuSeconds(int who)
{
    rusage usage{};
    getrusage(who, &usage);
    return usage.ru_utime.tv_sec + usage.ru_utime.tv_usec / 1e6 + usage.ru_stime.tv_sec +
           usage.ru_stime.tv_usec / 1e6;
}

double median(std::vector<double> v)
{
    std::sort(v.begin(), v.end());
    return v[v.size() / 2];
}

// Notes the first paint of the video widget that shows a picture.
class PaintWatch : public QObject
{
public:
    CVideoWnd* video = nullptr;
    bool painted = false;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::Paint && video->frameCount() > 0)
            painted = true;
        return QObject::eventFilter(watched, event);
    }
};

} // namespace

int main(int argc, char* argv[])
{
    tw::isolateEnvironment();
    QApplication app(argc, argv);
    tw::setIdentity();
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});

    const QString dir = QDir(QCoreApplication::applicationDirPath()).filePath("bench-data");
    QDir().mkpath(dir);
    const QString video = dir + "/preview-720p.mp4";
    if (!QFile::exists(video) &&
        !tw::ffmpeg({"-f", "lavfi", "-i", "testsrc2=size=1280x720:rate=30:duration=30", "-f",
                     "lavfi", "-i", "sine=frequency=440:duration=30", "-c:v", "libx264", "-preset",
                     "veryfast", "-pix_fmt", "yuv420p", "-c:a", "aac", video})) {
        std::printf("could not make the video\n");
        return 1;
    }
    std::printf("Video preview, %s (1280x720 H.264, 30 fps)\n", qPrintable(video));

    CRingToneNode node;
    node.strPath = video;
    node.bVideo = 1;

    // --- waveOpened to the first picture on screen
    std::vector<double> firsts;
    for (int run = 0; run < 7; ++run) {
        CPreviewWnd pane;
        pane.resize(240, 180);
        pane.show();
        auto* videoWnd = pane.findChild<CVideoWnd*>("videoWnd");
        PaintWatch watch;
        watch.video = videoWnd;
        videoWnd->installEventFilter(&watch);
        QCoreApplication::processEvents();
        QElapsedTimer clock;
        clock.start();
        pane.waveOpened(node);
        while (!watch.painted && clock.elapsed() < 10000)
            QCoreApplication::processEvents(QEventLoop::AllEvents, 5);
        firsts.push_back(double(clock.nsecsElapsed()) / 1e6);
        pane.stop();
    }
    std::printf("  waveOpened to the first picture painted (median of 7): %.1f ms\n",
                median(firsts));

    // --- playing 10 s at display size, the sound's clock fed as the editor does
    CPreviewWnd pane;
    pane.resize(240, 180);
    pane.show();
    pane.waveOpened(node);
    auto* videoWnd = pane.findChild<CVideoWnd*>("videoWnd");
    while (videoWnd->frameCount() == 0)
        QCoreApplication::processEvents(QEventLoop::AllEvents, 5);
    QElapsedTimer sound;
    QTimer feed;
    QObject::connect(&feed, &QTimer::timeout, [&] { pane.playPosChanged(1000 + sound.elapsed()); });
    const int before = videoWnd->frameCount();
    const double cpuBefore = cpuSeconds(RUSAGE_SELF);
    sound.start();
    pane.playPosChanged(1000);
    feed.start(50);
    pane.play(1000, false);
    // The GUI thread rests in its event loop, as the program's does; a
    // polling loop here would take a core from the decoder.
    QEventLoop playing;
    QTimer::singleShot(10000, &playing, &QEventLoop::quit);
    playing.exec();
    const double wall = sound.elapsed() / 1000.0;
    const double ours = (cpuSeconds(RUSAGE_SELF) - cpuBefore) / wall * 100.0;
    const int pictures = videoWnd->frameCount() - before;
    pane.stop();
    std::printf("  the pane playing 10 s: %.1f %% of a core, %d pictures shown (%.1f a second)\n",
                ours, pictures, pictures / wall);

    // --- the ffmpeg command line, real time, same span and size
    const double childrenBefore = cpuSeconds(RUSAGE_CHILDREN);
    QElapsedTimer ffClock;
    ffClock.start();
    QProcess ff;
    ff.start("ffmpeg", {"-nostdin", "-v", "error", "-re", "-ss", "1", "-t", "10", "-i", video,
                        "-an", "-vf", "scale=240:-2", "-f", "null", "-"});
    ff.waitForFinished(60000);
    const double ffWall = ffClock.elapsed() / 1000.0;
    const double theirs = (cpuSeconds(RUSAGE_CHILDREN) - childrenBefore) / ffWall * 100.0;
    std::printf("  ffmpeg -re decoding the same 10 s to 240 px: %.1f %% of a core\n", theirs);
    std::printf("  ratio (pane / ffmpeg): %.2f\n", ours / theirs);
    return 0;
}
