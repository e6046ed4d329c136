#pragma once
// Test helpers for render jobs: RenderWatch records the progress calls of a
// KeloRun job (from whatever thread they come) and waits for the last one;
// the free functions start a job and check what it wrote.

#include "testenv.h"

#include <QByteArray>
#include <QFile>
#include <QMap>
#include <QString>
#include <QStringList>
#include <QtEndian>

#include <chrono>
#include <condition_variable>
#include <cstring>
#include <mutex>
#include <thread>
#include <vector>

#include <vexa.h>

namespace tw {

struct ProgressCall
{
    int timeline;
    int media;
    int progress;
    int status;
    std::thread::id thread;
};

class RenderWatch
{
public:
    static bool notify(tagKeloProgInfo* info, void* user)
    {
        static_cast<RenderWatch*>(user)->add(*info);
        return true;
    }

    void add(const tagKeloProgInfo& info)
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        m_calls.push_back({info.nTimeline, info.nMedia, info.nProgress, info.nStatus,
                           std::this_thread::get_id()});
        if (info.nProgress >= 10000 || info.nStatus < 0)
            m_ended = true;
        m_changed.notify_all();
    }

    // True when the last call came within the time.
    bool waitEnd(int ms = 60000)
    {
        std::unique_lock<std::mutex> lock(m_mutex);
        return m_changed.wait_for(lock, std::chrono::milliseconds(ms), [this] { return m_ended; });
    }

    // True once a call with progress above `above` came.
    bool waitProgress(int above, int ms = 60000)
    {
        std::unique_lock<std::mutex> lock(m_mutex);
        return m_changed.wait_for(lock, std::chrono::milliseconds(ms), [&] {
            for (const auto& c : m_calls)
                if (c.progress > above)
                    return true;
            return m_ended;
        });
    }

    std::vector<ProgressCall> calls() const
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        return m_calls;
    }

    int count() const
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        return static_cast<int>(m_calls.size());
    }

    ProgressCall last() const
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        return m_calls.empty() ? ProgressCall{0, 0, -1, 0, {}} : m_calls.back();
    }

private:
    mutable std::mutex m_mutex;
    std::condition_variable m_changed;
    std::vector<ProgressCall> m_calls;
    bool m_ended = false;
};

struct RenderRequest
{
    QString source;
    QString dest;
    QByteArray format = "wav";
    int codec = KELO_CODEC_PCM_S16LE;
    int bitRate = 128000;
    qint64 start = 0;
    qint64 end = 0;
    QByteArray title = QByteArray(); // tags, UTF-8; empty leaves them out
    QByteArray artist = QByteArray();
};

// The strings must outlive the KeloRun call.
inline tagKeloRunParam runParam(const char* format, const QByteArray& dest, int codec, int bitRate,
                                RenderWatch* watch)
{
    tagKeloRunParam p;
    std::memset(&p, 0, sizeof p);
    p.pUser = watch;
    p.pfnNotify = watch ? &RenderWatch::notify : nullptr;
    p.nReserved8 = -1;
    p.nAudioCodec = codec;
    p.nAudioBitRate = bitRate;
    p.nSampleRate = 44100;
    p.nChannels = 2;
    p.nBitsPerSample = 16;
    p.pszFormat = format;
    p.pszDest = dest.constData();
    return p;
}

// Adds the source to the timeline and starts the job. The result of
// KeloAddMedia2 when that fails, else that of KeloRun; *media gets the item.
inline int startRender(int timeline, const RenderRequest& r, RenderWatch* watch,
                       int* media = nullptr)
{
    const QByteArray src = r.source.toLocal8Bit();
    const QByteArray dest = r.dest.toLocal8Bit();
    tagKeloMediaSrc s;
    std::memset(&s, 0, sizeof s);
    s.pszPath = src.constData();
    s.llStart = r.start;
    s.llEnd = r.end;
    const int id = KeloAddMedia2(timeline, &s, 0, 0);
    if (media)
        *media = id;
    if (id < 0)
        return id;
    if (!r.title.isEmpty() || !r.artist.isEmpty()) {
        const int tagged =
            KeloSetMediaTags(timeline, id, r.title.constData(), r.artist.constData());
        if (tagged < 0)
            return tagged;
    }
    const tagKeloRunParam p = runParam(r.format.constData(), dest, r.codec, r.bitRate, watch);
    return KeloRun(timeline, &id, 1, &p);
}

