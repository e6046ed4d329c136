#include "audio/pcmeffects.h"

// Fade factors are never clipped to the fade's length: a buffer that runs
// past the end of a fade-in gets factors above 1 (16-bit results may wrap),
// one past the end of a fade-out gets negative factors. The engine only
// starts a fade on a buffer that begins inside the region.

void VolumeChangeS16(unsigned char* buffer, int byteCount, int volume)
{
    const long long gain = pcm::gainOf(volume);
    const int samples = byteCount / 2;
    for (int i = 0; i < samples; ++i) {
        unsigned char* p = buffer + 2 * i;
        // Arithmetic shift of the signed product, then clamp.
        long long v = (pcm::loadS16(p) * gain) >> 8;
        if (v > 32767)
            v = 32767;
        else if (v < -32768)
            v = -32768;
        pcm::storeS16(p, static_cast<int>(v));
    }
}

void FadeInS16Stereo(unsigned char* buffer, int end, int start, int length)
{
    unsigned char* p = buffer;
    for (int i = start; i < end; ++i, p += 4) {
        pcm::storeS16(p, pcm::fadeS16(pcm::loadS16(p), i, length));
        pcm::storeS16(p + 2, pcm::fadeS16(pcm::loadS16(p + 2), i, length));
    }
}

void FadeOutS16Stereo(unsigned char* buffer, int end, int start, int length)
{
    unsigned char* p = buffer;
    int k = pcm::wrapSub(length, start);
    for (int i = start; i < end; ++i, k = pcm::wrapSub(k, 1), p += 4) {
        pcm::storeS16(p, pcm::fadeS16(pcm::loadS16(p), k, length));
        pcm::storeS16(p + 2, pcm::fadeS16(pcm::loadS16(p + 2), k, length));
    }
}

void FadeInU8Mono(unsigned char* buffer, int end, int start, int length)
{
    unsigned char* p = buffer;
    for (int i = start; i < end; ++i, ++p)
        *p = pcm::fadeU8(*p, i, length);
}

void FadeInU8Stereo(unsigned char* buffer, int end, int start, int length)
{
    unsigned char* p = buffer;
    for (int i = start; i < end; ++i, p += 2) {
        p[0] = pcm::fadeU8(p[0], i, length);
        p[1] = pcm::fadeU8(p[1], i, length);
    }
}

void FadeOutU8Mono(unsigned char* buffer, int end, int start, int length)
{
    unsigned char* p = buffer;
    int k = pcm::wrapSub(length, start);
    for (int i = start; i < end; ++i, k = pcm::wrapSub(k, 1), ++p)
        *p = pcm::fadeU8(*p, k, length);
}

void FadeOutU8Stereo(unsigned char* buffer, int end, int start, int length)
{
    unsigned char* p = buffer;
    int k = pcm::wrapSub(length, start);
    for (int i = start; i < end; ++i, k = pcm::wrapSub(k, 1), p += 2) {
        p[0] = pcm::fadeU8(p[0], k, length);
        p[1] = pcm::fadeU8(p[1], k, length);
    }
}
