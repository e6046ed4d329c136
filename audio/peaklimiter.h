#pragma once
// CPeakLimiter: a true-peak limiter over a whole span known in advance.
// analyse() estimates each frame's true peak once (the samples and the
// points between them at 4x oversampling, every channel); envelope() then
// gives, for any gain, the per-frame factor that keeps gain x signal x
// factor under a ceiling: the reduction starts kLookAheadMs before a peak
// and ramps in smoothly (a sliding minimum, then a moving average of the
// same length, which still reaches the needed value at the peak), and
// recovers after it with a kReleaseMs time constant. Peaks scale with the
// gain, so a loudness search can ask for many envelopes after one analysis.
// Holds only its peak table; one thread at a time.

#include <cstddef>
#include <vector>

// The look-ahead: how early the gain starts falling before a peak.
constexpr double kLookAheadMs = 5.0;
// The release time constant: how slowly the gain comes back after a peak.
constexpr double kReleaseMs = 150.0;

class CPeakLimiter
{
public:
    CPeakLimiter(int channels, int sampleRate);

    CPeakLimiter(const CPeakLimiter&) = delete;
    CPeakLimiter& operator=(const CPeakLimiter&) = delete;

    // Estimates the true peak of each of `frames` interleaved frames (full
    // scale 1.0).
    void analyse(const float* samples, std::size_t frames);
    // The same for 16-bit samples (full scale 32768).
    void analyse(const short* samples, std::size_t frames);
    // The highest true peak analysed, linear.
    float peak() const { return m_highest; }
    std::size_t frames() const { return m_peaks.size(); }

    // One factor (0..1) a frame such that gain x peak x factor stays at or
    // below `ceiling` (linear). All 1 when nothing reaches the ceiling.
    // Returns whether any factor is below 1.
    bool envelope(float gain, float ceiling, std::vector<float>* factors) const;

private:
    // analyse() for either kind of sample.
    template <typename Sample> void analyseAny(const Sample* samples, std::size_t frames);

    int m_channels;
    int m_rate;
    std::vector<float> m_peaks;
    float m_highest = 0.0f;
};
