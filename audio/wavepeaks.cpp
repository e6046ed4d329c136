#include "audio/wavepeaks.h"

#include "audio/wavebuffers.h"

#include <cstddef>
#include <cstdlib>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace wav {

namespace {

// Min/max per peak block over the first channel. For stereo the
// second channel is tracked as well but stored only once, after the entry
// of the last partial block. Only scanPeaks uses it, so it (and its SIMD)
// stays in this file.
template <typename T, int Channels> class PeakBuilder
{
public:
    explicit PeakBuilder(unsigned char* table) : m_out(table) {}

    void feed(const unsigned char* data, std::size_t frames)
    {
        constexpr std::size_t frameBytes = sizeof(T) * Channels;
        std::size_t i = 0;
        while (i < frames) {
            if (m_fill == 0 && frames - i >= kWavePeakBlockFrames) {
                fullBlock(data + i * frameBytes);
                i += kWavePeakBlockFrames;
            } else {
                oneFrame(data + i * frameBytes);
                ++i;
            }
        }
    }

    // A last partial block counts only when it holds more than one frame.
    void finish()
    {
        if (m_fill <= 1)
            return;
        storePair(m_min[0], m_max[0]);
        if (Channels == 2)
            storePair(m_min[1], m_max[1]);
    }

private:
    // A whole block at once. Lanes hold interleaved samples, so lane l
    // carries channel l % Channels; only the first channel is stored.
    void fullBlock(const unsigned char* p)
    {
        constexpr int lanes = 16 / sizeof(T);
        T lo[lanes];
        T hi[lanes];
#if defined(__SSE2__)
        constexpr int bytes = kWavePeakBlockFrames * Channels * sizeof(T);
        __m128i lo0 = load(p), lo1 = load(p + 16), lo2 = load(p + 32), lo3 = load(p + 48);
        __m128i hi0 = lo0, hi1 = lo1, hi2 = lo2, hi3 = lo3;
        for (int j = 64; j < bytes; j += 64) {
            const __m128i v0 = load(p + j);
            const __m128i v1 = load(p + j + 16);
            const __m128i v2 = load(p + j + 32);
            const __m128i v3 = load(p + j + 48);
            lo0 = vmin(lo0, v0);
            lo1 = vmin(lo1, v1);
            lo2 = vmin(lo2, v2);
            lo3 = vmin(lo3, v3);
            hi0 = vmax(hi0, v0);
            hi1 = vmax(hi1, v1);
            hi2 = vmax(hi2, v2);
            hi3 = vmax(hi3, v3);
        }
        _mm_storeu_si128(reinterpret_cast<__m128i*>(lo), vmin(vmin(lo0, lo1), vmin(lo2, lo3)));
        _mm_storeu_si128(reinterpret_cast<__m128i*>(hi), vmax(vmax(hi0, hi1), vmax(hi2, hi3)));
#else
        for (int l = 0; l < lanes; ++l)
            lo[l] = hi[l] = loadSample<T>(p + l * sizeof(T));
        for (int j = lanes; j < kWavePeakBlockFrames * Channels; j += lanes) {
            for (int l = 0; l < lanes; ++l) {
                const T v = loadSample<T>(p + (j + l) * sizeof(T));
                lo[l] = v < lo[l] ? v : lo[l];
                hi[l] = v > hi[l] ? v : hi[l];
            }
        }
#endif
        T mn = lo[0];
        T mx = hi[0];
        for (int l = Channels; l < lanes; l += Channels) {
            mn = lo[l] < mn ? lo[l] : mn;
            mx = hi[l] > mx ? hi[l] : mx;
        }
        storePair(mn, mx);
    }

#if defined(__SSE2__)
    static __m128i load(const unsigned char* p)
    {
        return _mm_loadu_si128(reinterpret_cast<const __m128i*>(p));
    }
    static __m128i vmin(__m128i a, __m128i b)
    {
        if constexpr (sizeof(T) == 1)
            return _mm_min_epu8(a, b);
        else
            return _mm_min_epi16(a, b);
    }
    static __m128i vmax(__m128i a, __m128i b)
    {
        if constexpr (sizeof(T) == 1)
            return _mm_max_epu8(a, b);
        else
            return _mm_max_epi16(a, b);
    }
#endif

    void oneFrame(const unsigned char* p)
    {
        for (int c = 0; c < Channels; ++c) {
            const T v = loadSample<T>(p + c * sizeof(T));
            if (m_fill == 0) {
                m_min[c] = v;
                m_max[c] = v;
            } else if (v < m_min[c]) {
                m_min[c] = v;
            } else if (v > m_max[c]) {
                m_max[c] = v;
            }
        }
        if (++m_fill == kWavePeakBlockFrames) {
            storePair(m_min[0], m_max[0]);
            m_fill = 0;
        }
    }

    void storePair(T mn, T mx)
    {
        std::memcpy(m_out, &mn, sizeof mn);
        std::memcpy(m_out + sizeof mn, &mx, sizeof mx);
        m_out += 2 * sizeof(T);
    }

    unsigned char* m_out;
    int m_fill = 0;
    T m_min[2] = {};
    T m_max[2] = {};
};

} // namespace

