#pragma once
// A synthetic pop song for pictures and benchmarks of the waveform editor:
// 120 bpm, intro, verses, choruses, a break and an outro, with kick, snare,
// hi-hat, bass, pad and lead, so that the wave has the shape of real music
// (beats, louder choruses, quiet passages). 16-bit stereo, deterministic.

#include <QtGlobal>

#include <algorithm>
#include <cmath>
#include <vector>

namespace twed {

// Returns interleaved stereo 16-bit samples of `seconds` at `rate`.
inline std::vector<qint16> synthSong(int rate, double seconds)
{
    const qint64 frames = qint64(seconds * rate);
    std::vector<qint16> out(size_t(frames) * 2);
    const double beat = 0.5; // 120 bpm
    const double bar = 4 * beat;
    // A-minor progression, one chord per bar: Am F C G.
    const double roots[4] = {110.0, 87.31, 130.81, 98.0};
    const double thirds[4] = {1.1892, 1.2599, 1.2599, 1.2599};
    const double lead[8] = {440.0, 523.25, 587.33, 659.25, 587.33, 523.25, 493.88, 440.0};
    quint32 noiseState = 12345u;
    double hatLow = 0.0;
    const double twoPi = 2.0 * M_PI;

    for (qint64 i = 0; i < frames; ++i) {
        const double t = double(i) / rate;
        const double inBeat = std::fmod(t, beat);
        const int beatNo = int(t / beat);
        const int barNo = int(t / bar);
        const int chord = barNo % 4;

        // Sections: intro, verse, chorus, break, verse, chorus, outro.
        const double pos = std::fmod(t, 88.0);
        const bool intro = pos < 8.0;
        const bool chorus = (pos >= 24.0 && pos < 40.0) || (pos >= 64.0 && pos < 80.0);
        const bool brk = pos >= 40.0 && pos < 48.0;
        const bool outro = pos >= 80.0;
        double level = chorus ? 1.0 : 0.62;
        if (intro)
            level = 0.25 + 0.05 * pos;
        if (outro)
            level = 0.6 * std::max(0.0, 1.0 - (pos - 80.0) / 8.0);

        noiseState = noiseState * 1664525u + 1013904223u;
        const double noise = double(noiseState >> 8) / double(1u << 24) * 2.0 - 1.0;

        // Kick on every beat: a falling sine with a fast decay.
        double kick = 0.0;
        if (!intro) {
            const double f = 50.0 + 90.0 * std::exp(-inBeat * 30.0);
            kick = std::sin(twoPi * f * inBeat) * std::exp(-inBeat * 9.0);
        }
        // Snare on beats 2 and 4.
        double snare = 0.0;
        if (!intro && !brk && beatNo % 2 == 1)
            snare =
                (0.7 * noise + 0.4 * std::sin(twoPi * 185.0 * inBeat)) * std::exp(-inBeat * 14.0);
        // Hi-hat on every half beat: high-passed noise.
        const double inHalf = std::fmod(t, beat / 2);
        hatLow += 0.3 * (noise - hatLow);
        const double hat = (noise - hatLow) * std::exp(-inHalf * 60.0);
        // Bass: a soft saw on the chord's root, eighth notes.
        double bass = 0.0;
        if (!intro && !brk) {
            const double ph = std::fmod(roots[chord] / 2 * t, 1.0);
            bass = (2.0 * ph - 1.0) * (0.6 + 0.4 * std::exp(-inHalf * 8.0));
        }
        // Pad: root, third and fifth with a slow swell.
        const double swell = 0.6 + 0.4 * std::sin(twoPi * t / bar);
        const double r = roots[chord] * 2;
        const double pad = (std::sin(twoPi * r * t) + std::sin(twoPi * r * thirds[chord] * t) +
                            std::sin(twoPi * r * 1.4983 * t)) /
                           3.0 * swell;
        // Lead in the choruses: a plucked square-ish melody.
        double leadTone = 0.0;
        if (chorus) {
            const double f = lead[beatNo % 8];
            leadTone = std::tanh(3.0 * std::sin(twoPi * f * t)) * std::exp(-inBeat * 3.0) * 0.5;
        }

        const double mid = 0.55 * kick + 0.35 * bass + 0.22 * pad + 0.3 * leadTone;
        const double left = level * (mid + 0.32 * snare + 0.10 * hat);
        const double right = level * (mid + 0.28 * snare + 0.16 * hat);
        out[size_t(i) * 2] = qint16(std::lround(32767.0 * std::tanh(1.3 * left) * 0.95));
        out[size_t(i) * 2 + 1] = qint16(std::lround(32767.0 * std::tanh(1.3 * right) * 0.95));
    }
    return out;
}

} // namespace twed
