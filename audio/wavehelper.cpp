// The engine's public calls and the SDL callback. The parts they use live in
// files of their own: the header reader (waveheader), the peak table
// (wavepeaks), the audio device (wavedevice), the effects and their
// write-back (waveeffects) and the scratch blocks (wavebuffers).

#include "audio/wavehelper.h"

#include "audio/wavedevice.h"
#include "audio/waveeffects.h"
#include "audio/waveheader.h"
#include "audio/wavehelper_p.h"

#include <SDL.h>

#include <algorithm>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <cstring>

using wav::AudioLock;
using wav::kDataOffset;

unsigned short WaveHelperCallbackFrames(unsigned int rate)
{
    unsigned short frames = 1024;
    while (frames > 16 && frames * 1000ULL > rate * 128ULL)
        frames /= 2;
    return frames;
}

// Runs with SDL's audio lock held (see AudioLock).
void AudioPlayCallbackFunc(void* userdata, unsigned char* stream, int length)
{
    auto* info = static_cast<tagWaveInfo*>(userdata);
    if (!info)
        return;
    // SDL2 hands over an uncleared buffer; what the file cannot supply
    // must play as silence (and still gets the effects below).
    std::memset(stream, info->silence, static_cast<std::size_t>(length));
    if (!info->playFile)
        return;
    long pos = std::ftell(info->playFile);
    if (info->loopEnd > info->loopStart && info->loopStart <= pos && pos < info->loopEnd) {
        // Within the loop: read up to its end, go on from its start.
        int filled = 0;
        while (filled < length) {
            const int want = static_cast<int>(std::min<long>(length - filled, info->loopEnd - pos));
            const std::size_t got =
                std::fread(stream + filled, 1, static_cast<std::size_t>(want), info->playFile);
            wav::applyEffects(info, stream + filled, want, pos);
            filled += want;
            pos += static_cast<long>(got);
            if (static_cast<int>(got) < want)
                break; // the file ends inside the loop: silence, as below
            if (pos >= info->loopEnd) {
                std::fseek(info->playFile, info->loopStart, SEEK_SET);
                pos = info->loopStart;
            }
        }
        return;
    }
    const std::size_t got = std::fread(stream, 1, static_cast<std::size_t>(length), info->playFile);
    if (got == 0 && info->state != WAVE_STOPPED) {
        info->state = WAVE_STOPPED;
        SDL_PauseAudio(1);
    }
    wav::applyEffects(info, stream, length, pos);
}

int WaveHelperLoad(const char* path, tagWaveInfo* info)
{
    wav::HeaderFormat format;
    return wav::loadWave(path, info, &format);
}

int WaveHelperInit(const char* path, tagWaveInfo* info)
{
    wav::HeaderFormat format;
    const int loaded = wav::loadWave(path, info, &format);
    if (loaded != 0 || !info->peakTable)
        return loaded;

    if (wav::initSdl() < 0)
        return -1;

    SDL_AudioSpec desired;
    std::memset(&desired, 0, sizeof desired);
    desired.freq = static_cast<int>(info->sampleRate);
    desired.format = format.bits < 9 ? AUDIO_U8 : AUDIO_S16LSB;
    desired.channels = static_cast<Uint8>(format.channels);
    desired.silence = info->silence;
    desired.samples = WaveHelperCallbackFrames(info->sampleRate);
    desired.callback = AudioPlayCallbackFunc;
    desired.userdata = info;

    info->volume = 100;
    info->fadeInStart = -1;
    info->fadeInEnd = -1;
    info->fadeOutStart = -1;
    info->fadeOutEnd = -1;

    // No obtained SDL_AudioSpec: SDL converts when the device differs. The device
    // stays paused and state stays 0.
    return wav::openAudio(&desired);
}

int WaveHelperUninit(tagWaveInfo* info)
{
    if (!info)
        return -1;
    if (info->playFile) {
        // Holds off the audio thread before its stream goes away.
        AudioLock lock;
        SDL_PauseAudio(1);
        std::fclose(info->playFile);
        info->playFile = nullptr;
    }
    // The preview gain is for listening only.
    info->gain = nullptr;
    if (info->scanFile && info->rawBuffer)
        wav::writeBackEffects(info);
    if (info->scanFile)
        std::fclose(info->scanFile);
    if (info->extraFile1)
        std::fclose(info->extraFile1);
    if (info->extraFile2)
        std::fclose(info->extraFile2);
    std::free(info->peakTable);
    // rawBuffer is deliberately not released (see wav::sharedRawBuffer).
    SDL_CloseAudio();
    std::memset(info, 0, sizeof *info);
    return 0;
}

int WaveHelperPlay(tagWaveInfo* info)
{
    if (!info)
        return 0;
    AudioLock lock;
    if (info->state != WAVE_PLAYING) {
        SDL_PauseAudio(0);
        info->state = WAVE_PLAYING;
        return 1;
    }
    // A second Play toggles to pause.
    SDL_PauseAudio(1);
    info->state = WAVE_PAUSED;
    return 0;
}

int WaveHelperPause(tagWaveInfo* info)
{
    if (!info)
        return 0;
    AudioLock lock;
    if (info->state != WAVE_PLAYING)
        return 0;
    SDL_PauseAudio(1);
    info->state = WAVE_PAUSED;
    return 1;
}

