#include "audio/loudnessmeter.h"

#include <ebur128.h>

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

constexpr double kMinusInfinity = -std::numeric_limits<double>::infinity();

} // namespace

struct CLoudnessMeter::State
{
    ebur128_state* meter;
};

void CLoudnessMeter::Free::operator()(State* state) const
{
    ebur128_destroy(&state->meter);
    delete state;
}

CLoudnessMeter::CLoudnessMeter(int channels, int sampleRate, bool truePeak)
    : m_channels(channels), m_truePeak(truePeak)
{
    if (channels <= 0 || sampleRate <= 0)
        return;
    const int mode = EBUR128_MODE_I | (truePeak ? EBUR128_MODE_TRUE_PEAK : 0);
    ebur128_state* meter =
        ebur128_init(static_cast<unsigned>(channels), static_cast<unsigned long>(sampleRate), mode);
    if (meter)
        m_state.reset(new State{meter});
}

CLoudnessMeter::~CLoudnessMeter() = default;

void CLoudnessMeter::add(const short* samples, std::size_t frames)
{
    if (m_state && frames > 0)
        ebur128_add_frames_short(m_state->meter, samples, frames);
}

void CLoudnessMeter::add(const float* samples, std::size_t frames)
{
    if (m_state && frames > 0)
        ebur128_add_frames_float(m_state->meter, samples, frames);
}

double CLoudnessMeter::integrated() const
{
    double lufs = kMinusInfinity;
    if (!m_state || ebur128_loudness_global(m_state->meter, &lufs) != EBUR128_SUCCESS)
        return kMinusInfinity;
    return lufs;
}

double CLoudnessMeter::truePeak() const
{
    if (!m_state || !m_truePeak)
        return 0.0;
    double highest = 0.0;
    for (int c = 0; c < m_channels; ++c) {
        double peak = 0.0;
        if (ebur128_true_peak(m_state->meter, static_cast<unsigned>(c), &peak) == EBUR128_SUCCESS)
            highest = std::max(highest, peak);
    }
    return toDb(highest);
}

double CLoudnessMeter::toDb(double linear)
{
    return linear > 0.0 ? 20.0 * std::log10(linear) : kMinusInfinity;
}

double CLoudnessMeter::fromDb(double db)
{
    return std::pow(10.0, db / 20.0);
}
