#pragma once
// AacWriter: encodes the frames as AAC-LC with libavcodec's own encoder and
// stores them in an MPEG-4 audio file with the brand "M4A " (the muxer
// for iPod/iPhone files), which phones take as a ringtone. The encoder's
// priming samples are covered by the edit list the muxer writes, so the
// sound starts on time. Owns every FFmpeg object it makes; used on the
// render job's thread.

#include "avhandles.h"
#include "pcmsink.h"

#include <string>

namespace vexa {

struct OutputCloser
{
    void operator()(AVFormatContext* c) const;
};
using OutputPtr = std::unique_ptr<AVFormatContext, OutputCloser>;

class AacWriter : public PcmSink
{
public:
    AacWriter() = default;
    ~AacWriter() override = default;
    AacWriter(const AacWriter&) = delete;
    AacWriter& operator=(const AacWriter&) = delete;

    int open(const std::string& path, int bitRate);
    int write(const int16_t* samples, int frames) override;
    int finish() override;

private:
    int encode(AVFrame* frame);

    OutputPtr m_out;
    CodecPtr m_enc;
    FramePtr m_frame;
    PacketPtr m_packet;
    AVStream* m_stream = nullptr; // owned by m_out
    int m_fill = 0;               // frames already in m_frame
    int64_t m_pts = 0;
    bool m_headerWritten = false;
};

} // namespace vexa
