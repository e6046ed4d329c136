#pragma once
// CLoudnessMeter: the loudness of interleaved PCM as the broadcast meters
// read it: integrated loudness (ITU-R BS.1770 with the EBU R128 gates, in
// LUFS) and true peak (4x oversampled, in dBTP), through libebur128. Feed
// it with add() in order, read the figures at any time. The meter owns its
// libebur128 state; one thread at a time.

#include <cstddef>
#include <memory>

// Below this a selection counts as silence: the meter's absolute gate.
constexpr double kSilenceLufs = -70.0;

class CLoudnessMeter
{
public:
    // truePeak: also follow the true peak (costs an oversampling pass).
    CLoudnessMeter(int channels, int sampleRate, bool truePeak = true);
    ~CLoudnessMeter();

    CLoudnessMeter(const CLoudnessMeter&) = delete;
    CLoudnessMeter& operator=(const CLoudnessMeter&) = delete;

    // False when libebur128 refused the channel count or the rate.
    bool isValid() const { return m_state != nullptr; }
    // `frames` interleaved frames, 16-bit or float (full scale 1.0).
    void add(const short* samples, std::size_t frames);
    void add(const float* samples, std::size_t frames);

    // LUFS; -infinity for silence or nothing fed.
    double integrated() const;
    // dBTP, the highest of all channels; -infinity for silence. 0 when the
    // meter was made without true peak.
    double truePeak() const;

    // 20 log10 of a linear level; -infinity for 0.
    static double toDb(double linear);
    static double fromDb(double db);

private:
    // libebur128's state (its type is an unnamed struct: no forward declaration).
    struct State;
    struct Free
    {
        void operator()(State* state) const;
    };
    std::unique_ptr<State, Free> m_state;
    int m_channels;
    bool m_truePeak;
};