inline quint32 le32(const QByteArray& b, int at)
{
    return qFromLittleEndian<quint32>(b.constData() + at);
}

inline quint16 le16(const QByteArray& b, int at)
{
    return qFromLittleEndian<quint16>(b.constData() + at);
}

// Empty when the file is exactly a 44-byte-header PCM WAV of 44 100 Hz
// stereo 16-bit with correct sizes; else what is wrong.
inline QString canonicalWavProblem(const QString& path)
{
    QFile f(path);
    if (!f.open(QIODevice::ReadOnly))
        return "cannot open " + path;
    const QByteArray h = f.read(44);
    const qint64 size = f.size();
    if (h.size() < 44)
        return "shorter than a header";
    QStringList bad;
    if (h.mid(0, 4) != "RIFF")
        bad << "no RIFF";
    if (le32(h, 4) != quint32(size - 8))
        bad << QString("RIFF size %1 for file size %2").arg(le32(h, 4)).arg(size);
    if (h.mid(8, 8) != "WAVEfmt ")
        bad << "no WAVEfmt ";
    if (le32(h, 16) != 16)
        bad << "fmt chunk not 16 bytes";
    if (le16(h, 20) != 1)
        bad << "not PCM";
    if (le16(h, 22) != 2)
        bad << "not stereo";
    if (le32(h, 24) != 44100)
        bad << "not 44100 Hz";
    if (le32(h, 28) != 176400)
        bad << "byte rate";
    if (le16(h, 32) != 4)
        bad << "block align";
    if (le16(h, 34) != 16)
        bad << "not 16 bit";
    if (h.mid(36, 4) != "data")
        bad << "data chunk not at 36";
    if (le32(h, 40) != quint32(size - 44))
        bad << QString("data size %1 for file size %2").arg(le32(h, 40)).arg(size);
    if ((size - 44) % 4 != 0)
        bad << "partial frame";
    return bad.join(", ");
}

// key=value lines of ffprobe for the first audio stream (or the format).
inline QMap<QString, QString> probeAudio(const QString& path, const QString& entries)
{
    const QString out =
        ffprobe({"-select_streams", "a:0", "-show_entries", entries, "-of", "default=nw=1", path});
    QMap<QString, QString> map;
    for (const QString& line : out.split('\n', Qt::SkipEmptyParts)) {
        const int eq = line.indexOf('=');
        if (eq > 0)
            map.insert(line.left(eq), line.mid(eq + 1)); // "M4A " keeps its blank
    }
    return map;
}

// Interleaved 16-bit stereo samples of a canonical WAV, or of anything
// ffmpeg decodes (then as ffmpeg itself plays it, edit lists applied).
inline QByteArray decodedPcm(const QString& path)
{
    const QString raw = path + ".decoded.raw";
    if (!ffmpeg({"-i", path, "-ac", "2", "-ar", "44100", "-f", "s16le", raw}))
        return QByteArray();
    QFile f(raw);
    f.open(QIODevice::ReadOnly);
    const QByteArray pcm = f.readAll();
    f.close();
    QFile::remove(raw);
    return pcm;
}

inline QByteArray wavData(const QString& path)
{
    QFile f(path);
    if (!f.open(QIODevice::ReadOnly))
        return QByteArray();
    return f.readAll().mid(44);
}

// Index of the first stereo frame whose left sample reaches the level; -1 if none.
inline qint64 firstFrameAbove(const QByteArray& pcm, int level)
{
    const auto* s = reinterpret_cast<const qint16*>(pcm.constData());
    const qint64 frames = pcm.size() / 4;
    for (qint64 i = 0; i < frames; ++i)
        if (qAbs(int(s[2 * i])) >= level)
            return i;
    return -1;
}

} // namespace tw
