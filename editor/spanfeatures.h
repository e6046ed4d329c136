#pragma once
// CSpanFeatures: what the best-part suggestion hears of a song. Takes the
// song's PCM as it comes (16-bit interleaved, any rate, one or two
// channels), mixes it to mono at a low rate, and turns it into a few frames
// a second, each a 12-bin chroma (how much of each pitch class sounds,
// log-compressed) and a level. Fed a block at a time, so a long song needs
// no copy of its own; any thread, one instance per song. Owns its FFT
// (FFmpeg's) and the FFT's buffers, which it releases when destroyed.

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

// The rate the song is analysed at, about: the song's rate divided by a
// whole number (11025 Hz from 44.1 kHz, 12 kHz from 48 kHz); chroma stops
// at 5 kHz.
constexpr int kSpanAnalysisRate = 11025;
// The FFT: 4096 points (370 ms at 11025 Hz, fine enough for the bass
// notes), a hop of 1024 samples (93 ms).
constexpr int kSpanFftSize = 4096;
constexpr int kSpanHop = 1024;
// Hops averaged into one feature frame: 5 hops = 464 ms, about 2 a second.
constexpr int kSpanHopsPerFrame = 5;

struct SpanFeatureFrame
{
    std::array<float, 12> chroma{}; // unit length, or all zero in silence
    float levelDb = -120.0f;        // mean power, dB full scale
};

class CSpanFeatures
{
public:
    // `sampleRate` and `channels` (1 or 2) of the PCM that addFrames gets.
    CSpanFeatures(int sampleRate, int channels);
    ~CSpanFeatures();

    CSpanFeatures(const CSpanFeatures&) = delete;
    CSpanFeatures& operator=(const CSpanFeatures&) = delete;

    // False when the resampler or the FFT could not be set up for this
    // format; the frames then stay empty.
    bool isValid() const;
    // `count` interleaved frames.
    void addFrames(const std::int16_t* pcm, std::size_t count);
    // Ends the input: the resampler's tail and the last partial hop.
    void finish();

    // The song's length from the frames given, in ms.
    long long durationMs() const;
    const std::vector<SpanFeatureFrame>& frames() const { return m_frames; }
    // The length of one feature frame in ms (464.4 at 11025 Hz).
    double frameMs() const;
    int analysisRate() const { return m_analysisRate; }

private:
    // Low-passes and decimates what m_mono holds into analysis samples.
    void decimate();
    void addAnalysisSamples(const float* samples, std::size_t count);
    void analyseHop();
    void closeFrame();

    struct Ffmpeg;
    std::unique_ptr<Ffmpeg> m_ff;
    int m_rate;
    int m_channels;
    int m_decimation = 1;        // song samples per analysis sample
    int m_analysisRate = 0;      // m_rate / m_decimation
    std::vector<float> m_kernel; // the low-pass before decimating
    std::vector<float> m_mono;   // mixed-down samples not yet decimated
    std::size_t m_monoNext = 0;  // the first sample of the next output's kernel
    long long m_inputFrames = 0;
    std::vector<float> m_window;       // Hann
    std::vector<float> m_samples;      // analysis samples not yet past
    std::size_t m_next = 0;            // where the next FFT window begins in m_samples
    std::vector<int> m_binClass;       // pitch class of each FFT bin, -1 outside the band
    std::array<double, 12> m_chroma{}; // of the frame being filled
    double m_power = 0.0;
    int m_hops = 0; // in the frame being filled
    std::vector<SpanFeatureFrame> m_frames;
};
