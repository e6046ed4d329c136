#include "audio/peaklimiter.h"

#include <algorithm>
#include <cmath>
#include <deque>

namespace {

// Taps on each side of an interpolated point; with the Blackman window the
// interpolator is flat to within 0.1 dB up to 90 % of the Nyquist frequency.
constexpr int kHalfTaps = 16;
constexpr int kTaps = 2 * kHalfTaps;
// Points between two frames: 4x oversampling, as the true-peak meters do.
constexpr int kPhases = 4;

struct Interpolator
{
    // coefficients[p - 1][k]: the weight of frame n - kHalfTaps + 1 + k in
    // the point n + p / kPhases.
    float coefficients[kPhases - 1][kTaps];

    Interpolator()
    {
        constexpr double pi = 3.14159265358979323846;
        for (int p = 1; p < kPhases; ++p) {
            const double f = double(p) / kPhases;
            double sum = 0.0;
            double h[kTaps];
            for (int k = 0; k < kTaps; ++k) {
                const double t = f - double(k - kHalfTaps + 1);
                const double sinc = std::sin(pi * t) / (pi * t);
                const double w = 0.42 + 0.5 * std::cos(pi * t / kHalfTaps) +
                                 0.08 * std::cos(2 * pi * t / kHalfTaps);
                h[k] = sinc * w;
                sum += h[k];
            }
            // Unity gain at DC: a constant signal keeps its level between frames.
            for (int k = 0; k < kTaps; ++k)
                coefficients[p - 1][k] = static_cast<float>(h[k] / sum);
        }
    }
};

const Interpolator& interpolator()
{
    static const Interpolator instance;
    return instance;
}

} // namespace

CPeakLimiter::CPeakLimiter(int channels, int sampleRate)
    : m_channels(std::max(channels, 1)), m_rate(std::max(sampleRate, 1))
{
}

void CPeakLimiter::analyse(const float* samples, std::size_t frames)
{
    analyseAny(samples, frames);
}

void CPeakLimiter::analyse(const short* samples, std::size_t frames)
{
    analyseAny(samples, frames);
}

template <typename Sample> void CPeakLimiter::analyseAny(const Sample* samples, std::size_t frames)
{
    // 16-bit samples are scaled to full scale 1.0 as they are taken.
    const float scale = sizeof(Sample) == sizeof(short) ? 1.0f / 32768.0f : 1.0f;
    m_peaks.assign(frames, 0.0f);
    m_highest = 0.0f;
    if (frames == 0)
        return;
    const Interpolator& ip = interpolator();
    // One channel at a time, with silence around it for the filter's reach.
    std::vector<float> padded(frames + kTaps, 0.0f);
    for (int c = 0; c < m_channels; ++c) {
        for (std::size_t n = 0; n < frames; ++n)
            padded[n + kHalfTaps - 1] = static_cast<float>(samples[n * m_channels + c]) * scale;
        for (std::size_t n = 0; n < frames; ++n) {
            const float* window = padded.data() + n;
            float highest = std::fabs(window[kHalfTaps - 1]);
            for (int p = 0; p < kPhases - 1; ++p) {
                const float* h = ip.coefficients[p];
                float y = 0.0f;
                for (int k = 0; k < kTaps; ++k)
                    y += h[k] * window[k];
                highest = std::max(highest, std::fabs(y));
            }
            // A point between frames n and n + 1 counts for both.
            m_peaks[n] = std::max(m_peaks[n], highest);
            if (n + 1 < frames)
                m_peaks[n + 1] = std::max(m_peaks[n + 1], highest);
        }
    }
    m_highest = *std::max_element(m_peaks.begin(), m_peaks.end());
}

bool CPeakLimiter::envelope(float gain, float ceiling, std::vector<float>* factors) const
{
    const std::size_t n = m_peaks.size();
    factors->assign(n, 1.0f);
    if (n == 0 || gain * m_highest <= ceiling)
        return false;

    std::vector<float> needed(n);
    for (std::size_t i = 0; i < n; ++i) {
        const float level = gain * m_peaks[i];
        needed[i] = level > ceiling ? ceiling / level : 1.0f;
    }

    const std::size_t ahead = std::max<std::size_t>(
        1, static_cast<std::size_t>(std::lround(kLookAheadMs * m_rate / 1000.0)));
    // The lowest need from each frame over the look-ahead (a sliding
    // minimum, kept by a deque of rising values, from the end backwards).
    std::vector<float> lowest(n);
    std::deque<std::size_t> rising;
    for (std::size_t i = n; i-- > 0;) {
        while (!rising.empty() && needed[rising.back()] >= needed[i])
            rising.pop_back();
        rising.push_back(i);
        while (rising.front() >= i + ahead)
            rising.pop_front();
        lowest[i] = needed[rising.front()];
    }

    // The moving average over the look-ahead turns the steps into ramps; at
    // a peak every value averaged is at most its need, so the ramp reaches it.
    const double release = 1.0 - std::exp(-1000.0 / (kReleaseMs * m_rate));
    double sum = double(ahead); // frames before the start count as 1
    float previous = 1.0f;
    for (std::size_t i = 0; i < n; ++i) {
        sum += lowest[i] - (i >= ahead ? lowest[i - ahead] : 1.0f);
        const float ramp = static_cast<float>(sum / double(ahead));
        const float recovered = static_cast<float>(previous + (1.0 - previous) * release);
        // Rounding must never let a peak through.
        const float factor = std::min({ramp, recovered, needed[i]});
        (*factors)[i] = factor;
        previous = factor;
    }
    return true;
}
