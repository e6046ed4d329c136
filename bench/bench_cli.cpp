// The command line's speed: tonewright-cli making ten 30-second ringtones
// (from 0:30 to 1:00) out of ten 5-minute MP3 files, and then out of ten
// 60-minute ones, beside a shell loop of the ffmpeg command doing the same,
//   ffmpeg -ss 30 -t 30 -i IN.mp3 -ac 2 -ar 44100 -c:a aac -b:a 128k -f ipod OUT.m4r
// (-f ipod: ffmpeg does not know the .m4r name) in the same run,
// alternating, several times each; medians and ratios.
//   - tonewright-cli -d: all ten in one batch, one child run per core
//   - tonewright-cli one input a run, ten runs one after the other
//   - the ffmpeg loop, and ffmpeg two at a time (xargs -P 2) for the batch's
//     fair match
//   - the peak memory of a batch of ten (the batch and its children
//     together, sampled every 10 ms) beside ffmpeg two at a time
// The command line seeks and decodes only the span, as ffmpeg does; its
// summary line also measures the written file's loudness and true peak.
// The songs are made once into bench-data/cli/ beside this program (the
// 60-minute ones are copies of one song).

#include "testenv.h"

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QMap>
#include <QProcess>
#include <QThread>

#include <algorithm>
#include <cstdio>
#include <vector>

namespace {

constexpr int kSongs = 10;
constexpr int kRuns = 3;

double median(std::vector<double> v)
{
    std::sort(v.begin(), v.end());
    const size_t n = v.size();
    return n % 2 ? v[n / 2] : (v[n / 2 - 1] + v[n / 2]) / 2;
}

// Wall time of one command in ms; -1 when it failed.
double timeCommand(const QString& program, const QStringList& args)
{
    QElapsedTimer t;
    t.start();
    QProcess p;
    p.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    p.start(program, args);
    p.waitForFinished(-1);
    const double ms = t.nsecsElapsed() / 1e6;
    return p.exitStatus() == QProcess::NormalExit && p.exitCode() == 0 ? ms : -1.0;
}

QString makeSong(const QString& dir, int index)
{
    const QString path = QString("%1/song %2.mp3").arg(dir).arg(index, 2, 10, QChar('0'));
    if (QFile::exists(path))
        return path;
    std::printf("making %s ...\n", qPrintable(path));
    std::fflush(stdout);
    // A different tone in each, with noise, so that no two files are alike.
    const QString tone =
        QString("sine=frequency=%1:sample_rate=44100:duration=300").arg(220 + 55 * index);
    QString err;
    if (!tw::ffmpeg({"-f", "lavfi", "-i", tone, "-f", "lavfi", "-i",
                     "anoisesrc=r=44100:a=0.05:d=300", "-filter_complex",
                     "amix=inputs=2,pan=stereo|c0=c0|c1=c0", "-c:a", "libmp3lame", "-b:a", "192k",
                     path + ".part.mp3"},
                    &err)) {
        std::printf("ffmpeg failed: %s\n", qPrintable(err));
        return QString();
    }
    QFile::rename(path + ".part.mp3", path);
    return path;
}

// Makes the 60-minute song once and nine copies of it.
QStringList makeLongSongs(const QString& dir)
{
    const QString first = dir + "/long 00.mp3";
    if (!QFile::exists(first)) {
        std::printf("making %s ...\n", qPrintable(first));
        std::fflush(stdout);
        QString err;
        if (!tw::ffmpeg({"-f", "lavfi", "-i", "sine=frequency=247:sample_rate=44100:duration=3600",
                         "-f", "lavfi", "-i", "anoisesrc=r=44100:a=0.05:d=3600", "-filter_complex",
                         "amix=inputs=2,pan=stereo|c0=c0|c1=c0", "-c:a", "libmp3lame", "-b:a",
                         "128k", "-compression_level", "9", first + ".part.mp3"},
                        &err)) {
            std::printf("ffmpeg failed: %s\n", qPrintable(err));
            return {};
        }
        QFile::rename(first + ".part.mp3", first);
    }
    QStringList songs{first};
    for (int i = 1; i < kSongs; ++i) {
        const QString copy = QString("%1/long %2.mp3").arg(dir).arg(i, 2, 10, QChar('0'));
        if (!QFile::exists(copy) && !QFile::copy(first, copy))
            return {};
        songs << copy;
    }
    return songs;
}

// The resident memory of a process and all its descendants, in kB.
long treeRssKb(qint64 root)
{
    QMap<qint64, qint64> parents;
    QMap<qint64, long> rss;
    for (const QString& entry : QDir("/proc").entryList(QDir::Dirs)) {
        bool number = false;
        const qint64 pid = entry.toLongLong(&number);
        if (!number)
            continue;
        QFile stat("/proc/" + entry + "/stat");
        QFile status("/proc/" + entry + "/status");
        if (!stat.open(QIODevice::ReadOnly) || !status.open(QIODevice::ReadOnly))
            continue;
        const QByteArray line = stat.readAll();
        // The name may hold spaces: the fields after it follow its ')'.
        const QList<QByteArray> fields = line.mid(line.lastIndexOf(')') + 2).split(' ');
        if (fields.size() > 1)
            parents[pid] = fields[1].toLongLong();
        for (const QByteArray& l : status.readAll().split('\n'))
            if (l.startsWith("VmRSS:"))
                rss[pid] = l.mid(6).trimmed().split(' ').value(0).toLong();
    }
    long total = 0;
    for (auto it = rss.cbegin(); it != rss.cend(); ++it) {
        qint64 p = it.key();
        for (int depth = 0; depth < 8 && p > 1 && p != root; ++depth)
            p = parents.value(p, 0);
        if (p == root)
            total += it.value();
    }
    return total;
}

// Runs a command and samples its tree's memory; the peak in kB.
long peakRssKb(const QString& program, const QStringList& args)
{
    QProcess p;
    p.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    p.start(program, args);
    if (!p.waitForStarted())
        return -1;
    long peak = 0;
    while (!p.waitForFinished(10))
        peak = std::max(peak, treeRssKb(p.processId()));
    return p.exitCode() == 0 ? peak : -1;
}

QString quoted(const QString& path)
{
    return "'" + QString(path).replace("'", "'\\''") + "'";
}

// The ffmpeg command of the issue over every song, in a shell loop.
QString ffmpegLoop(const QStringList& songs, const QString& theirs)
{
    QString loop = "set -e; for f in";
    for (const QString& song : songs)
        loop += " " + quoted(song);
    loop += QString("; do ffmpeg -nostdin -v error -y -ss 30 -t 30 -i \"$f\" -ac 2 -ar 44100 "
                    "-c:a aac -b:a 128k -f ipod %1/\"$(basename \"$f\" .mp3)\".m4r; done")
                .arg(quoted(theirs));
    return loop;
}

// The same, two at a time.
QString ffmpegParallel(const QStringList& songs, const QString& theirs)
{
    QString parallel = "printf '%s\\0'";
    for (const QString& song : songs)
        parallel += " " + quoted(song);
    parallel +=
        QString(" | xargs -0 -P 2 -I{} sh -c 'ffmpeg -nostdin -v error -y -ss 30 -t 30 "
                "-i \"$1\" -ac 2 -ar 44100 -c:a aac -b:a 128k -f ipod %1/\"$(basename \"$1\" "
                ".mp3)\".m4r' _ {}")
            .arg(quoted(theirs));
    return parallel;
}

void row(const char* name, const std::vector<double>& ours, const std::vector<double>& theirs)
{
    const double a = median(ours);
    const double b = median(theirs);
    std::printf("%-50s %10.1f %12.1f %8.3f\n", name, a, b, a / b);
    std::fflush(stdout);
}

} // namespace

