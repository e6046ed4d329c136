#pragma once
// CSpanRender: the selection as the ringtone will hold it. Reads the
// selection's frames from the editor's temporary WAV with the fades as the
// engine writes them, finds the gain (the volume, or the gain that brings
// the selection to a loudness target) and the true-peak limiter's factors
// that keep any gain above 1 from clipping, measures the result, and writes
// it as the WAV the encoder reads. The preview plays the same gain and
// factors, so what is heard is what is written. Holds the selection's
// samples; works on any thread, one at a time; a cancel flag, when given,
// cuts the long steps short (their results are then not to be used).

#include "audio/wavehelper.h"

#include <QString>

#include <atomic>
#include <limits>
#include <vector>

// What the "Normalize" choice aims at.
enum class Normalize
{
    Off,      // the volume alone sets the gain
    Standard, // kStandardLufs
    Loud      // kLoudLufs
};

constexpr double kStandardLufs = -14.0;
constexpr double kLoudLufs = -11.0;
// The written file's true peak stays at or below this.
constexpr double kTruePeakCeilingDbtp = -1.0;
// Where the limiter holds peaks before encoding: lossy encoders add peaks.
constexpr double kLimiterCeilingDbtp = -2.0;
// The limiter holds its own true-peak estimate this far under its ceiling:
// the meters' interpolators (and the movement of the gain itself) read up
// to about this much higher.
constexpr double kLimiterEstimateMarginDb = 0.25;
// Normalising never raises a selection by more than this.
constexpr double kMaxNormalizeGainDb = 40.0;

// What a span read needs of an open record (layout and fades): the plain
// fields the GUI thread writes, none of those the audio thread touches.
tagWaveInfo spanLayout(const tagWaveInfo& wave);

// The frame of a time, rounded as the media engine cuts a span: where the
// export's selection begins and ends.
long long spanFrameAt(long long ms, unsigned rate);

// The target of a choice; NaN for Off.
double normalizeTarget(Normalize choice);

struct LoudnessSettings
{
    int volume = 100; // percent; the gain when there is no target
    double targetLufs = std::numeric_limits<double>::quiet_NaN();
    double ceilingDbtp = kLimiterCeilingDbtp;

    bool hasTarget() const { return targetLufs == targetLufs; }
    bool operator==(const LoudnessSettings& o) const;
};

// The gain of a selection and what it gives.
struct SpanLevels
{
    long long firstFrame = 0; // of the temporary WAV
    long long frames = 0;
    float gain = 1.0f;
    std::vector<float> envelope; // the limiter's factor a frame; empty when it does nothing
    double lufs = -std::numeric_limits<double>::infinity();     // of the result
    double truePeak = -std::numeric_limits<double>::infinity(); // dBTP of the result

    // Leaves every sample as it is.
    bool isIdentity() const { return gain == 1.0f && envelope.empty(); }
};

class CSpanRender
{
public:
    CSpanRender() = default;
    CSpanRender(const CSpanRender&) = delete;
    CSpanRender& operator=(const CSpanRender&) = delete;

    // The frames from beginMs to endMs of the WAV at `path`, laid out as the
    // record `wave` says, with its fades. False when nothing could be read.
    bool read(const tagWaveInfo& wave, const QString& path, long long beginMs, long long endMs);
    long long firstFrame() const { return m_firstFrame; }
    long long frames() const;
    int channels() const { return m_channels; }
    int sampleRate() const { return m_rate; }

    // Whether levels() and levelsAt() measure the result (its lufs and
    // truePeak), on by default; an export that measures its written file
    // instead turns it off and saves an oversampling pass.
    void setMeasureResult(bool on) { m_measureResult = on; }

    // The gain, the limiter's factors and the result's loudness for these
    // settings. With a target the gain is searched until the limited result
    // lands on it (a target beyond the ceiling's reach is met by limiting);
    // a silent selection keeps gain 1.
    SpanLevels levels(const LoudnessSettings& settings,
                      const std::atomic<bool>* cancel = nullptr) const;
    // A given gain, limited at a ceiling when it is not 1.
    SpanLevels levelsAt(float gain, double ceilingDbtp) const;
    // The samples with the gain and factors applied, as 16-bit frames.
    std::vector<short> rendered(const SpanLevels& levels) const;
    // rendered() as a 16-bit PCM WAV with the plain 44-byte header.
    bool writeWave(const QString& path, const SpanLevels& levels) const;

private:
    SpanLevels empty() const;
    // Integrated loudness of the samples under a gain and factors (empty:
    // none), and their true peak when asked.
    double loudnessOf(float gain, const std::vector<float>& factors, double* truePeak) const;
    // The limiter's own ceiling for a true-peak ceiling (the estimate margin off).
    static float limiterCeiling(double ceilingDbtp);
    // The limiter's factors for a gain (when `limit`) and the result's figures.
    // `analysed`: a limiter that already analysed these samples, or nullptr.
    SpanLevels finish(float gain, bool limit, double ceilingDbtp, const std::atomic<bool>* cancel,
                      const class CPeakLimiter* analysed = nullptr) const;

    std::vector<short> m_samples; // interleaved, fades applied
    long long m_firstFrame = 0;
    int m_channels = 0;
    int m_rate = 0;
    bool m_measureResult = true;
};
