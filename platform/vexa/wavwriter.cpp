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

namespace vexa {

namespace {

constexpr int kBytesPerFrame = kOutChannels * 2;
// Big writes keep the kernel calls few: one per megabyte of sound.
constexpr size_t kBufferBytes = 1 << 20;
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

WavWriter::~WavWriter()
{
    if (m_file)
        std::fclose(m_file);
}

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
    m_file = std::fopen(path.c_str(), "wb");
    if (!m_file)
        return KELO_E_IO;
    m_buffer.resize(kBufferBytes);
    std::setvbuf(m_file, m_buffer.data(), _IOFBF, m_buffer.size());
    unsigned char h[44];
    header(h, 0);
    if (std::fwrite(h, 1, sizeof h, m_file) != sizeof h)
        return KELO_E_IO;
    return KELO_OK;
}

int WavWriter::write(const int16_t* samples, int frames)
{
    if (!m_file)
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
    if (std::fwrite(samples, 1, bytes, m_file) != bytes)
        return KELO_E_IO;
    m_dataBytes += bytes;
    return KELO_OK;
}

int WavWriter::finish()
{
    if (!m_file)
        return KELO_E_IO;
    unsigned char h[44];
    header(h, static_cast<uint32_t>(m_dataBytes));
    bool ok = std::fflush(m_file) == 0;
    ok = ok && std::fseek(m_file, 0, SEEK_SET) == 0;
    ok = ok && std::fwrite(h, 1, sizeof h, m_file) == sizeof h;
    // A full disk often shows only here, when the last buffer goes out.
    ok = ok && std::fflush(m_file) == 0;
    const bool closed = std::fclose(m_file) == 0;
    m_file = nullptr;
    return ok && closed ? KELO_OK : KELO_E_IO;
}

} // namespace vexa
