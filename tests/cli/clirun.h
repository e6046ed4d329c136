#pragma once
// Runs the real tonewright-cli in a child process for the command-line
// tests, and the checks they share: what a ringtone file holds, the decoded
// samples of a file and leftovers a run must not leave.

#include "testenv.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QStandardPaths>

#include <algorithm>
#include <cmath>

namespace twcli {

struct Run
{
    int code = -1;
    QString out;
    QString err;
};

inline QString program()
{
    const QString configured = qEnvironmentVariable("TONEWRIGHT_CLI");
    return configured.isEmpty() ? QCoreApplication::applicationDirPath() + "/tonewright-cli"
                                : configured;
}

// A run that has not ended after `limitMs` is killed: code -1, "did not finish".
inline Run run(const QStringList& args, const QString& workDir = QString(), int limitMs = 240000)
{
    QProcess p;
    if (!workDir.isEmpty())
        p.setWorkingDirectory(workDir);
    p.start(program(), args);
    Run r;
    if (!p.waitForFinished(limitMs)) {
        p.kill();
        p.waitForFinished();
        r.err = "did not finish";
        return r;
    }
    r.code = p.exitStatus() == QProcess::NormalExit ? p.exitCode() : -2;
    r.out = QString::fromLocal8Bit(p.readAllStandardOutput());
    r.err = QString::fromLocal8Bit(p.readAllStandardError());
    return r;
}

inline QString describe(const Run& r)
{
    return QString("exit %1\nstdout: %2\nstderr: %3").arg(r.code).arg(r.out, r.err);
}

// The RMS level of interleaved 44.1 kHz stereo s16le samples between two
// times (ms), both channels together.
inline double rms(const QByteArray& pcm, int fromMs, int toMs)
{
    const auto* s = reinterpret_cast<const qint16*>(pcm.constData());
    const qint64 a = qint64(fromMs) * 441 / 10 * 2;
    const qint64 b = std::min<qint64>(qint64(toMs) * 441 / 10 * 2, pcm.size() / 2);
    double sum = 0;
    for (qint64 i = a; i < b; ++i)
        sum += double(s[i]) * s[i];
    return b > a ? std::sqrt(sum / double(b - a)) : 0.0;
}

// Integrated loudness (EBU R128, LUFS) of a file as ffmpeg's ebur128
// filter measures it; a large negative number when it cannot.
inline double integratedLoudness(const QString& path)
{
    QProcess p;
    p.start("ffmpeg",
            {"-nostdin", "-nostats", "-i", path, "-filter_complex", "ebur128", "-f", "null", "-"});
    if (!p.waitForFinished(120000))
        return -1000.0;
    const QString log = QString::fromLocal8Bit(p.readAllStandardError());
    // The summary at the end: "    I:         -18.2 LUFS".
    const int summary = log.lastIndexOf("Integrated loudness:");
    const int at = log.indexOf("I:", summary);
    if (summary < 0 || at < 0)
        return -1000.0;
    return log.mid(at + 2).trimmed().section(' ', 0, 0).toDouble();
}

// The file decoded by ffmpeg to interleaved 44.1 kHz stereo s16le.
inline QByteArray decodePcm(const QString& path)
{
    QProcess p;
    p.start("ffmpeg", {"-nostdin", "-v", "error", "-i", path, "-f", "s16le", "-ac", "2", "-ar",
                       "44100", "-"});
    if (!p.waitForFinished(120000))
        return QByteArray();
    return p.readAllStandardOutput();
}

inline double probeDuration(const QString& path)
{
    return tw::ffprobe({"-show_entries", "format=duration", "-of", "default=nw=1:nk=1", path})
        .trimmed()
        .toDouble();
}

inline QString probeAudio(const QString& path, const QString& entry)
{
    return tw::ffprobe({"-select_streams", "a:0", "-show_entries", "stream=" + entry, "-of",
                        "default=nw=1:nk=1", path})
        .trimmed();
}

// The brand of an MPEG-4 file: bytes 8..11 of its ftyp box.
inline QByteArray brand(const QString& path)
{
    QFile f(path);
    if (!f.open(QIODevice::ReadOnly))
        return QByteArray();
    return f.read(12).mid(8, 4);
}

// Where the command line (not in Qt's test mode) keeps its temporary WAVs.
inline QStringList leftoverWaves()
{
    return QDir(tw::testHome() + "/.cache/vandrel/tonewright")
        .entryList({"wave_*.tmp"}, QDir::Files | QDir::Hidden);
}

// Hidden files a run may have staged in a folder (its own or the engine's).
inline QStringList hiddenFiles(const QString& dir)
{
    QStringList hidden;
    for (const QString& name : QDir(dir).entryList(QDir::Files | QDir::Hidden))
        if (name.startsWith('.'))
            hidden << name;
    return hidden;
}

} // namespace twcli
