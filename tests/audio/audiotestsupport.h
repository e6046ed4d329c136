#pragma once
// Fixtures and an independent model of the audio engine's sample effects,
// shared by the audio tests. The model is written per sample straight from
// the engine's documented rules (not from its code) so that a test compares
// two separate computations.

#include "audio/wavehelper.h"

#include <QByteArray>
#include <QFile>
#include <QString>
#include <QtGlobal>

#include <algorithm>
#include <cstdint>
#include <cstring>

namespace audiotest {

// Closes whatever a test left open, even when it failed half-way.
struct WaveGuard
{
    tagWaveInfo w;
    WaveGuard() { std::memset(&w, 0, sizeof w); }
    ~WaveGuard() { WaveHelperUninit(&w); }
    WaveGuard(const WaveGuard&) = delete;
    WaveGuard& operator=(const WaveGuard&) = delete;
};

// --- fixtures ---------------------------------------------------------------

inline void putLe(QByteArray& b, quint32 v, int bytes)
{
    for (int i = 0; i < bytes; ++i)
        b.append(char((v >> (8 * i)) & 0xFF));
}

// A canonical 44-byte header followed by `data`. headerDataSize < 0 writes
// the real size of `data`.
inline QByteArray makeWav(int rate, int channels, int bits, const QByteArray& data,
                          qint64 headerDataSize = -1)
{
    const quint32 dataSize = headerDataSize < 0 ? quint32(data.size()) : quint32(headerDataSize);
    const int blockAlign = channels * bits / 8;
    QByteArray h;
    h.append("RIFF");
    putLe(h, 36 + dataSize, 4);
    h.append("WAVEfmt ");
    putLe(h, 16, 4);
    putLe(h, 1, 2);
    putLe(h, quint32(channels), 2);
    putLe(h, quint32(rate), 4);
    putLe(h, quint32(rate * blockAlign), 4);
    putLe(h, quint32(blockAlign), 2);
    putLe(h, quint32(bits), 2);
    h.append("data");
    putLe(h, dataSize, 4);
    return h + data;
}

inline bool writeFile(const QString& path, const QByteArray& bytes)
{
    QFile f(path);
    return f.open(QIODevice::WriteOnly | QIODevice::Truncate) && f.write(bytes) == bytes.size();
}

inline QByteArray readFile(const QString& path)
{
    QFile f(path);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
}

// Deterministic noise over the whole sample range, extremes included.
inline QByteArray noise(qint64 bytes, quint32 seed)
{
    QByteArray out(bytes, Qt::Uninitialized);
    quint32 x = seed * 2654435761u + 1;
    for (qint64 i = 0; i < bytes; ++i) {
        x ^= x << 13;
        x ^= x >> 17;
        x ^= x << 5;
        out[i] = char(x >> 11);
    }
    if (bytes >= 8) {
        out[0] = char(0x00); // 8-bit minimum / 16-bit 0x8000 (with the next)
        out[1] = char(0x80);
        out[2] = char(0xFF); // 16-bit 0x7FFF
        out[3] = char(0x7F);
    }
    return out;
}

// --- the effects model --------------------------------------------------------

struct Effects
{
    int volume = 100;
    qint64 fadeInStart = -1;
    qint64 fadeInEnd = -1;
    qint64 fadeOutStart = -1;
    qint64 fadeOutEnd = -1;
};

// Truncation toward zero; what no int can hold becomes INT_MIN.
inline qint64 towardZero(float v)
{
    if (!(v >= -2147483648.0f && v < 2147483648.0f))
        return qint64(INT32_MIN);
    return qint64(v);
}

inline qint64 floorDiv256(qint64 a)
{
    return a >= 0 ? a / 256 : -((-a + 255) / 256);
}

inline int sampleAt(const QByteArray& b, qint64 i, int bits)
{
    if (bits == 8)
        return quint8(b[i]);
    return qint16(quint16(quint8(b[2 * i]) | (quint8(b[2 * i + 1]) << 8)));
}

inline void setSample(QByteArray& b, qint64 i, int bits, qint64 v)
{
    if (bits == 8) {
        b[i] = char(quint8(v & 0xFF));
    } else {
        b[2 * i] = char(v & 0xFF);
        b[2 * i + 1] = char((v >> 8) & 0xFF);
    }
}

// 16-bit volume: gain (percent * 256 / 100), floor of product / 256, clamp.
inline qint64 volumeS16(int s, int percent)
{
    const qint64 g = qint64(percent) * 256 / 100;
    return std::clamp<qint64>(floorDiv256(s * g), -32768, 32767);
}

// 8-bit volume scales the unsigned byte from 0.
inline qint64 volumeU8(int b, int percent)
{
    const qint64 g = qint64(percent) * 256 / 100;
    return std::clamp<qint64>(floorDiv256(b * g), 0, 255);
}

// One faded sample with factor n / length (single precision, multiply
// first, divide second); 8-bit scales the distance from 128.
inline qint64 fadeSample(int s, qint64 n, qint64 length, int bits)
{
    const float fn = float(n);
    const float fl = float(length);
    if (bits == 16)
        return towardZero(float(s) * fn / fl);
    if (s < 128)
        return towardZero(128.0f - fn * float(128 - s) / fl);
    return towardZero(fn * float(s - 128) / fl + 128.0f);
}

// What the engine makes of `buf` (bytes read from file offset pos, padded
// with silence): volume on every sample, then the fade that the buffer's
// first byte lies in, applied to every frame of the buffer.
inline QByteArray apply(QByteArray buf, qint64 pos, int bits, int channels, const Effects& e)
{
    const int sampleBytes = bits / 8;
    const int frameBytes = sampleBytes * channels;
    const qint64 samples = buf.size() / sampleBytes;
    if (e.volume != 100) {
        for (qint64 i = 0; i < samples; ++i) {
            const int s = sampleAt(buf, i, bits);
            setSample(buf, i, bits, bits == 8 ? volumeU8(s, e.volume) : volumeS16(s, e.volume));
        }
    }
    const bool in = e.fadeInStart <= pos && pos <= e.fadeInEnd;
    const bool out = !in && e.fadeOutStart <= pos && pos <= e.fadeOutEnd;
    if (!in && !out)
        return buf;
    const qint64 regionStart = in ? e.fadeInStart : e.fadeOutStart;
    const qint64 regionEnd = in ? e.fadeInEnd : e.fadeOutEnd;
    const qint64 firstFrame = (pos - regionStart) / frameBytes;
    const qint64 fadeFrames = (regionEnd - regionStart) / frameBytes;
    const qint64 frames = buf.size() / frameBytes;
    for (qint64 f = 0; f < frames; ++f) {
        const qint64 at = firstFrame + f;
        const qint64 n = in ? at : fadeFrames - at;
        for (int c = 0; c < channels; ++c) {
            const qint64 i = f * channels + c;
            setSample(buf, i, bits, fadeSample(sampleAt(buf, i, bits), n, fadeFrames, bits));
        }
    }
    return buf;
}

// The bytes a read of `length` at file offset pos yields, padded with the
// silence value; *got receives how many came from the file.
inline QByteArray readPadded(const QByteArray& file, qint64 pos, int length, int bits,
                             qint64* got = nullptr)
{
    const qint64 available = std::clamp<qint64>(file.size() - pos, 0, length);
    QByteArray b = file.mid(pos, available);
    b.append(QByteArray(length - available, bits == 8 ? char(128) : char(0)));
    if (got)
        *got = available;
    return b;
}

} // namespace audiotest
