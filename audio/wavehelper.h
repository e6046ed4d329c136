#pragma once
// The WAV engine: one PCM WAV file loaded for drawing and playback through
// SDL, with volume and fades applied while playing and written back into
// the file on close. All state lives in one caller-owned record; only one
// record can be open at a time (there is one audio device). The SDL
// callback reads the record on SDL's audio thread under SDL's audio lock,
// which every function below takes for the fields the callback uses; a
// caller reading `volume` or the fades itself does so on the thread that
// writes them.
// This header is the engine's interface (wavehelper_p.h adds what its
// tests and fuzz targets reach). wavehelper.cpp holds these calls and the
// SDL callback; the parts behind them are private to audio/: the header
// reader (waveheader), the peak table (wavepeaks), the audio device
// (wavedevice), the effects and their write-back (waveeffects, over the
// sample routines of pcmeffects) and the scratch blocks (wavebuffers).

#include <cmath>
#include <cstddef>
#include <cstdio>

// Bytes of the raw-data buffer that WaveHelperGetRawData fills; readers keep
// their requests within it.
constexpr std::size_t kWaveRawBufferBytes = 4194304;
// The largest file the engine loads (-3 beyond), header included.
constexpr long kWaveMaxFileSize = 0x7D000000L;
// The sample rates the engine loads; others are refused (-5) at load.
constexpr unsigned int kWaveMinSampleRate = 8000;
constexpr unsigned int kWaveMaxSampleRate = 384000;
// Frames that one (min, max) entry of the peak table sums up.
constexpr int kWavePeakBlockFrames = 512;

// formatKey: bits per sample OR-ed with the channel count.
enum WaveFormatKey : unsigned int
{
    WAVE_U8_MONO = 9,
    WAVE_U8_STEREO = 10,
    WAVE_S16_MONO = 17,
    WAVE_S16_STEREO = 18
};

// state: what the device is doing with the record.
enum WaveState : int
{
    WAVE_STOPPED = 0,
    WAVE_PLAYING = 1,
    WAVE_PAUSED = 2
};

// A gain over part of the file, for preview: what the export will apply to
// the selection (volume, normalisation and the limiter's factors) played as
// it will be written. Owned by the caller, who keeps it alive while it is
// set. Within its frames it takes the place of the record's volume.
struct tagWaveGain
{
    long long firstFrame;  // the first frame it covers
    long long frames;      // frames it covers
    float gain;            // linear
    const float* envelope; // one factor a frame, or nullptr for none
};

// One 16-bit sample under a gain factor, rounded and kept in range: the
// preview and the export's render apply a gain alike through this.
inline short WaveGainSample(short sample, float factor)
{
    const float v = static_cast<float>(sample) * factor;
    const long r = std::lround(v);
    return static_cast<short>(r < -32768L ? -32768L : (r > 32767L ? 32767L : r));
}

struct tagWaveInfo
{
    unsigned int formatKey; // a WaveFormatKey, or another value the engine does not play
    FILE* scanFile;         // "r+b": peak scan, raw data, effect write-back
    FILE* playFile;         // "rb": its position is the play position
    FILE* extraFile1;       // never opened here; closed on uninit if set
    FILE* extraFile2;
    unsigned char* peakTable; // (min, max) pairs per kWavePeakBlockFrames frames
    int peakCount;            // (frameCount + 511) >> 9
    unsigned char* rawBuffer; // kWaveRawBufferBytes, filled by WaveHelperGetRawData
    unsigned int frameCount;  // data bytes from the header, then frames
    unsigned int sampleRate;
    unsigned char frameBytes; // 1, 2 or 4
    unsigned char silence;    // 128 for 8-bit data, 0 for 16-bit
    int state;                // a WaveState
    int volume;               // percent, 100 = unchanged
    int fadeInStart;          // byte offsets in the file, -1 = none
    int fadeInEnd;
    int fadeOutStart;
    int fadeOutEnd;
    const tagWaveGain* gain; // nullptr: the volume applies everywhere
    long loopStart;          // byte offsets in the file; loopEnd 0 = no loop
    long loopEnd;
};

// 0, or -1 the file cannot be opened, -2 no RIFF id, -3 over the size limit,
// -4 too little data (or a null argument), -5 a sample rate outside
// kWaveMinSampleRate..kWaveMaxSampleRate, -6 out of memory. The device's
// buffer never lasts more than 128 ms at the rates it takes, so closing
// (which waits for the buffer being played) is quick whatever the file.
int WaveHelperInit(const char* path, tagWaveInfo* info);
int WaveHelperUninit(tagWaveInfo* info);
int WaveHelperPlay(tagWaveInfo* info);
int WaveHelperPause(tagWaveInfo* info);
int WaveHelperStop(tagWaveInfo* info);
int WaveHelperGetState(tagWaveInfo* info);
long long WaveHelperGetPos(tagWaveInfo* info);
int WaveHelperSetPos(tagWaveInfo* info, long long ms);
unsigned char* WaveHelperGetRawData(tagWaveInfo* info, int firstFrame, int frameCount);
int WaveHelperChangeVolume(tagWaveInfo* info, int percent);
int WaveHelperFadeIn(tagWaveInfo* info, int start, int length);
int WaveHelperFadeOut(tagWaveInfo* info, int start, int length);
// Sets (or with nullptr takes off) the preview gain. It is never written
// into the file: closing the record takes it off first.
int WaveHelperSetGain(tagWaveInfo* info, const tagWaveGain* gain);
// Plays frames firstFrame..endFrame (exclusive) over and over: reaching
// endFrame goes on from firstFrame within the same callback, so nothing
// after the span is ever heard. An empty or negative span takes the loop off.
int WaveHelperSetLoop(tagWaveInfo* info, long long firstFrame, long long endFrame);
// Reads `frames` frames from `firstFrame` of the WAV at `path` (laid out as
// the record's) into `out`, with the record's fades applied exactly as
// closing the record writes them into the file, chunk for chunk; the
// volume is left out. Frames the file does not hold are not written. The
// frames read, or -1 when the file cannot be read. Touches no field of the
// record and no audio device: any thread.
long long WaveHelperReadFaded(const tagWaveInfo* info, const char* path, long long firstFrame,
                              long long frames, unsigned char* out);
