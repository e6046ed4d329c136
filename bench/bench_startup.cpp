// Start-up with a large library: the time from the start of the main
// window's construction to its first paint, for a Music folder of 20 000
// tagged MP3 files, with the library loaded on the GUI thread before the
// window can paint (how it was) and with the library loading beside the
// window (how it is), first without and then with the scan cache. For the
// second, also the time until the library tree has filled itself. Medians of 3 runs; the ffmpeg
// command line has no counterpart here, so the ratio is after / before.
// The folder is made once under build/bench-data/ (hard links of one file
// per album keep it small).

#include "engine/platformfolders.h"
#include "library/libraryloader.h"
#include "testenv.h"
#include "ui/mainwnd.h"

#include <itunesagent.h>

#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QEvent>
#include <QFile>

#include <taglib/fileref.h>
#include <taglib/tag.h>

#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <vector>

namespace {

constexpr int kFiles = 20000;
constexpr int kPerAlbum = 20;

double median(std::vector<double> v)
{
    std::sort(v.begin(), v.end());
    return v[v.size() / 2];
}

void quiet(const char*, void*) {}
void quietQt(QtMsgType, const QMessageLogContext&, const QString&) {}

// One tagged file per album, hard-linked under the names of its tracks.
bool makeMusic(const QString& music)
{
    const QString done = music + "/.complete";
    if (QFile::exists(done))
        return true;
    QDir(music).removeRecursively();
    QDir().mkpath(music);
    const QString seed = music + "/.seed.mp3";
    if (!tw::ffmpeg({"-f", "lavfi", "-i", "sine=frequency=440:duration=0.3", "-c:a", "libmp3lame",
                     "-b:a", "32k", seed}))
        return false;
    for (int album = 0; album < kFiles / kPerAlbum; ++album) {
        const QString dir = QString("%1/Artist %2/Album %3").arg(music).arg(album % 50).arg(album);
        QDir().mkpath(dir);
        const QString first = dir + "/01 Track.mp3";
        if (!QFile::copy(seed, first))
            return false;
        TagLib::FileRef ref(QFile::encodeName(first).constData());
        if (ref.isNull())
            return false;
        ref.tag()->setTitle("Track");
        ref.tag()->setArtist(
            TagLib::String(QString("Artist %1").arg(album % 50).toUtf8().constData()));
        ref.tag()->setAlbum(TagLib::String(QString("Album %1").arg(album).toUtf8().constData()));
        ref.save();
        for (int track = 2; track <= kPerAlbum; ++track) {
            const QString name = QString("%1/%2 Track.mp3").arg(dir).arg(track, 2, 10, QChar('0'));
            if (link(QFile::encodeName(first).constData(), QFile::encodeName(name).constData()))
                return false;
        }
    }
    QFile::remove(seed);
    QFile f(done);
    return f.open(QIODevice::WriteOnly);
}

// Records when the window first paints.
class FirstPaint : public QObject
{
public:
    explicit FirstPaint(const QElapsedTimer& clock) : m_clock(clock) {}
    double at = -1;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::Paint && at < 0)
            at = double(m_clock.nsecsElapsed()) / 1e6;
        return QObject::eventFilter(watched, event);
    }

private:
    const QElapsedTimer& m_clock;
};

struct Run
{
    double firstPaint = 0;
    double filled = 0; // the tree shows the library
};

// One start: (the loader,) the main window, shown.
Run start(bool beside)
{
    ItunesAgentReset();
    QElapsedTimer clock;
    clock.start();
    if (beside)
        CLibraryLoader::instance()->start();
    CMainWnd wnd;
    FirstPaint paint(clock);
    wnd.installEventFilter(&paint);
    wnd.show();
    while (paint.at < 0)
        QCoreApplication::processEvents(QEventLoop::AllEvents, 5);
    Run run;
    run.firstPaint = paint.at;
    while (CLibraryLoader::instance()->isLoading())
        QCoreApplication::processEvents(QEventLoop::AllEvents, 5);
    run.filled = double(clock.nsecsElapsed()) / 1e6;
    return run;
}

void measure(const char* label, bool withCache, const QString& cache)
{
    std::vector<double> beforePaint, afterPaint, afterFilled;
    for (int i = 0; i < 3; ++i) {
        if (!withCache)
            QFile::remove(cache);
        beforePaint.push_back(start(false).firstPaint);
        if (!withCache)
            QFile::remove(cache);
        const Run after = start(true);
        afterPaint.push_back(after.firstPaint);
        afterFilled.push_back(after.filled);
    }
    const double before = median(beforePaint);
    const double now = median(afterPaint);
    std::printf("%s\n", label);
    std::printf("  start to first paint, library loaded first:   %9.1f ms\n", before);
    std::printf("  start to first paint, library loading beside: %9.1f ms  (ratio %.4f)\n", now,
                now / before);
    std::printf("  start to the tree filled, loading beside:     %9.1f ms\n", median(afterFilled));
}

} // namespace

int main(int argc, char* argv[])
{
    tw::isolateEnvironment();
    QApplication app(argc, argv);
    tw::setIdentity();
    ItunesAgentSetLogger(&quiet, nullptr);
    qInstallMessageHandler(quietQt); // the agent's log lines would drown the figures

    const QString music =
        QDir(QCoreApplication::applicationDirPath()).filePath("bench-data/music-20k");
    std::printf("Making %d tagged MP3 files under %s (kept for later runs)...\n", kFiles,
                qPrintable(music));
    std::fflush(stdout);
    if (!makeMusic(music)) {
        std::printf("could not make the Music folder\n");
        return 1;
    }
    ItunesAgentSetFolders(QFile::encodeName(music).constData(), nullptr,
                          QFile::encodeName(programCacheDir()).constData());
    ItunesAgentSetLibraryFile(nullptr);
    const QString cache = programCacheDir() + "/library-cache.bin";
    measure("First start (no scan cache):", false, cache);
    measure("Later starts (scan cache present):", true, cache);
    return 0;
}
