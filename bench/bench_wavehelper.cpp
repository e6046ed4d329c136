// How long WaveHelperInit (header, peak scan, SDL device) takes on 5- and
// 60-minute 16-bit stereo 44.1 kHz WAV files, beside `cat file > /dev/null`
// on the same warm files in the same run, and how much memory the 60-minute
// open takes. Prints figures only.
//
// Run with --rss FILE (done by the bench itself in a child process) to
// print the memory figures of one open.

#include "audio/wavehelper.h"

#include <SDL.h>

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QString>
#include <QTemporaryDir>

#include <sys/resource.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <malloc.h>
#include <new>
#include <vector>

namespace {

using Clock = std::chrono::steady_clock;

double seconds(Clock::time_point a, Clock::time_point b)
{
    return std::chrono::duration<double>(b - a).count();
}

double median(std::vector<double> v)
{
    std::sort(v.begin(), v.end());
    const size_t n = v.size();
    return n % 2 ? v[n / 2] : (v[n / 2 - 1] + v[n / 2]) / 2;
}

long maxRssKiB()
{
    rusage u;
    getrusage(RUSAGE_SELF, &u);
    return u.ru_maxrss;
}

size_t heapInUse()
{
    const struct mallinfo2 m = mallinfo2();
    return m.uordblks + m.hblkhd;
}

// Noise in a canonical 16-bit stereo 44.1 kHz WAV, written in 1 MiB blocks.
bool writeWav(const QString& path, double minutes)
{
    const quint64 frames = quint64(minutes * 60 * 44100);
    const quint32 dataSize = quint32(frames * 4);
    QFile f(path);
    if (!f.open(QIODevice::WriteOnly | QIODevice::Truncate))
        return false;
    unsigned char h[44] = {'R', 'I', 'F',  'F',  0,   0,   0,    0,    'W', 'A', 'V',
                           'E', 'f', 'm',  't',  ' ', 16,  0,    0,    0,   1,   0,
                           2,   0,   0x44, 0xAC, 0,   0,   0x10, 0xB1, 2,   0,   4,
                           0,   16,  0,    'd',  'a', 't', 'a',  0,    0,   0,   0};
    const quint32 riff = 36 + dataSize;
    std::memcpy(h + 4, &riff, 4);
    std::memcpy(h + 40, &dataSize, 4);
    f.write(reinterpret_cast<const char*>(h), 44);
    QByteArray block(1 << 20, Qt::Uninitialized);
    quint32 x = 12345;
    quint64 left = dataSize;
    while (left > 0) {
        const qsizetype n = qsizetype(std::min<quint64>(left, quint64(block.size())));
        for (qsizetype i = 0; i < n; i += 4) {
            x = x * 1664525u + 1013904223u;
            std::memcpy(block.data() + i, &x, 4);
        }
        if (f.write(block.constData(), n) != n)
            return false;
        left -= quint64(n);
    }
    return true;
}

double timeCat(const QString& path)
{
    const QByteArray cmd = "cat '" + path.toLocal8Bit() + "' > /dev/null";
    const auto a = Clock::now();
    if (std::system(cmd.constData()) != 0)
        std::printf("  (cat failed)\n");
    return seconds(a, Clock::now());
}

// The scan's own read pattern without the peak computation: 32 KiB reads
// into a 64-byte aligned buffer through stdio.
double timeReadLoop(const QString& path)
{
    const auto a = Clock::now();
    FILE* f = std::fopen(path.toLocal8Bit().constData(), "rb");
    if (!f)
        return 0;
    auto* buf = static_cast<unsigned char*>(::operator new(32768, std::align_val_t(64)));
    std::fseek(f, 44, SEEK_SET);
    while (std::fread(buf, 1, 32768, f) == 32768) {
    }
    ::operator delete(buf, std::align_val_t(64));
    std::fclose(f);
    return seconds(a, Clock::now());
}

double timeInit(const QString& path)
{
    tagWaveInfo w;
    std::memset(&w, 0, sizeof w);
    const auto a = Clock::now();
    const int rc = WaveHelperInit(path.toLocal8Bit().constData(), &w);
    const double t = seconds(a, Clock::now());
    if (rc != 0)
        std::printf("  (WaveHelperInit returned %d)\n", rc);
    WaveHelperUninit(&w);
    return t;
}

void measure(const QString& path, const char* label, int runs)
{
    timeCat(path); // warm the cache
    std::vector<double> cat, loop, init;
    for (int i = 0; i < runs; ++i) {
        cat.push_back(timeCat(path));
        loop.push_back(timeReadLoop(path));
        init.push_back(timeInit(path));
    }
    const double c = median(cat);
    const double l = median(loop);
    const double w = median(init);
    std::printf("%-7s %5.0f MB  cat %.3f s  read loop %.3f s  WaveHelperInit %.3f s  "
                "ratio init/cat %.2f  (medians of %d)\n",
                label, QFile(path).size() / 1e6, c, l, w, w / c, runs);
}

// Child mode: the memory one open of `path` takes.
int rssMode(const char* path)
{
    const long startRss = maxRssKiB();
    SDL_SetHint(SDL_HINT_NO_SIGNAL_HANDLERS, "1");
    SDL_Init(SDL_INIT_TIMER | SDL_INIT_AUDIO | SDL_INIT_VIDEO);
    const long sdlRss = maxRssKiB();
    const size_t heapBefore = heapInUse();
    tagWaveInfo w;
    std::memset(&w, 0, sizeof w);
    const int rc = WaveHelperInit(path, &w);
    const long initRss = maxRssKiB();
    const size_t heapAfter = heapInUse();
    std::printf("60-min open (rc %d): peak RSS %ld KiB at start, %ld KiB after SDL start-up, "
                "%ld KiB after WaveHelperInit (+%ld KiB)\n",
                rc, startRss, sdlRss, initRss, initRss - sdlRss);
    std::printf("  heap held after WaveHelperInit: +%.2f MiB (raw buffer 4.00 MiB, peak table "
                "%.2f MiB, %d entries)\n",
                double(heapAfter - heapBefore) / 1048576.0, 8.0 * w.peakCount / 1048576.0,
                w.peakCount);
    WaveHelperUninit(&w);
    return 0;
}

} // namespace

int main(int argc, char* argv[])
{
    if (argc == 3 && std::strcmp(argv[1], "--rss") == 0)
        return rssMode(argv[2]);

    QTemporaryDir dir(QDir::tempPath() + "/bench_wavehelper-XXXXXX");
    if (!dir.isValid())
        return 1;
    const QString five = dir.filePath("five.wav");
    const QString sixty = dir.filePath("sixty.wav");
    std::printf("writing 5- and 60-minute 16-bit stereo 44.1 kHz WAV files...\n");
    std::fflush(stdout);
    if (!writeWav(five, 5) || !writeWav(sixty, 60)) {
        std::printf("cannot write the WAV files in %s\n", qPrintable(dir.path()));
        return 1;
    }
    measure(five, "5 min", 15);
    measure(sixty, "60 min", 7);

    std::fflush(stdout);
    const QByteArray child = QByteArray("'") + argv[0] + "' --rss '" + sixty.toLocal8Bit() + "'";
    if (std::system(child.constData()) != 0)
        std::printf("(memory child failed)\n");
    QFile::remove(sixty);
    QFile::remove(five);
    return 0;
}
