// Conversion speed and memory: the engine's KeloRun in process beside the
// ffmpeg command line doing the same work on the same files in the same run.
//   - MP3 to WAV (5 and 60 minutes) beside
//     ffmpeg -v error -y -i IN -ac 2 -ar 44100 -c:a pcm_s16le OUT.wav
//   - a 40-second AAC ringtone from a WAV beside
//     ffmpeg -v error -y -ss 30 -t 40 -i IN.wav -c:a aac -b:a 128k -f ipod OUT.m4r
//   - peak resident memory of the 60-minute conversion (a child process of
//     this program), beside ffmpeg's under /usr/bin/time.
// The source files are made once into bench-data/ beside this program.

#include "testenv.h"

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>

#include <algorithm>
#include <condition_variable>
#include <cstdio>
#include <cstring>
#include <mutex>
#include <vector>

#include <sys/resource.h>

#include <vexa.h>

namespace {

double median(std::vector<double> v)
{
    std::sort(v.begin(), v.end());
    const size_t n = v.size();
    return n % 2 ? v[n / 2] : (v[n / 2 - 1] + v[n / 2]) / 2;
}

struct Waiter
{
    std::mutex m;
    std::condition_variable cv;
    bool ended = false;
    int status = 0;

    static bool notify(tagKeloProgInfo* info, void* user)
    {
        auto* w = static_cast<Waiter*>(user);
        if (info->nProgress >= 10000 || info->nStatus < 0) {
            std::lock_guard<std::mutex> lock(w->m);
            w->ended = true;
            w->status = info->nStatus;
            w->cv.notify_all();
        }
        return true;
    }
};

// One conversion as the application makes it: add the item, run, wait.
int convert(const QString& src, const QString& dest, const char* format, int codec, qint64 start,
            qint64 end)
{
    static const int timeline = CreateTimelineEx("bench", -1);
    QFile::remove(dest);
    const QByteArray s = src.toLocal8Bit();
    const QByteArray d = dest.toLocal8Bit();
    tagKeloMediaSrc item;
    std::memset(&item, 0, sizeof item);
    item.pszPath = s.constData();
    item.llStart = start;
    item.llEnd = end;
    const int media = KeloAddMedia2(timeline, &item, 0, 0);
    if (media < 0)
        return media;
    Waiter w;
    tagKeloRunParam p;
    std::memset(&p, 0, sizeof p);
    p.pUser = &w;
    p.pfnNotify = &Waiter::notify;
    p.nReserved8 = -1;
    p.nAudioCodec = codec;
    p.nAudioBitRate = 128000;
    p.nSampleRate = 44100;
    p.nChannels = 2;
    p.nBitsPerSample = 16;
    p.pszFormat = format;
    p.pszDest = d.constData();
    int rc = KeloRun(timeline, &media, 1, &p);
    if (rc == KELO_OK) {
        std::unique_lock<std::mutex> lock(w.m);
        w.cv.wait(lock, [&] { return w.ended; });
        rc = w.status;
    }
    KeloRemoveMedia(timeline, media);
    return rc;
}

double timeCommand(const QString& program, const QStringList& args)
{
    QElapsedTimer t;
    t.start();
    QProcess p;
    p.start(program, args);
    p.waitForFinished(-1);
    const double ms = t.nsecsElapsed() / 1e6;
    return p.exitCode() == 0 ? ms : -1.0;
}

QString makeMp3(const QString& dir, int minutes)
{
    const QString path = QString("%1/tone %2 min.mp3").arg(dir).arg(minutes);
    if (QFile::exists(path))
        return path;
    std::printf("making %s ...\n", qPrintable(path));
    std::fflush(stdout);
    const QString seconds = QString::number(minutes * 60);
    QString err;
    if (!tw::ffmpeg({"-f", "lavfi", "-i",
                     "sine=frequency=440:sample_rate=44100:duration=" + seconds, "-f", "lavfi",
                     "-i", "anoisesrc=r=44100:a=0.05:d=" + seconds, "-filter_complex",
                     "amix=inputs=2,pan=stereo|c0=c0|c1=c0", "-c:a", "libmp3lame", "-b:a", "192k",
                     "-metadata", "title=Bench", path + ".part.mp3"},
                    &err)) {
        std::printf("ffmpeg failed: %s\n", qPrintable(err));
        return QString();
    }
    QFile::rename(path + ".part.mp3", path);
    return path;
}

// Child mode: one conversion, then the peak resident size in kilobytes.
int childConvert(const QString& src, const QString& dest)
{
    const int rc = convert(src, dest, "wav", KELO_CODEC_PCM_S16LE, 0, 0);
    rusage usage;
    getrusage(RUSAGE_SELF, &usage);
    std::printf("status %d maxrss_kb %ld\n", rc, usage.ru_maxrss);
    return rc == KELO_OK ? 0 : 1;
}

void row(const char* name, const std::vector<double>& ours, const std::vector<double>& theirs)
{
    const double a = median(ours);
    const double b = median(theirs);
    std::printf("%-34s %10.1f %12.1f %8.3f   (%zu runs each)\n", name, a, b, a / b, ours.size());
    std::fflush(stdout);
}

} // namespace

