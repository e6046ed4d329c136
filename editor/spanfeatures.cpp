#include "editor/spanfeatures.h"

#include <algorithm>
#include <cmath>

extern "C" {
#include <libavutil/mem.h>
#include <libavutil/tx.h>
}

namespace {

// The chroma band: A1 to a little under 5 kHz.
constexpr double kLowestHz = 55.0;
constexpr double kHighestHz = 5000.0;
// Log compression of the pitch-class magnitudes (full scale = 1).
constexpr double kCompression = 100.0;
// Frames quieter than this have no chroma: noise has no pitch worth comparing.
constexpr double kSilentDb = -70.0;
// Decimated samples made per pass.
constexpr std::size_t kChunk = 8192;
// Consumed samples are dropped from the front once this many have passed.
constexpr std::size_t kCompactAt = 1 << 16;

} // namespace

struct CSpanFeatures::Ffmpeg
{
    AVTXContext* tx = nullptr;
    av_tx_fn fft = nullptr;
    // The FFT's buffers, aligned for its SIMD code: the windowed input and
    // the spectrum (interleaved complex, with room to spare).
    float* in = nullptr;
    float* spectrum = nullptr;

    ~Ffmpeg()
    {
        av_tx_uninit(&tx);
        av_freep(&in);
        av_freep(&spectrum);
    }
};

CSpanFeatures::CSpanFeatures(int sampleRate, int channels)
    : m_ff(std::make_unique<Ffmpeg>()), m_rate(sampleRate), m_channels(channels)
{
    if (sampleRate <= 0 || channels < 1 || channels > 2)
        return;
    m_decimation = std::max(1, int(std::lround(double(sampleRate) / kSpanAnalysisRate)));
    m_analysisRate = sampleRate / m_decimation;
    // Three running means of the decimation's length in a row: a cheap
    // low-pass whose nulls fall on the frequencies that would fold onto
    // the chroma band (13 dB down a little above it, 27 dB further up).
    m_kernel = {1.0f};
    for (int pass = 0; pass < 3 && m_decimation > 1; ++pass) {
        std::vector<float> wider(m_kernel.size() + std::size_t(m_decimation) - 1, 0.0f);
        for (std::size_t i = 0; i < m_kernel.size(); ++i)
            for (int k = 0; k < m_decimation; ++k)
                wider[i + std::size_t(k)] += m_kernel[i] / float(m_decimation);
        m_kernel = std::move(wider);
    }
    const float scale = 1.0f;
    if (av_tx_init(&m_ff->tx, &m_ff->fft, AV_TX_FLOAT_RDFT, 0, kSpanFftSize, &scale, 0) < 0)
        return;
    m_ff->in = static_cast<float*>(av_malloc(sizeof(float) * kSpanFftSize));
    m_ff->spectrum = static_cast<float*>(av_malloc(sizeof(float) * (kSpanFftSize + 16)));
    if (!m_ff->in || !m_ff->spectrum) {
        av_tx_uninit(&m_ff->tx);
        return;
    }

    m_window.resize(kSpanFftSize);
    double windowSum = 0.0;
    for (int i = 0; i < kSpanFftSize; ++i) {
        m_window[i] = float(0.5 - 0.5 * std::cos(2.0 * M_PI * i / kSpanFftSize));
        windowSum += m_window[i];
    }
    // A full-scale sine then reads 1 in its bin.
    for (float& w : m_window)
        w = float(w * 2.0 / windowSum);
    m_binClass.assign(kSpanFftSize / 2 + 1, -1);
    for (int k = 1; k <= kSpanFftSize / 2; ++k) {
        const double hz = double(k) * m_analysisRate / kSpanFftSize;
        if (hz < kLowestHz || hz > kHighestHz)
            continue;
        const long midi = std::lround(69.0 + 12.0 * std::log2(hz / 440.0));
        m_binClass[k] = int(midi % 12);
    }
    // The first window ends one hop into the song.
    m_samples.assign(kSpanFftSize - kSpanHop, 0.0f);
}

CSpanFeatures::~CSpanFeatures() = default;

bool CSpanFeatures::isValid() const
{
    return m_ff->tx && m_ff->in && m_ff->spectrum;
}

double CSpanFeatures::frameMs() const
{
    return m_analysisRate > 0 ? 1000.0 * kSpanHop * kSpanHopsPerFrame / m_analysisRate : 0.0;
}

