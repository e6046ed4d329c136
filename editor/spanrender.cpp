#include "editor/spanrender.h"

#include "audio/loudnessmeter.h"
#include "audio/peaklimiter.h"

#include <QFile>
#include <QSysInfo>
#include <QtEndian>

#include <algorithm>
#include <cmath>
#include <cstring>

namespace {

// The loudness search stops this close to its target, or after this many rounds.
constexpr double kLoudnessTolerance = 0.05;
constexpr int kLoudnessRounds = 8;

bool cancelled(const std::atomic<bool>* cancel)
{
    return cancel && cancel->load(std::memory_order_relaxed);
}

void put16(QByteArray* out, unsigned v)
{
    out->append(char(v & 0xFF));
    out->append(char((v >> 8) & 0xFF));
}

void put32(QByteArray* out, unsigned v)
{
    put16(out, v & 0xFFFF);
    put16(out, v >> 16);
}

} // namespace

long long spanFrameAt(long long ms, unsigned rate)
{
    return (ms * static_cast<long long>(rate) + 500) / 1000;
}

tagWaveInfo spanLayout(const tagWaveInfo& wave)
{
    tagWaveInfo layout;
    std::memset(&layout, 0, sizeof layout);
    layout.formatKey = wave.formatKey;
    layout.frameCount = wave.frameCount;
    layout.sampleRate = wave.sampleRate;
    layout.frameBytes = wave.frameBytes;
    layout.silence = wave.silence;
    layout.volume = wave.volume;
    layout.fadeInStart = wave.fadeInStart;
    layout.fadeInEnd = wave.fadeInEnd;
    layout.fadeOutStart = wave.fadeOutStart;
    layout.fadeOutEnd = wave.fadeOutEnd;
    return layout;
}

double normalizeTarget(Normalize choice)
{
    switch (choice) {
    case Normalize::Standard:
        return kStandardLufs;
    case Normalize::Loud:
        return kLoudLufs;
    case Normalize::Off:
        break;
    }
    return std::numeric_limits<double>::quiet_NaN();
}

bool LoudnessSettings::operator==(const LoudnessSettings& o) const
{
    const bool sameTarget = hasTarget() ? o.targetLufs == targetLufs : !o.hasTarget();
    return volume == o.volume && sameTarget && ceilingDbtp == o.ceilingDbtp;
}

bool CSpanRender::read(const tagWaveInfo& wave, const QString& path, long long beginMs,
                       long long endMs)
{
    m_samples.clear();
    m_firstFrame = 0;
    m_channels = 0;
    m_rate = 0;
    const bool bits16 = wave.silence == 0;
    const int channels = bits16 ? wave.frameBytes / 2 : wave.frameBytes;
    if (channels < 1 || channels > 2 || wave.sampleRate == 0 || endMs <= beginMs || beginMs < 0)
        return false;
    const long long first = spanFrameAt(beginMs, wave.sampleRate);
    const long long last =
        std::min<long long>(spanFrameAt(endMs, wave.sampleRate), wave.frameCount);
    if (last <= first)
        return false;

    const std::size_t wanted = static_cast<std::size_t>(last - first) * channels;
    // 16-bit data is read straight into the samples (the bytes are swapped
    // where the machine is not little-endian); 8-bit data, which the
    // editor's own WAVs never hold, is widened.
    m_samples.resize(wanted);
    std::vector<unsigned char> bytes(bits16 ? 0 : wanted);
    unsigned char* into =
        bits16 ? reinterpret_cast<unsigned char*>(m_samples.data()) : bytes.data();
    const long long got =
        WaveHelperReadFaded(&wave, QFile::encodeName(path).constData(), first, last - first, into);
    if (got <= 0) {
        m_samples.clear();
        return false;
    }
    const std::size_t samples = static_cast<std::size_t>(got) * channels;
    m_samples.resize(samples);
    for (std::size_t i = 0; i < samples; ++i) {
        if (!bits16)
            m_samples[i] = static_cast<short>((int(bytes[i]) - 128) * 256);
        else if constexpr (QSysInfo::ByteOrder == QSysInfo::BigEndian)
            m_samples[i] = qFromLittleEndian<qint16>(&m_samples[i]);
    }
    m_firstFrame = first;
    m_channels = channels;
    m_rate = static_cast<int>(wave.sampleRate);
    return true;
}

long long CSpanRender::frames() const
{
    return m_channels ? static_cast<long long>(m_samples.size()) / m_channels : 0;
}

double CSpanRender::loudnessOf(float gain, const std::vector<float>& factors,
                               double* truePeak) const
{
    // A block at a time: no second copy of a long selection.
    constexpr std::size_t kBlockFrames = 65536;
    const std::size_t n = static_cast<std::size_t>(frames());
    std::vector<float> block(std::min(n, kBlockFrames) * m_channels);
    CLoudnessMeter meter(m_channels, m_rate, truePeak != nullptr);
    for (std::size_t start = 0; start < n; start += kBlockFrames) {
        const std::size_t count = std::min(kBlockFrames, n - start);
        for (std::size_t f = 0; f < count; ++f) {
            const float k = gain / 32768.0f * (factors.empty() ? 1.0f : factors[start + f]);
            for (int c = 0; c < m_channels; ++c)
                block[f * m_channels + c] = m_samples[(start + f) * m_channels + c] * k;
        }
        meter.add(block.data(), count);
    }
    if (truePeak)
        *truePeak = meter.truePeak();
    return meter.integrated();
}

float CSpanRender::limiterCeiling(double ceilingDbtp)
{
    return static_cast<float>(CLoudnessMeter::fromDb(ceilingDbtp - kLimiterEstimateMarginDb));
}

