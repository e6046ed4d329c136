// The WAV output of a render.

#include "wavwriter.h"

#include "pcmsource.h"
#include "vexa.h"

extern "C" {
#include <libavutil/avconfig.h>
#include <libavutil/bswap.h>
}

#include <cstring>
#include <limits>
#include <vector>

namespace vexa {

namespace {

constexpr int kBytesPerFrame = kOutChannels * 2;
// The RIFF size field counts 36 header bytes beside the data.
constexpr uint64_t kMaxDataBytes = std::numeric_limits<uint32_t>::max() - 36;

void put32(unsigned char* p, uint32_t v)
{
    p[0] = static_cast<unsigned char>(v);
    p[1] = static_cast<unsigned char>(v >> 8);
    p[2] = static_cast<unsigned char>(v >> 16);
    p[3] = static_cast<unsigned char>(v >> 24);
}

void put16(unsigned char* p, uint16_t v)
{
    p[0] = static_cast<unsigned char>(v);
    p[1] = static_cast<unsigned char>(v >> 8);
}

} // namespace

void WavWriter::header(unsigned char out[44], uint32_t dataBytes)
{
    std::memcpy(out, "RIFF", 4);
    put32(out + 4, 36 + dataBytes);
    std::memcpy(out + 8, "WAVEfmt ", 8);
    put32(out + 16, 16);
    put16(out + 20, 1); // PCM
    put16(out + 22, kOutChannels);
    put32(out + 24, kOutRate);
    put32(out + 28, kOutRate * kBytesPerFrame);
    put16(out + 32, kBytesPerFrame);
    put16(out + 34, 16);
    std::memcpy(out + 36, "data", 4);
    put32(out + 40, dataBytes);
}

int WavWriter::open(const std::string& path)
{
    if (m_out.open(path) != KELO_OK)
        return KELO_E_IO;
    m_open = true;
    unsigned char h[44];
    header(h, 0);
    return m_out.append(h, sizeof h);
}

int WavWriter::write(const int16_t* samples, int frames)
{
    if (!m_open)
        return KELO_E_IO;
    if (frames <= 0)
        return KELO_OK;
    const size_t bytes = size_t(frames) * kBytesPerFrame;
    if (m_dataBytes + bytes > kMaxDataBytes)
        return KELO_E_IO; // longer than a WAV file can say
#if AV_HAVE_BIGENDIAN
    std::vector<int16_t> swapped(samples, samples + size_t(frames) * kOutChannels);
    for (auto& s : swapped)
        s = static_cast<int16_t>(av_bswap16(static_cast<uint16_t>(s)));
    samples = swapped.data();
#endif
    if (m_out.append(samples, bytes) != KELO_OK)
        return KELO_E_IO;
    m_dataBytes += bytes;
    return KELO_OK;
}

int WavWriter::finish()
{
    if (!m_open)
        return KELO_E_IO;
    m_open = false;
    unsigned char h[44];
    header(h, static_cast<uint32_t>(m_dataBytes));
    const int patched = m_out.overwrite(0, h, sizeof h);
    const int closed = m_out.close();
    return patched == KELO_OK && closed == KELO_OK ? KELO_OK : KELO_E_IO;
}

} // namespace vexa