int WaveHelperStop(tagWaveInfo* info)
{
    // The position is not rewound.
    if (!info)
        return 0;
    AudioLock lock;
    if (info->state != WAVE_STOPPED) {
        info->state = WAVE_STOPPED;
        SDL_PauseAudio(1);
    }
    return 0;
}

int WaveHelperGetState(tagWaveInfo* info)
{
    if (!info)
        return 0;
    AudioLock lock; // the callback stops a record that runs out of data
    return info->state;
}

long long WaveHelperGetPos(tagWaveInfo* info)
{
    if (!info || !info->playFile)
        return 0;
    const long long bytesPerSecond = static_cast<long long>(info->frameBytes) * info->sampleRate;
    if (bytesPerSecond == 0)
        return 0; // a header with rate 0 must not divide by zero
    long offset;
    {
        AudioLock lock;
        offset = std::ftell(info->playFile);
    }
    return (offset - kDataOffset) * 1000LL / bytesPerSecond;
}

int WaveHelperSetPos(tagWaveInfo* info, long long ms)
{
    if (!info || !info->playFile)
        return -1;
    // The rate is divided by 1000 first, on purpose: at 44100 Hz a
    // millisecond counts as 44 frames, so the seek lands slightly earlier
    // than GetPos reports for the same time.
    const unsigned long long framesPerMs = info->sampleRate / 1000;
    const unsigned long long offset =
        info->frameBytes * framesPerMs * static_cast<unsigned long long>(ms) + kDataOffset;
    AudioLock lock;
    return std::fseek(info->playFile, static_cast<long>(offset), SEEK_SET);
}

unsigned char* WaveHelperGetRawData(tagWaveInfo* info, int firstFrame, int frameCount)
{
    if (!info)
        return nullptr;
    if (info->scanFile && info->rawBuffer) {
        // Rounded down to a multiple of 4 bytes: for mono data the block may
        // start a frame or three early; the renderer lives with that.
        const long long offset =
            ((static_cast<long long>(info->frameBytes) * firstFrame) & ~3LL) + kDataOffset;
        if (std::ftell(info->scanFile) != offset)
            std::fseek(info->scanFile, static_cast<long>(offset), SEEK_SET);
        long long want = static_cast<long long>(frameCount) * info->frameBytes;
        // Callers keep requests below the buffer's size; never write past it.
        if (want < 0)
            want = 0;
        else if (want > static_cast<long long>(kWaveRawBufferBytes))
            want = static_cast<long long>(kWaveRawBufferBytes);
        const std::size_t bytes = static_cast<std::size_t>(want);
        const std::size_t got = std::fread(info->rawBuffer, 1, bytes, info->scanFile);
        std::memset(info->rawBuffer + got, info->silence, bytes - got);
    }
    return info->rawBuffer;
}

int WaveHelperChangeVolume(tagWaveInfo* info, int percent)
{
    // No range check: the editor keeps it within 0..256.
    if (info) {
        AudioLock lock;
        info->volume = percent;
    }
    return 0;
}

int WaveHelperFadeIn(tagWaveInfo* info, int start, int length)
{
    if (!info)
        return 0;
    AudioLock lock;
    if (start >= 0 && length >= 0) {
        info->fadeInStart = wav::secondsToOffset(info, start);
        info->fadeInEnd = wav::secondsToOffset(info, static_cast<long long>(start) + length);
    } else {
        info->fadeInStart = -1;
        info->fadeInEnd = -1;
    }
    return 0;
}

int WaveHelperFadeOut(tagWaveInfo* info, int start, int length)
{
    if (!info)
        return 0;
    AudioLock lock;
    if (start >= 0 && length >= 0) {
        info->fadeOutStart = wav::secondsToOffset(info, start);
        // One second longer than asked, on purpose: the fade reaches past
        // the end of the selection.
        info->fadeOutEnd = wav::secondsToOffset(info, static_cast<long long>(start) + length + 1);
    } else {
        info->fadeOutStart = -1;
        info->fadeOutEnd = -1;
    }
    return 0;
}

int WaveHelperSetLoop(tagWaveInfo* info, long long firstFrame, long long endFrame)
{
    if (!info)
        return -1;
    const long long frames = info->frameCount;
    firstFrame = std::clamp<long long>(firstFrame, 0, frames);
    endFrame = std::clamp<long long>(endFrame, 0, frames);
    AudioLock lock;
    if (endFrame <= firstFrame || info->frameBytes == 0) {
        info->loopStart = 0;
        info->loopEnd = 0;
        return 0;
    }
    info->loopStart = static_cast<long>(firstFrame * info->frameBytes + kDataOffset);
    info->loopEnd = static_cast<long>(endFrame * info->frameBytes + kDataOffset);
    return 0;
}

int WaveHelperSetGain(tagWaveInfo* info, const tagWaveGain* gain)
{
    if (!info)
        return -1;
    AudioLock lock;
    info->gain = gain;
    return 0;
}

long long WaveHelperReadFaded(const tagWaveInfo* info, const char* path, long long firstFrame,
                              long long frames, unsigned char* out)
{
    if (!info || !out)
        return -1;
    return wav::readFaded(info, path, firstFrame, frames, out);
}
