#pragma once
// EncodedWriter: encodes the frames with one of libavcodec's encoders and
// stores them in its container: AAC-LC in an MPEG-4 audio file with the
// brand "M4A " (the muxer for iPod/iPhone files, which phones take as a
// ringtone), Vorbis in Ogg, or MP3 with an ID3v2 tag. Writes the title and
// artist tags. The encoder's priming samples are covered by what each
// container has for them (MPEG-4's edit list, Ogg's granule positions, the
// MP3 muxer's Xing/LAME header), so the sound starts on time. Owns every
// FFmpeg object it makes; used on the render job's thread.

#include "avhandles.h"
#include "job.h"
#include "pcmsink.h"

#include <string>

namespace vexa {

struct OutputCloser
{
    void operator()(AVFormatContext* c) const;
};
using OutputPtr = std::unique_ptr<AVFormatContext, OutputCloser>;

// The title and artist written into a file's tags; empty ones are left out.
struct Tags
{
    std::string title;
    std::string artist;
};

class EncodedWriter : public PcmSink
{
public:
    EncodedWriter() = default;
    ~EncodedWriter() override = default;
    EncodedWriter(const EncodedWriter&) = delete;
    EncodedWriter& operator=(const EncodedWriter&) = delete;

    // `kind` is any but OutputKind::Wav.
    int open(const std::string& path, OutputKind kind, int bitRate, const Tags& tags);
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
    bool m_padLastFrame = false; // the encoder takes whole frames only
};

} // namespace vexa