long long CSpanFeatures::durationMs() const
{
    return m_rate > 0 ? m_inputFrames * 1000 / m_rate : 0;
}

void CSpanFeatures::addFrames(const std::int16_t* pcm, std::size_t count)
{
    if (!isValid())
        return;
    m_inputFrames += static_cast<long long>(count);
    constexpr float kFullScale = 1.0f / 32768.0f;
    const std::size_t had = m_mono.size();
    m_mono.resize(had + count);
    float* mono = m_mono.data() + had;
    if (m_channels == 2) {
        for (std::size_t i = 0; i < count; ++i)
            mono[i] = (float(pcm[2 * i]) + float(pcm[2 * i + 1])) * (0.5f * kFullScale);
    } else {
        for (std::size_t i = 0; i < count; ++i)
            mono[i] = float(pcm[i]) * kFullScale;
    }
    decimate();
}

void CSpanFeatures::decimate()
{
    const std::size_t taps = m_kernel.size();
    const std::size_t step = std::size_t(m_decimation);
    float out[kChunk];
    for (;;) {
        std::size_t made = 0;
        while (made < kChunk && m_monoNext + taps <= m_mono.size()) {
            const float* x = m_mono.data() + m_monoNext;
            float sum = 0.0f;
            for (std::size_t k = 0; k < taps; ++k)
                sum += m_kernel[k] * x[k];
            out[made++] = sum;
            m_monoNext += step;
        }
        if (made == 0)
            break;
        addAnalysisSamples(out, made);
    }
    m_mono.erase(m_mono.begin(), m_mono.begin() + std::ptrdiff_t(m_monoNext));
    m_monoNext = 0;
}

void CSpanFeatures::finish()
{
    if (!isValid())
        return;
    // The kernel's tail runs out on silence.
    m_mono.resize(m_mono.size() + m_kernel.size(), 0.0f);
    decimate();
    // The last partial hop and frame count when they hold sound.
    if (m_samples.size() > m_next + (kSpanFftSize - kSpanHop)) {
        m_samples.resize(m_next + kSpanFftSize, 0.0f);
        analyseHop();
    }
    if (m_hops > 0)
        closeFrame();
}

void CSpanFeatures::addAnalysisSamples(const float* samples, std::size_t count)
{
    m_samples.insert(m_samples.end(), samples, samples + count);
    while (m_samples.size() >= m_next + kSpanFftSize) {
        analyseHop();
        m_next += kSpanHop;
    }
    if (m_next >= kCompactAt) {
        m_samples.erase(m_samples.begin(), m_samples.begin() + std::ptrdiff_t(m_next));
        m_next = 0;
    }
}

void CSpanFeatures::analyseHop()
{
    const float* x = m_samples.data() + m_next;
    double power = 0.0;
    // The level of the hop's new samples only: each sample counts once.
    for (int i = kSpanFftSize - kSpanHop; i < kSpanFftSize; ++i)
        power += double(x[i]) * x[i];
    m_power += power / kSpanHop;
    for (int i = 0; i < kSpanFftSize; ++i)
        m_ff->in[i] = x[i] * m_window[i];
    m_ff->fft(m_ff->tx, m_ff->spectrum, m_ff->in, sizeof(float));
    for (int k = 1; k <= kSpanFftSize / 2; ++k) {
        const int pc = m_binClass[k];
        if (pc < 0)
            continue;
        const float re = m_ff->spectrum[2 * k];
        const float im = m_ff->spectrum[2 * k + 1];
        m_chroma[pc] += std::sqrt(double(re) * re + double(im) * im);
    }
    if (++m_hops == kSpanHopsPerFrame)
        closeFrame();
}

void CSpanFeatures::closeFrame()
{
    SpanFeatureFrame frame;
    const double power = m_power / m_hops;
    frame.levelDb = float(power > 1e-12 ? 10.0 * std::log10(power) : -120.0);
    if (frame.levelDb > kSilentDb) {
        double norm = 0.0;
        for (int pc = 0; pc < 12; ++pc) {
            const double c = std::log1p(kCompression * m_chroma[pc] / m_hops);
            frame.chroma[pc] = float(c);
            norm += c * c;
        }
        norm = std::sqrt(norm);
        for (float& c : frame.chroma)
            c = norm > 0.0 ? float(c / norm) : 0.0f;
    }
    m_frames.push_back(frame);
    m_chroma.fill(0.0);
    m_power = 0.0;
    m_hops = 0;
}
