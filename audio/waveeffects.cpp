#include "audio/waveeffects.h"

#include "audio/pcmeffects.h"
#include "audio/wavebuffers.h"
#include "audio/waveheader.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdio>
#include <vector>

namespace wav {

int wrap32(long long v)
{
    return static_cast<int>(static_cast<unsigned>(static_cast<unsigned long long>(v)));
}

namespace {

// The bytes [*from, *to) of a buffer read at `pos` that the preview gain
// covers; false when it covers none, or the data is not 16-bit.
bool gainSpan(const tagWaveInfo* info, int length, long pos, int* from, int* to)
{
    const tagWaveGain* g = info->gain;
    if (!g || info->silence != 0 || info->frameBytes == 0)
        return false;
    const long long first = kDataOffset + g->firstFrame * info->frameBytes;
    const long long last = first + g->frames * info->frameBytes;
    const long long a = std::max<long long>(first, pos);
    const long long b = std::min<long long>(last, pos + length);
    if (b <= a)
        return false;
    // Whole frames only.
    const long long skew = (a - first) % info->frameBytes;
    *from = static_cast<int>(a - pos + (skew ? info->frameBytes - skew : 0));
    *to = static_cast<int>(b - pos);
    return *from < *to;
}

// The 16-bit volume on the bytes the preview gain leaves alone.
void volumeOutside(unsigned char* buffer, int length, int volume, bool covered, int from, int to)
{
    if (!covered) {
        VolumeChangeS16(buffer, length, volume);
        return;
    }
    VolumeChangeS16(buffer, from & ~1, volume);
    if (to < length)
        VolumeChangeS16(buffer + to, (length - to) & ~1, volume);
}

// Volume (except over [gainFrom, gainTo) when `gained`) and fades.
void applyVolumeAndFades(const tagWaveInfo* info, unsigned char* buffer, int length, long pos,
                         bool gained, int gainFrom, int gainTo);

void applyGain(const tagWaveInfo* info, unsigned char* buffer, long pos, int from, int to)
{
    const tagWaveGain* g = info->gain;
    const int frameBytes = info->frameBytes;
    const int channels = frameBytes / 2;
    long long frame = (pos + from - kDataOffset) / frameBytes - g->firstFrame;
    for (int at = from; at + frameBytes <= to; at += frameBytes, ++frame) {
        const float factor = g->gain * (g->envelope ? g->envelope[frame] : 1.0f);
        for (int c = 0; c < channels; ++c) {
            unsigned char* p = buffer + at + 2 * c;
            pcm::storeS16(p, WaveGainSample(static_cast<short>(pcm::loadS16(p)), factor));
        }
    }
}

} // namespace

void applyEffects(const tagWaveInfo* info, unsigned char* buffer, int length, long pos)
{
    int gainFrom = 0;
    int gainTo = 0;
    const bool gained = gainSpan(info, length, pos, &gainFrom, &gainTo);
    applyVolumeAndFades(info, buffer, length, pos, gained, gainFrom, gainTo);
    // After the fades, as the export applies it.
    if (gained)
        applyGain(info, buffer, pos, gainFrom, gainTo);
}

namespace {

void applyVolumeAndFades(const tagWaveInfo* info, unsigned char* buffer, int length, long pos,
                         bool gained, int gainFrom, int gainTo)
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
                FadeInU8Mono(buffer, pcm::wrapAdd(off, length), off, len);
            else
                FadeOutU8Mono(buffer, pcm::wrapAdd(off, length), off, len);
        } else {
            if (inFadeIn)
                FadeInU8Stereo(buffer, pcm::wrapAdd(off, length) / 2, off / 2, len / 2);
            else
                FadeOutU8Stereo(buffer, pcm::wrapAdd(off, length) / 2, off / 2, len / 2);
        }
        return;
    }

    if (volume != 100)
        volumeOutside(buffer, length, volume, gained, gainFrom, gainTo);
    if (!inFadeIn && !inFadeOut)
        return;
    if (info->frameBytes == 4) {
        if (inFadeIn)
            FadeInS16Stereo(buffer, pcm::wrapAdd(off, length) / 4, off / 4, len / 4);
        else
            FadeOutS16Stereo(buffer, pcm::wrapAdd(off, length) / 4, off / 4, len / 4);
        return;
    }
    // 16-bit mono has no routine of its own: same formula, one sample per step.
    const int first = off / 2;
    const int last = pcm::wrapAdd(off, length) / 2;
    const int half = len / 2;
    unsigned char* p = buffer;
    if (inFadeIn) {
        for (int i = first; i < last; ++i, p += 2)
            pcm::storeS16(p, pcm::fadeS16(pcm::loadS16(p), i, half));
    } else {
        int k = pcm::wrapSub(half, first);
        for (int i = first; i < last; ++i, k = pcm::wrapSub(k, 1), p += 2)
            pcm::storeS16(p, pcm::fadeS16(pcm::loadS16(p), k, half));
    }
}

} // namespace

