// The command line's speed: tonewright-cli making ten 30-second ringtones
// (from 0:30 to 1:00) out of ten 5-minute MP3 files, beside a shell loop of
// the ffmpeg command doing the same,
//   ffmpeg -ss 30 -t 30 -i IN.mp3 -ac 2 -ar 44100 -c:a aac -b:a 128k -f ipod OUT.m4r
// (-f ipod: ffmpeg does not know the .m4r name) in the same run,
// alternating, several times each; medians and ratios.
//   - tonewright-cli -d: all ten in one batch, one child run per core
//   - tonewright-cli one input a run, ten runs one after the other
//   - the ffmpeg loop, and ffmpeg two at a time (xargs -P 2) for the batch's
//     fair match
// The command line decodes each whole song into the editor's temporary WAV
// before it cuts, as the editor does; ffmpeg seeks and decodes 30 seconds.
// The songs are made once into bench-data/cli/ beside this program.

#include "testenv.h"

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
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

QString quoted(const QString& path)
{
    return "'" + QString(path).replace("'", "'\\''") + "'";
}

void row(const char* name, const std::vector<double>& ours, const std::vector<double>& theirs)
{
    const double a = median(ours);
    const double b = median(theirs);
    std::printf("%-44s %10.1f %12.1f %8.3f   (%zu runs each)\n", name, a, b, a / b, ours.size());
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

    // The ffmpeg command of the issue, in a shell loop and two at a time.
    QString loop = "set -e; for f in";
    for (const QString& song : songs)
        loop += " " + quoted(song);
    loop += QString("; do ffmpeg -nostdin -v error -y -ss 30 -t 30 -i \"$f\" -ac 2 -ar 44100 "
                    "-c:a aac -b:a 128k -f ipod %1/\"$(basename \"$f\" .mp3)\".m4r; done")
                .arg(quoted(theirs));
    QString parallel = "printf '%s\\0'";
    for (const QString& song : songs)
        parallel += " " + quoted(song);
    parallel +=
        QString(" | xargs -0 -P 2 -I{} sh -c 'ffmpeg -nostdin -v error -y -ss 30 -t 30 "
                "-i \"$1\" -ac 2 -ar 44100 -c:a aac -b:a 128k -f ipod %1/\"$(basename \"$1\" "
                ".mp3)\".m4r' _ {}")
            .arg(quoted(theirs));

    const QStringList span{"--start", "0:30", "--length", "30", "--force", "-q"};
    std::vector<double> batch, single, ffLoop, ffParallel;
    for (int run = 0; run < kRuns; ++run) {
        // Alternated, so that neither side gets a warmer machine.
        batch.push_back(timeCommand(cli, QStringList(songs) << "-d" << ours << span));
        ffLoop.push_back(timeCommand("sh", {"-c", loop}));
        QElapsedTimer t;
        t.start();
        bool ok = true;
        for (const QString& song : songs)
            ok = timeCommand(cli, QStringList{song, "-o", ours + "/one.m4r"} << span) >= 0 && ok;
        single.push_back(ok ? t.nsecsElapsed() / 1e6 : -1.0);
        ffParallel.push_back(timeCommand("sh", {"-c", parallel}));
    }

    std::printf("ten 30 s ringtones from ten 5-minute MP3 files, %d cores\n",
                QThread::idealThreadCount());
    std::printf("%-44s %10s %12s %8s\n", "task", "ours ms", "ffmpeg ms", "ratio");
    row("cli -d (batch, a child per core) / loop", batch, ffLoop);
    row("cli -d (batch) / ffmpeg 2 at a time", batch, ffParallel);
    row("cli one input a run, ten runs / loop", single, ffLoop);
    std::printf("%-44s %10.1f %12s\n", "cli per ringtone, one at a time", median(single) / kSongs,
                "");
    std::printf("%-44s %10.1f %12s\n", "ffmpeg per ringtone, one at a time",
                median(ffLoop) / kSongs, "");
    return 0;
}
