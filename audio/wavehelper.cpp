#include "audio/wavehelper.h"

#include "audio/pcmeffects.h"
#include "audio/wavehelper_p.h"

#include <QDebug>
#include <QString>

#include <SDL.h>

#include <cstddef>
#include <cstdlib>
#include <cstring>
#include <new>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

// The engine's file layout: a canonical 44-byte header, then sample data.
// Only the chunk id is checked; channel count, sample rate, bits per sample
// and data size are read from their fixed offsets.

namespace {

constexpr long kDataOffset = 44;
constexpr std::size_t kChunkBytes = 32768;
constexpr long kMaxFileSize = 0x7D000000L;
constexpr unsigned kRiff = 0x46464952u; // "RIFF" read little-endian
constexpr std::align_val_t kAlignment{64};

unsigned readLe16(const unsigned char* p)
{
    return p[0] | (p[1] << 8);
}

unsigned readLe32(const unsigned char* p)
{
    return p[0] | (p[1] << 8) | (p[2] << 16) | (static_cast<unsigned>(p[3]) << 24);
}

// 64-byte aligned blocks: whole cache lines for the kernel's copy of file
// data and for the packed loads of the peak scan.
unsigned char* allocAligned(std::size_t bytes)
{
    return static_cast<unsigned char*>(::operator new(bytes, kAlignment, std::nothrow));
}

void freeAligned(unsigned char* p)
{
    ::operator delete(p, kAlignment);
}

struct AlignedBuffer
{
    explicit AlignedBuffer(std::size_t bytes) : data(allocAligned(bytes)) {}
    ~AlignedBuffer() { freeAligned(data); }
    AlignedBuffer(const AlignedBuffer&) = delete;
    AlignedBuffer& operator=(const AlignedBuffer&) = delete;
    unsigned char* data;
};

// One raw-data block for the whole process, handed to every record. Uninit
// deliberately never frees a record's rawBuffer; sharing the block (only one
// record is open at a time) keeps that rule without leaking 4 MiB per open.
unsigned char* sharedRawBuffer()
{
    static unsigned char* buffer = allocAligned(kWaveRawBufferBytes);
    return buffer;
}

// --- peak table -------------------------------------------------------------

template <typename T> T loadSample(const unsigned char* p)
{
    T v;
    std::memcpy(&v, p, sizeof v);
    return v;
}

// Min/max per peak block over the first channel. For stereo the
// second channel is tracked as well but stored only once, after the entry
// of the last partial block.
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

// Builds info->peakTable from scanFile; false when memory runs out.
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

// --- SDL --------------------------------------------------------------------

// Switches SDL's audio to its dummy driver so that a machine without a
// sound device still opens and exports waves; playback is then silent.
bool useDummyAudio()
{
    SDL_QuitSubSystem(SDL_INIT_AUDIO);
    SDL_SetHintWithPriority(SDL_HINT_AUDIODRIVER, "dummy", SDL_HINT_OVERRIDE);
    const bool ok = SDL_InitSubSystem(SDL_INIT_AUDIO) == 0;
    SDL_ResetHint(SDL_HINT_AUDIODRIVER);
    return ok;
}

void logAudioUnavailable(const QString& why)
{
    qDebug().noquote() << "audio device unavailable:" << why;
}

// Starts the timer, audio and video subsystems that are not running yet.
int initSdl()
{
    // SDL is only our sound output: it must not take Ctrl+C and SIGTERM
    // from the program, nor keep the screen saver from starting.
    SDL_SetHint(SDL_HINT_NO_SIGNAL_HANDLERS, "1");
    SDL_SetHint(SDL_HINT_VIDEO_ALLOW_SCREENSAVER, "1");
    const Uint32 wanted = SDL_INIT_TIMER | SDL_INIT_AUDIO | SDL_INIT_VIDEO;
    const Uint32 missing = wanted & ~SDL_WasInit(0xFFFF);
    if (missing == 0 || SDL_Init(missing) >= 0)
        return 0;
    if ((missing & SDL_INIT_AUDIO) == 0)
        return -1;
    const QString why = QString::fromUtf8(SDL_GetError());
    // Only a failing audio driver is worth the fallback.
    if (SDL_Init(missing & ~SDL_INIT_AUDIO) < 0)
        return -1;
    logAudioUnavailable(why);
    return useDummyAudio() ? 0 : -1;
}

int openAudio(SDL_AudioSpec* desired)
{
    // A device that is already open belongs to another record: report that
    // failure as it is instead of replacing the driver under it.
    const bool busy = SDL_GetAudioStatus() != SDL_AUDIO_STOPPED;
    const int result = SDL_OpenAudio(desired, nullptr);
    if (result >= 0 || busy)
        return result;
    const char* driver = SDL_GetCurrentAudioDriver();
    if (driver && std::strcmp(driver, "dummy") == 0)
        return result;
    logAudioUnavailable(QString::fromUtf8(SDL_GetError()));
    if (!useDummyAudio())
        return result;
    return SDL_OpenAudio(desired, nullptr);
}

// Holds SDL's audio lock for a scope. The callback runs with this lock held,
// so the user-interface side takes it for every field the callback reads or
// writes: the play stream (a seek must not fall between the callback's
// position read and its data read), the state, the volume and the fades.
// SDL's lock is recursive, and taking it without an open device does nothing.
class AudioLock
{
public:
    AudioLock() { SDL_LockAudio(); }
    ~AudioLock() { SDL_UnlockAudio(); }
    AudioLock(const AudioLock&) = delete;
    AudioLock& operator=(const AudioLock&) = delete;
};

// --- effects ----------------------------------------------------------------

// The low 32 bits of a value, as a signed int.
int wrap32(long long v)
{
    return static_cast<int>(static_cast<unsigned>(static_cast<unsigned long long>(v)));
}

// Applies volume, then the fade the buffer's start lies in, to `length`
// bytes read from file offset `pos`. Shared by playback and write-back so
// that the file ends up exactly as it sounded.
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

// Byte offset in the file of a time in whole seconds, kept to 32 bits.
int secondsToOffset(const tagWaveInfo* info, long long seconds)
{
    const unsigned long long bytesPerSecond =
        static_cast<unsigned long long>(info->frameBytes) * info->sampleRate;
    return static_cast<int>(static_cast<unsigned>(
        bytesPerSecond * static_cast<unsigned long long>(seconds) + kDataOffset));
}

// Writes volume and fades into the file through scanFile, one chunk at a
// time, starting at the first fade (or wherever the last read stopped).
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

} // namespace

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
    const long pos = std::ftell(info->playFile);
    const std::size_t got = std::fread(stream, 1, static_cast<std::size_t>(length), info->playFile);
    if (got == 0 && info->state != WAVE_STOPPED) {
        info->state = WAVE_STOPPED;
        SDL_PauseAudio(1);
    }
    applyEffects(info, stream, length, pos);
}

