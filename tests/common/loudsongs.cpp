#include "loudsongs.h"

#include "mediafixtures.h"
#include "testenv.h"
#include "tests/editor/songsynth.h"

#include <QFile>
#include <QProcess>

#include <cmath>

namespace tw {

namespace {

constexpr int kRate = 44100;
constexpr double kSeconds = 60.0;

// The raw synthetic song, as it comes.
QString rawSong()
{
    const QString path = fixtureDir() + "/synth song.wav";
    if (QFile::exists(path))
        return path;
    const std::vector<qint16> song = twed::synthSong(kRate, kSeconds);
    if (!writeWav(path, kRate, 2, 16, qint64(song.size() / 2),
                  [&](qint64 f, int c) { return int(song[size_t(f * 2 + c)]); }))
        return QString();
    return path;
}

double valueAfter(const QString& log, int from, const QString& key)
{
    const int at = log.indexOf(key, from);
    if (at < 0)
        return std::nan("");
    bool ok = false;
    const double v = log.mid(at + key.size()).trimmed().section(' ', 0, 0).toDouble(&ok);
    return ok ? v : std::nan("");
}

} // namespace

LoudnessReading ffmpegLoudness(const QString& path, double start, double seconds)
{
    LoudnessReading r;
    QStringList args{"-nostdin", "-nostats", "-hide_banner"};
    if (start >= 0)
        args << "-ss" << QString::number(start) << "-t" << QString::number(seconds);
    args << "-i" << path << "-af"
         << "ebur128=peak=true"
         << "-f"
         << "null"
         << "-";
    QProcess p;
    p.start("ffmpeg", args);
    if (!p.waitForFinished(120000))
        return r;
    const QString log = QString::fromLocal8Bit(p.readAllStandardError());
    // The summary at the end: "I: -18.2 LUFS" ... "True peak:" "Peak: -1.3 dBFS".
    const int summary = log.lastIndexOf("Integrated loudness:");
    if (summary < 0)
        return r;
    r.lufs = valueAfter(log, summary, "I:");
    r.truePeak = valueAfter(log, log.indexOf("True peak:", summary), "Peak:");
    r.ok = !std::isnan(r.lufs) && !std::isnan(r.truePeak);
    return r;
}

QString songAtLoudness(double lufs)
{
    const QString path = fixtureDir() + QString("/song %1 LUFS.wav").arg(lufs);
    if (QFile::exists(path))
        return path;
    const QString raw = rawSong();
    const LoudnessReading base = ffmpegLoudness(raw);
    if (raw.isEmpty() || !base.ok)
        return QString();
    double gain = lufs - base.lufs;
    // A loud master: over the top, then limited back under full scale; the
    // limiter takes some loudness, which a second pass puts back.
    for (int pass = 0; pass < 3; ++pass) {
        QStringList filter{QString("volume=%1dB").arg(gain)};
        if (base.truePeak + gain > -0.5)
            filter << "alimiter=limit=0.95:level=false:attack=2:release=40";
        if (!ffmpeg({"-v", "error", "-y", "-i", raw, "-af", filter.join(','), "-c:a", "pcm_s16le",
                     "-map_metadata", "-1", "-fflags", "+bitexact", path}))
            return QString();
        const LoudnessReading made = ffmpegLoudness(path);
        if (!made.ok)
            return QString();
        if (std::fabs(made.lufs - lufs) < 0.3)
            break;
        gain += lufs - made.lufs;
    }
    return path;
}

QString spikySong()
{
    const QString path = fixtureDir() + "/spiky song.wav";
    if (QFile::exists(path))
        return path;
    const QString quiet = songAtLoudness(-30.0);
    if (quiet.isEmpty())
        return QString();
    // A 2 ms full-scale click every 2 seconds, mixed over the quiet song.
    if (!ffmpeg({"-v", "error", "-y", "-i", quiet, "-f", "lavfi", "-i",
                 "aevalsrc=exprs='if(lt(mod(t\\,2)\\,0.002)\\,0.99*sin(2*PI*1000*t)\\,0)':s=44100:"
                 "d=60:c=stereo",
                 "-filter_complex", "[0][1]amix=inputs=2:normalize=0", "-c:a", "pcm_s16le",
                 "-map_metadata", "-1", "-fflags", "+bitexact", path}))
        return QString();
    return path;
}

} // namespace tw