template <typename T, int Channels>
void scanPeaks(FILE* file, unsigned long long bytes, unsigned char* table, unsigned char* buffer)
{
    constexpr std::size_t frameBytes = sizeof(T) * Channels;
    PeakBuilder<T, Channels> builder(table);
    while (bytes > 0) {
        const std::size_t want =
            bytes < kChunkBytes ? static_cast<std::size_t>(bytes) : kChunkBytes;
        const std::size_t got = std::fread(buffer, 1, want, file);
        builder.feed(buffer, got / frameBytes);
        bytes -= got;
        if (got < want)
            break;
    }
    builder.finish();
}

// The engine's four formats (see buildPeakTable).
template void scanPeaks<unsigned char, 1>(FILE*, unsigned long long, unsigned char*,
                                          unsigned char*);
template void scanPeaks<unsigned char, 2>(FILE*, unsigned long long, unsigned char*,
                                          unsigned char*);
template void scanPeaks<short, 1>(FILE*, unsigned long long, unsigned char*, unsigned char*);
template void scanPeaks<short, 2>(FILE*, unsigned long long, unsigned char*, unsigned char*);

bool buildPeakTable(tagWaveInfo* info)
{
    // peakCount is 32-bit like frameCount; scanning stops where the table
    // ends even if a lying header made the count wrap.
    constexpr unsigned block = kWavePeakBlockFrames;
    info->peakCount = static_cast<int>((info->frameCount + (block - 1)) / block);
    const unsigned long long peakFrames =
        static_cast<unsigned long long>(static_cast<unsigned>(info->peakCount)) * block;
    const unsigned long long frames = info->frameCount < peakFrames ? info->frameCount : peakFrames;

    // Stereo tables are twice the size their pairs need: only the first
    // half holds pairs, the second channel's tail pair follows the last one.
    std::size_t tableBytes = static_cast<unsigned>(info->peakCount);
    switch (info->formatKey) {
    case WAVE_U8_MONO:
        tableBytes *= 2;
        break;
    case WAVE_U8_STEREO:
    case WAVE_S16_MONO:
        tableBytes *= 4;
        break;
    default:
        tableBytes *= 8;
        break;
    }
    // Entries a short file never reaches read as silence.
    info->peakTable = static_cast<unsigned char*>(std::calloc(tableBytes ? tableBytes : 1, 1));
    if (!info->peakTable)
        return false;
    if (info->silence != 0)
        std::memset(info->peakTable, info->silence, tableBytes);

    AlignedBuffer scan(kChunkBytes);
    if (!scan.data)
        return false;
    const unsigned long long bytes = frames * info->frameBytes;
    switch (info->formatKey) {
    case WAVE_U8_MONO:
        scanPeaks<unsigned char, 1>(info->scanFile, bytes, info->peakTable, scan.data);
        break;
    case WAVE_U8_STEREO:
        scanPeaks<unsigned char, 2>(info->scanFile, bytes, info->peakTable, scan.data);
        break;
    case WAVE_S16_MONO:
        scanPeaks<short, 1>(info->scanFile, bytes, info->peakTable, scan.data);
        break;
    default:
        scanPeaks<short, 2>(info->scanFile, bytes, info->peakTable, scan.data);
        break;
    }
    return true;
}

} // namespace wav