namespace {

struct HeaderFormat
{
    unsigned channels = 0;
    unsigned bits = 0;
};

// Everything before the audio device: header, peak table, play stream and
// raw buffer. 0 with a peak table when the device may be opened, 0 without
// one for a format the engine does not play.
int loadWave(const char* path, tagWaveInfo* info, HeaderFormat* format)
{
    if (!path || !info)
        return -4;
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
    if (fileSize > kMaxFileSize) {
        std::fclose(file);
        return -3;
    }

    const unsigned channels = readLe16(header + 22);
    const unsigned rate = readLe32(header + 24);
    const unsigned bits = readLe16(header + 34);
    const unsigned dataSize = readLe32(header + 40);
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

} // namespace

int WaveHelperLoad(const char* path, tagWaveInfo* info)
{
    HeaderFormat format;
    return loadWave(path, info, &format);
}

int WaveHelperInit(const char* path, tagWaveInfo* info)
{
    HeaderFormat format;
    const int loaded = loadWave(path, info, &format);
    if (loaded != 0 || !info->peakTable)
        return loaded;

    if (initSdl() < 0)
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
    return openAudio(&desired);
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
    if (info->scanFile && info->rawBuffer)
        writeBackEffects(info);
    if (info->scanFile)
        std::fclose(info->scanFile);
    if (info->extraFile1)
        std::fclose(info->extraFile1);
    if (info->extraFile2)
        std::fclose(info->extraFile2);
    std::free(info->peakTable);
    // rawBuffer is deliberately not released (see sharedRawBuffer).
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
        info->fadeInStart = secondsToOffset(info, start);
        info->fadeInEnd = secondsToOffset(info, static_cast<long long>(start) + length);
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
        info->fadeOutStart = secondsToOffset(info, start);
        // One second longer than asked, on purpose: the fade reaches past
        // the end of the selection.
        info->fadeOutEnd = secondsToOffset(info, static_cast<long long>(start) + length + 1);
    } else {
        info->fadeOutStart = -1;
        info->fadeOutEnd = -1;
    }
    return 0;
}