int main(int argc, char* argv[])
{
    tw::isolateEnvironment();
    QCoreApplication app(argc, argv);

    const QString cli = QCoreApplication::applicationDirPath() + "/tonewright-cli";
    if (!QFile::exists(cli)) {
        std::printf("%s is missing: build the tonewright-cli target\n", qPrintable(cli));
        return 1;
    }
    const QString dir = QCoreApplication::applicationDirPath() + "/bench-data/cli";
    const QString ours = dir + "/ours";
    const QString theirs = dir + "/theirs";
    QDir().mkpath(ours);
    QDir().mkpath(theirs);
    QStringList songs;
    for (int i = 0; i < kSongs; ++i) {
        const QString song = makeSong(dir, i);
        if (song.isEmpty())
            return 1;
        songs << song;
    }

    const QStringList longSongs = makeLongSongs(dir);
    if (longSongs.isEmpty())
        return 1;

    const QStringList span{"--start", "0:30", "--length", "30", "--force", "-q"};
    std::printf("%d cores; medians of %d runs each\n", QThread::idealThreadCount(), kRuns);
    std::printf("%-50s %10s %12s %8s\n", "task", "ours ms", "ffmpeg ms", "ratio");
    for (const QStringList* set : {static_cast<const QStringList*>(&songs), &longSongs}) {
        const bool isLong = set == &longSongs;
        const QString loop = ffmpegLoop(*set, theirs);
        const QString parallel = ffmpegParallel(*set, theirs);
        std::vector<double> batch, single, ffLoop, ffParallel, oneOurs, oneTheirs;
        for (int run = 0; run < kRuns; ++run) {
            // Alternated, so that neither side gets a warmer machine.
            batch.push_back(timeCommand(cli, QStringList(*set) << "-d" << ours << span));
            ffLoop.push_back(timeCommand("sh", {"-c", loop}));
            if (!isLong) {
                QElapsedTimer t;
                t.start();
                bool ok = true;
                for (const QString& song : *set)
                    ok =
                        timeCommand(cli, QStringList{song, "-o", ours + "/one.m4r"} << span) >= 0 &&
                        ok;
                single.push_back(ok ? t.nsecsElapsed() / 1e6 : -1.0);
            }
            ffParallel.push_back(timeCommand("sh", {"-c", parallel}));
        }
        const char* what = isLong ? "60-minute" : "5-minute";
        std::printf("ten 30 s ringtones from ten %s MP3 files\n", what);
        row("  cli -d (batch, a child per core) / loop", batch, ffLoop);
        row("  cli -d (batch) / ffmpeg 2 at a time", batch, ffParallel);
        if (!isLong) {
            row("  cli one input a run, ten runs / loop", single, ffLoop);
            std::printf("%-50s %10.1f %12.1f %8.3f\n", "  one ringtone (per run of the above)",
                        median(single) / kSongs, median(ffLoop) / kSongs,
                        median(single) / median(ffLoop));
        }
        const long ourPeak = peakRssKb(cli, QStringList(*set) << "-d" << ours << span);
        const long theirPeak = peakRssKb("sh", {"-c", parallel});
        std::printf("%-50s %9.1fM %11.1fM %8.3f\n", "  peak memory, batch / ffmpeg 2 at a time",
                    ourPeak / 1024.0, theirPeak / 1024.0, double(ourPeak) / double(theirPeak));
        std::fflush(stdout);
    }
    return 0;
}
