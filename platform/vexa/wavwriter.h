#pragma once
// WavWriter: writes the canonical 44-byte-header PCM WAV (RIFF, a 16-byte
// fmt chunk, data) of 44 100 Hz stereo 16-bit and nothing else, because the
// audio engine reads exactly that layout. The sizes are patched in at the
// end. Owns its BlockWriter; used on the render job's thread.

#include "blockwriter.h"
#include "pcmsink.h"

#include <string>

namespace vexa {

class WavWriter : public PcmSink
{
public:
    WavWriter() = default;
    ~WavWriter() override = default;
    WavWriter(const WavWriter&) = delete;
    WavWriter& operator=(const WavWriter&) = delete;

    // Creates or truncates the file.
    int open(const std::string& path);
    int write(const int16_t* samples, int frames) override;
    int finish() override;

    // The 44 header bytes for a data chunk of the given size.
    static void header(unsigned char out[44], uint32_t dataBytes);

private:
    BlockWriter m_out;
    bool m_open = false;
    uint64_t m_dataBytes = 0;
};

} // namespace vexa