SpanLevels CSpanRender::levels(const LoudnessSettings& settings,
                               const std::atomic<bool>* cancel) const
{
    if (frames() == 0)
        return empty();
    const double maxGain = CLoudnessMeter::fromDb(kMaxNormalizeGainDb);
    if (!settings.hasTarget()) {
        // Lowering the level cannot clip; 100 % leaves the selection as it is.
        const double gain = settings.volume / 100.0;
        return finish(static_cast<float>(gain), gain > 1.0, settings.ceilingDbtp, cancel);
    }
    const double unit = loudnessOf(1.0f, {}, nullptr);
    // Silence has no loudness to bring anywhere.
    if (!std::isfinite(unit) || unit <= kSilenceLufs)
        return finish(1.0f, false, settings.ceilingDbtp, cancel);

    // The gain that lands the limited result on the target: limiting takes
    // away loudness, so the search steps by the error over the slope of the
    // last step (in dB), which is 1 without limiting and less with it.
    CPeakLimiter limiter(m_channels, m_rate);
    limiter.analyse(m_samples.data(), static_cast<std::size_t>(frames()));
    const float ceiling = limiterCeiling(settings.ceilingDbtp);
    double gainDb = std::min(settings.targetLufs - unit, kMaxNormalizeGainDb);
    double lastGainDb = 0.0;
    double lastLufs = unit;
    std::vector<float> factors;
    for (int round = 0; round < kLoudnessRounds && !cancelled(cancel); ++round) {
        const float gain = static_cast<float>(std::min(CLoudnessMeter::fromDb(gainDb), maxGain));
        if (!limiter.envelope(gain, ceiling, &factors))
            factors.clear();
        const double lufs = loudnessOf(gain, factors, nullptr);
        const double error = settings.targetLufs - lufs;
        if (std::fabs(error) < kLoudnessTolerance || (error > 0 && gainDb >= kMaxNormalizeGainDb))
            break;
        const double slope = gainDb != lastGainDb
                                 ? std::clamp((lufs - lastLufs) / (gainDb - lastGainDb), 0.05, 1.0)
                                 : 1.0;
        lastGainDb = gainDb;
        lastLufs = lufs;
        gainDb = std::min(gainDb + error / slope, kMaxNormalizeGainDb);
    }
    return finish(static_cast<float>(std::min(CLoudnessMeter::fromDb(gainDb), maxGain)), true,
                  settings.ceilingDbtp, cancel, &limiter);
}

SpanLevels CSpanRender::empty() const
{
    SpanLevels none;
    none.firstFrame = m_firstFrame;
    return none;
}

SpanLevels CSpanRender::levelsAt(float gain, double ceilingDbtp) const
{
    if (frames() == 0)
        return empty();
    return finish(gain, gain != 1.0f, ceilingDbtp, nullptr);
}

SpanLevels CSpanRender::finish(float gain, bool limit, double ceilingDbtp,
                               const std::atomic<bool>* cancel, const CPeakLimiter* analysed) const
{
    SpanLevels result;
    result.firstFrame = m_firstFrame;
    result.frames = frames();
    result.gain = gain;
    if (limit && !cancelled(cancel)) {
        CPeakLimiter own(m_channels, m_rate);
        if (!analysed)
            own.analyse(m_samples.data(), static_cast<std::size_t>(result.frames));
        const CPeakLimiter& limiter = analysed ? *analysed : own;
        if (!limiter.envelope(gain, limiterCeiling(ceilingDbtp), &result.envelope))
            result.envelope.clear();
    }
    if (m_measureResult && !cancelled(cancel))
        result.lufs = loudnessOf(result.gain, result.envelope, &result.truePeak);
    return result;
}

std::vector<short> CSpanRender::rendered(const SpanLevels& levels) const
{
    if (levels.isIdentity())
        return m_samples;
    std::vector<short> out(m_samples.size());
    const std::size_t n = static_cast<std::size_t>(frames());
    for (std::size_t f = 0; f < n; ++f) {
        const float k = levels.gain * (f < levels.envelope.size() ? levels.envelope[f] : 1.0f);
        for (int c = 0; c < m_channels; ++c)
            out[f * m_channels + c] = WaveGainSample(m_samples[f * m_channels + c], k);
    }
    return out;
}

bool CSpanRender::writeWave(const QString& path, const SpanLevels& levels) const
{
    if (m_channels == 0)
        return false;
    const std::vector<short> samples = rendered(levels);
    const unsigned dataBytes = static_cast<unsigned>(samples.size() * sizeof(short));
    const unsigned frameBytes = static_cast<unsigned>(m_channels) * 2;
    QByteArray header("RIFF");
    put32(&header, 36 + dataBytes);
    header.append("WAVEfmt ");
    put32(&header, 16);
    put16(&header, 1); // PCM
    put16(&header, static_cast<unsigned>(m_channels));
    put32(&header, static_cast<unsigned>(m_rate));
    put32(&header, static_cast<unsigned>(m_rate) * frameBytes);
    put16(&header, frameBytes);
    put16(&header, 16);
    header.append("data");
    put32(&header, dataBytes);

    QFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate))
        return false;
    QByteArray data(reinterpret_cast<const char*>(samples.data()),
                    static_cast<qsizetype>(dataBytes));
    // The samples are little-endian in the file.
    if constexpr (QSysInfo::ByteOrder == QSysInfo::BigEndian) {
        for (qsizetype i = 0; i + 1 < data.size(); i += 2)
            std::swap(data[i], data[i + 1]);
    }
    return file.write(header) == header.size() && file.write(data) == data.size();
}
