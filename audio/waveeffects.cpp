#include "audio/waveeffects.h"

#include "audio/pcmeffects.h"
#include "audio/wavebuffers.h"
#include "audio/waveheader.h"

#include <cstddef>
#include <cstdio>

namespace wav {

int wrap32(long long v)
{
    return static_cast<int>(static_cast<unsigned>(static_cast<unsigned long long>(v)));
}

void applyEffects(const tagWaveInfo* info, unsigned char* buffer, int length, long pos)
{
    const int volume = info->volume;
    const int inStart = info->fadeInStart;
    const int inEnd = info->fadeInEnd;
    const int outStart = info->fadeOutStart;
    const int outEnd = info->fadeOutEnd;

    // Only the buffer's first byte decides which fade applies, a fade-in
    // wins over a fade-out, and the ramp runs on to the buffer's end even
    // past the region: a buffer's granularity is accepted.
    const bool inFadeIn = inStart <= pos && pos <= inEnd;
    const bool inFadeOut = !inFadeIn && outStart <= pos && pos <= outEnd;
    // 32-bit arithmetic, as the offsets are: a region of a file whose rate
    // makes them wrap gives a wrapped length, not an overflow.
    const int off = wrap32(pos - (inFadeIn ? inStart : outStart));
    const int len = wrap32(inFadeIn ? static_cast<long long>(inEnd) - inStart
                                    : static_cast<long long>(outEnd) - outStart);

    if (info->silence != 0) {
        if (volume != 100) {
            // 8-bit volume scales the unsigned byte from 0, not around 128,
            // unlike the 8-bit fades; both are kept as they are.
            const long long gain = pcm::gainOf(volume);
            for (int i = 0; i < length; ++i) {
                const long long v = (buffer[i] * gain) >> 8;
                buffer[i] = static_cast<unsigned char>(v < 0 ? 0 : (v > 255 ? 255 : v));
            }
        }
        if (!inFadeIn && !inFadeOut)
            return;
        if (info->frameBytes == 1) {
            if (inFadeIn)
                FadeInU8Mono(buffer, off + length, off, len);
            else
                FadeOutU8Mono(buffer, off + length, off, len);
        } else {
            if (inFadeIn)
                FadeInU8Stereo(buffer, (off + length) / 2, off / 2, len / 2);
            else
                FadeOutU8Stereo(buffer, (off + length) / 2, off / 2, len / 2);
        }
        return;
    }

    if (volume != 100)
        VolumeChangeS16(buffer, length, volume);
    if (!inFadeIn && !inFadeOut)
        return;
    if (info->frameBytes == 4) {
        if (inFadeIn)
            FadeInS16Stereo(buffer, (off + length) / 4, off / 4, len / 4);
        else
            FadeOutS16Stereo(buffer, (off + length) / 4, off / 4, len / 4);
        return;
    }
    // 16-bit mono has no routine of its own: same formula, one sample per step.
    const int first = off / 2;
    const int last = (off + length) / 2;
    const int half = len / 2;
    unsigned char* p = buffer;
    if (inFadeIn) {
        for (int i = first; i < last; ++i, p += 2)
            pcm::storeS16(p, pcm::fadeS16(pcm::loadS16(p), i, half));
    } else {
        int k = half - first;
        for (int i = first; i < last; ++i, --k, p += 2)
            pcm::storeS16(p, pcm::fadeS16(pcm::loadS16(p), k, half));
    }
}

int secondsToOffset(const tagWaveInfo* info, long long seconds)
{
    const unsigned long long bytesPerSecond =
        static_cast<unsigned long long>(info->frameBytes) * info->sampleRate;
    return static_cast<int>(static_cast<unsigned>(
        bytesPerSecond * static_cast<unsigned long long>(seconds) + kDataOffset));
}

void writeBackEffects(tagWaveInfo* info)
{
    FILE* f = info->scanFile;
    if (info->fadeInStart >= 1)
        std::fseek(f, info->fadeInStart, SEEK_SET);
    else if (info->fadeOutStart > 0)
        std::fseek(f, info->fadeOutStart, SEEK_SET);

    // The slack keeps the frame loops inside the buffer when a short last
    // read ends in a partial frame.
    AlignedBuffer chunk(kChunkBytes + 8);
    if (!chunk.data)
        return;
    for (;;) {
        long pos = std::ftell(f);
        const std::size_t got = std::fread(chunk.data, 1, kChunkBytes, f);
        if (got == 0)
            break;
        applyEffects(info, chunk.data, static_cast<int>(got), pos);
        std::fseek(f, -static_cast<long>(got), SEEK_CUR);
        if (std::fwrite(chunk.data, 1, got, f) != got)
            break;
        // A read must not follow a write on one stream without a seek.
        std::fseek(f, 0, SEEK_CUR);
        pos = std::ftell(f);
        // Without fades this stops after one chunk: a bare volume change is
        // written into that chunk only (the editor always sets fades).
        if ((pos > info->fadeInEnd && info->fadeOutEnd < 0) ||
            (pos > info->fadeOutEnd && info->fadeInEnd < info->fadeOutEnd))
            break;
    }
}

} // namespace wav
