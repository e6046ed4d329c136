#include "audio/waveheader.h"

#include "audio/wavebuffers.h"
#include "audio/wavepeaks.h"

#include <sys/stat.h>

#include <algorithm>
#include <cstddef>
#include <cstdio>

namespace wav {

unsigned readLe16(const unsigned char* p)
{
    return p[0] | (p[1] << 8);
}

unsigned readLe32(const unsigned char* p)
{
    return p[0] | (p[1] << 8) | (p[2] << 16) | (static_cast<unsigned>(p[3]) << 24);
}

int loadWave(const char* path, tagWaveInfo* info, HeaderFormat* format)
{
    if (!path || !info)
        return -4;
    // Only regular files: reading a pipe waits for a writer, a device may
    // never end.
    struct stat st;
    if (::stat(path, &st) != 0 || !S_ISREG(st.st_mode))
        return -1;
    FILE* file = std::fopen(path, "r+b");
    if (!file)
        return -1;
    // Unbuffered: every access is the header or a whole chunk, and stdio's
    // small buffer would only split each 32 KiB read into two system calls
    // and an extra copy (it fills itself from the block before byte 44).
    std::setvbuf(file, nullptr, _IONBF, 0);
    // A short file leaves the rest of the header zero.
    unsigned char header[kDataOffset] = {};
    const std::size_t headerBytes = std::fread(header, 1, sizeof header, file);
    std::fseek(file, 0, SEEK_END);
    const long fileSize = std::ftell(file);
    std::fseek(file, kDataOffset, SEEK_SET);

    // Only the chunk id is validated; the record stays untouched. The
    // stream is closed since nothing could ever reach it again.
    if (headerBytes < 4 || readLe32(header) != kRiff) {
        std::fclose(file);
        return -2;
    }
    if (fileSize > kWaveMaxFileSize) {
        std::fclose(file);
        return -3;
    }

    const unsigned channels = readLe16(header + 22);
    const unsigned rate = readLe32(header + 24);
    // A rate of a few hertz would make one device buffer last seconds, and
    // closing the device waits for the buffer it is playing.
    if (rate < kWaveMinSampleRate || rate > kWaveMaxSampleRate) {
        std::fclose(file);
        return -5;
    }
    const unsigned bits = readLe16(header + 34);
    // No more data than the file holds: a header that claims more would put
    // sound past the real end.
    const long held = std::max(0L, fileSize - kDataOffset);
    const unsigned dataSize = static_cast<unsigned>(std::min<long>(readLe32(header + 40), held));
    info->scanFile = file;
    info->frameCount = dataSize;
    info->silence = bits == 8 ? 128 : 0;
    info->peakTable = nullptr;
    info->sampleRate = rate;

    // The minimum is ten times the rate in bytes, not a time: 2.5 s for
    // 16-bit stereo at 44100 Hz, 10 s for 8-bit mono.
    if (dataSize < 10u * rate) {
        std::fclose(file);
        info->scanFile = nullptr; // the caller may Uninit a failed record
        return -4;
    }

    info->formatKey = bits | channels;
    switch (info->formatKey) {
    case WAVE_U8_MONO:
        info->frameBytes = 1;
        break;
    case WAVE_U8_STEREO:
    case WAVE_S16_MONO:
        info->frameBytes = 2;
        info->frameCount /= 2;
        break;
    case WAVE_S16_STEREO:
        info->frameBytes = 4;
        info->frameCount /= 4;
        break;
    default:
        // Reported as success on purpose: the caller finds no peak table,
        // and no audio device is opened.
        return 0;
    }

    if (!buildPeakTable(info))
        return -6;

    info->playFile = std::fopen(path, "rb");
    if (!info->playFile)
        return -1;
    std::fseek(info->playFile, kDataOffset, SEEK_SET);

    info->rawBuffer = sharedRawBuffer();
    if (!info->rawBuffer)
        return -6;
    format->channels = channels;
    format->bits = bits;
    return 0;
}

} // namespace wav
