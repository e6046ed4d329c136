// Probing speed: CTimeLineHelper::haveAudio in process beside
// `ffprobe -v error -show_streams FILE` run as a command, on the same files.

#include "engine/timelinehelper.h"
#include "mediafixtures.h"
#include "testenv.h"

#include <QElapsedTimer>
#include <QProcess>

#include <algorithm>
#include <cstdio>
#include <vector>

namespace {

double median(std::vector<double> v)
{
    std::sort(v.begin(), v.end());
    const size_t n = v.size();
    return n % 2 ? v[n / 2] : (v[n / 2 - 1] + v[n / 2]) / 2;
}

} // namespace

int main(int argc, char* argv[])
{
    tw::isolateEnvironment();
    QApplication app(argc, argv);
    tw::setIdentity();

    struct Item
    {
        const char* name;
        QString path;
    };
    const std::vector<Item> files = {
        {"mp3 (3 min)", tw::mp3Fixture(180)},
        {"mp4 h264+aac", tw::mp4AvFixture(10)},
        {"flac", tw::flacFixture(30)},
        {"wav", tw::wavFixture(30)},
    };

    const int inProcessRuns = 101;
    const int commandRuns = 21;
    std::printf("%-16s %14s %18s %8s\n", "file", "haveAudio ms", "ffprobe cmd ms", "ratio");
    for (const Item& f : files) {
        const QByteArray local = f.path.toLocal8Bit();
        std::vector<double> ours;
        bool audio = false;
        for (int i = 0; i < inProcessRuns; ++i) {
            QElapsedTimer t;
            t.start();
            audio = CTimeLineHelper::haveAudio(local.constData());
            ours.push_back(t.nsecsElapsed() / 1e6);
        }
        std::vector<double> theirs;
        for (int i = 0; i < commandRuns; ++i) {
            QElapsedTimer t;
            t.start();
            QProcess p;
            p.start("ffprobe", {"-v", "error", "-show_streams", f.path});
            p.waitForFinished(-1);
            theirs.push_back(t.nsecsElapsed() / 1e6);
        }
        const double a = median(ours);
        const double b = median(theirs);
        std::printf("%-16s %14.3f %18.3f %8.4f%s\n", f.name, a, b, a / b,
                    audio ? "" : "  (no audio found!)");
    }
    std::printf("medians of %d in-process probes and %d command runs; ratio = ours / ffprobe\n",
                inProcessRuns, commandRuns);
    return 0;
}