int main(int argc, char* argv[])
{
    if (argc == 4 && std::strcmp(argv[1], "--convert") == 0) {
        QCoreApplication app(argc, argv);
        return childConvert(QString::fromLocal8Bit(argv[2]), QString::fromLocal8Bit(argv[3]));
    }
    tw::isolateEnvironment();
    QApplication app(argc, argv);
    tw::setIdentity();

    const QString dir = QCoreApplication::applicationDirPath() + "/bench-data";
    QDir().mkpath(dir);
    const QString mp3Short = makeMp3(dir, 5);
    const QString mp3Long = makeMp3(dir, 60);
    if (mp3Short.isEmpty() || mp3Long.isEmpty())
        return 1;
    const QString wavOurs = dir + "/ours.wav";
    const QString wavTheirs = dir + "/theirs.wav";
    const QString m4rOurs = dir + "/ours.m4r";
    const QString m4rTheirs = dir + "/theirs.m4r";

    std::printf("%-34s %10s %12s %8s\n", "task", "ours ms", "ffmpeg ms", "ratio");
    struct WavCase
    {
        const char* name;
        QString src;
        int runs;
    };
    for (const WavCase& c :
         {WavCase{"mp3 5 min -> wav", mp3Short, 7}, WavCase{"mp3 60 min -> wav", mp3Long, 3}}) {
        std::vector<double> ours, theirs;
        for (int i = 0; i < c.runs; ++i) {
            // Alternate the two so that neither gets a warmer machine.
            QElapsedTimer t;
            t.start();
            const int rc = convert(c.src, wavOurs, "wav", KELO_CODEC_PCM_S16LE, 0, 0);
            ours.push_back(rc == KELO_OK ? t.nsecsElapsed() / 1e6 : -1.0);
            QFile::remove(wavTheirs);
            theirs.push_back(
                timeCommand("ffmpeg", {"-v", "error", "-y", "-i", c.src, "-ac", "2", "-ar", "44100",
                                       "-c:a", "pcm_s16le", wavTheirs}));
        }
        row(c.name, ours, theirs);
    }

    // The ringtone is cut from the 5-minute song's WAV, as the editor does.
    if (convert(mp3Short, wavOurs, "wav", KELO_CODEC_PCM_S16LE, 0, 0) != KELO_OK)
        return 1;
    {
        std::vector<double> ours, theirs;
        for (int i = 0; i < 7; ++i) {
            QElapsedTimer t;
            t.start();
            const int rc = convert(wavOurs, m4rOurs, "mp4", KELO_CODEC_AAC, 30000, 70000);
            ours.push_back(rc == KELO_OK ? t.nsecsElapsed() / 1e6 : -1.0);
            QFile::remove(m4rTheirs);
            theirs.push_back(
                timeCommand("ffmpeg", {"-v", "error", "-y", "-ss", "30", "-t", "40", "-i", wavOurs,
                                       "-c:a", "aac", "-b:a", "128k", "-f", "ipod", m4rTheirs}));
        }
        row("wav -> 40 s aac ringtone (.m4r)", ours, theirs);
    }

    // Peak memory of the 60-minute conversion, each in its own process.
    QProcess child;
    child.start(QCoreApplication::applicationFilePath(), {"--convert", mp3Long, wavOurs});
    child.waitForFinished(-1);
    const QString childOut = QString::fromLocal8Bit(child.readAllStandardOutput()).trimmed();
    QProcess timed;
    timed.start("/usr/bin/time",
                {"-f", "maxrss_kb %M", "ffmpeg", "-v", "error", "-y", "-i", mp3Long, "-ac", "2",
                 "-ar", "44100", "-c:a", "pcm_s16le", wavTheirs});
    timed.waitForFinished(-1);
    const QString timedOut = QString::fromLocal8Bit(timed.readAllStandardError()).trimmed();
    std::printf("peak RSS, 60 min mp3 -> wav: ours [%s], ffmpeg [%s]\n", qPrintable(childOut),
                qPrintable(timedOut.section('\n', -1)));
    std::printf(
        "medians of wall time; ratio = ours / ffmpeg command (ours skips a process start)\n");
    for (const QString& f : {wavOurs, wavTheirs, m4rOurs, m4rTheirs})
        QFile::remove(f);
    return 0;
}
