#pragma once
// PcmSink: where a render job puts its interleaved signed 16-bit stereo
// frames. One sink writes one (temporary) file; the job owns it and uses it
// on its own thread. Destroying a sink closes its file whatever state it is in.

#include <cstdint>

namespace vexa {

class PcmSink
{
public:
    virtual ~PcmSink() = default;
    // KELO_OK or a negative KELO_E_* code.
    virtual int write(const int16_t* samples, int frames) = 0;
    // Completes and closes the file; KELO_OK only when every byte reached it.
    virtual int finish() = 0;
};

} // namespace vexa