int secondsToOffset(const tagWaveInfo* info, long long seconds)
{
    const unsigned long long bytesPerSecond =
        static_cast<unsigned long long>(info->frameBytes) * info->sampleRate;
    return static_cast<int>(static_cast<unsigned>(
        bytesPerSecond * static_cast<unsigned long long>(seconds) + kDataOffset));
}

namespace {

// Where the write-back's first chunk starts: the fade-in, else the
// fade-out; -1 when there is no fade (it then starts wherever the last
// read stopped).
long long writeBackStart(const tagWaveInfo* info)
{
    if (info->fadeInStart >= 1)
        return info->fadeInStart;
    if (info->fadeOutStart > 0)
        return info->fadeOutStart;
    return -1;
}

// Whether the write-back stops once a chunk has ended at `pos`: past the
// fade-in when there is no fade-out, or past a fade-out that ends last.
bool writeBackEnds(const tagWaveInfo* info, long long pos)
{
    return (pos > info->fadeInEnd && info->fadeOutEnd < 0) ||
           (pos > info->fadeOutEnd && info->fadeInEnd < info->fadeOutEnd);
}

} // namespace

void writeBackEffects(tagWaveInfo* info)
{
    FILE* f = info->scanFile;
    const long long start = writeBackStart(info);
    if (start >= 0)
        std::fseek(f, static_cast<long>(start), SEEK_SET);

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
        if (writeBackEnds(info, pos))
            break;
    }
}

long long readFaded(const tagWaveInfo* info, const char* path, long long firstFrame,
                    long long frames, unsigned char* out)
{
    const int frameBytes = info->frameBytes;
    if (!path || frameBytes <= 0 || firstFrame < 0 || frames < 0)
        return -1;
    FILE* f = std::fopen(path, "rb");
    if (!f)
        return -1;
    std::fseek(f, 0, SEEK_END);
    const long long fileEnd = std::ftell(f);
    const long long from = kDataOffset + firstFrame * frameBytes;
    const long long to = std::min(from + frames * frameBytes, std::max(fileEnd, from));

    // The write-back's chunks: they start at the first fade and run on, a
    // chunk at a time, until one ends past the last fade (a chunk is
    // written when the one before it did not end the write-back). Only a
    // chunk's start decides its fade, so a chunk is taken whole even where
    // it reaches outside [from, to).
    tagWaveInfo fadesOnly = *info;
    fadesOnly.volume = 100;
    fadesOnly.gain = nullptr;
    const long long start = writeBackStart(info);

    long long readFrom = from;
    long long readTo = to;
    long long firstChunk = 0;
    long long lastChunk = -1;
    if (start >= 0 && to > from) {
        firstChunk = from > start ? (from - start) / static_cast<long long>(kChunkBytes) : 0;
        for (long long k = firstChunk;; ++k) {
            const long long cs = start + k * static_cast<long long>(kChunkBytes);
            if (cs >= to || cs >= fileEnd || (k > 0 && writeBackEnds(info, cs)))
                break;
            lastChunk = k;
        }
        if (lastChunk >= firstChunk) {
            readFrom = std::min(readFrom, start + firstChunk * static_cast<long long>(kChunkBytes));
            readTo = std::max(
                readTo,
                std::min<long long>(start + (lastChunk + 1) * static_cast<long long>(kChunkBytes),
                                    fileEnd));
        }
    }

    // The slack keeps the frame loops inside the buffer at a partial last frame.
    std::vector<unsigned char> work(static_cast<std::size_t>(readTo - readFrom) + 8, 0);
    std::fseek(f, static_cast<long>(readFrom), SEEK_SET);
    const std::size_t got =
        std::fread(work.data(), 1, static_cast<std::size_t>(readTo - readFrom), f);
    std::fclose(f);
    const long long readEnd = readFrom + static_cast<long long>(got);
    for (long long k = firstChunk; k <= lastChunk; ++k) {
        const long long cs = start + k * static_cast<long long>(kChunkBytes);
        const long long ce = std::min(cs + static_cast<long long>(kChunkBytes), readEnd);
        if (ce <= cs)
            break;
        applyEffects(&fadesOnly, work.data() + (cs - readFrom), static_cast<int>(ce - cs),
                     static_cast<long>(cs));
    }
    const long long held = std::max<long long>(std::min(to, readEnd) - from, 0);
    std::copy_n(work.data() + (from - readFrom), held, out);
    return held / frameBytes;
}

} // namespace wav
