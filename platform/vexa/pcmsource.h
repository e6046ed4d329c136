#pragma once
// PcmSource: reads one media file's best audio stream and hands it out as
// interleaved signed 16-bit samples (stereo at 44 100 Hz for a render, or
// the rate and channels a reader asks for), cut to a span in milliseconds
// (0..0 is the whole file). Owns every FFmpeg object it opens; used by one
// job on that job's thread.

#include "avhandles.h"

#include "vexa.h"

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace vexa {

// The format of every render.
constexpr int kOutRate = KELO_OUTPUT_SAMPLE_RATE;
constexpr int kOutChannels = 2;

class PcmSource
{
public:
    // `rate` Hz (at least 1000) and `channels` (1 or 2).
    explicit PcmSource(int rate = kOutRate, int channels = kOutChannels);
    ~PcmSource();
    PcmSource(const PcmSource&) = delete;
    PcmSource& operator=(const PcmSource&) = delete;

    // Opens the file and positions it at the span's start. KELO_OK or a
    // negative KELO_E_* code.
    int open(const std::string& path, int64_t startMs, int64_t endMs);

    // The next block of frames, valid until the next call; *frames is 0 at
    // the end of the span. KELO_OK or a negative code.
    int read(const int16_t** samples, int* frames);

    // After the last read: KELO_OK when the output is worth keeping, else
    // why not (nothing decodable, mostly undecodable, span past the end).
    int endStatus() const;

    // Reads every block to the span's end into `block` (frames > 0 each
    // time), stopping at the first negative answer it gives. That answer, a
    // read's failure, or endStatus().
    int readAll(const std::function<int(const int16_t* samples, int frames)>& block);

    // How far the render has come, 0..1 (an estimate).
    double progress() const;

    int64_t framesDelivered() const { return m_delivered; }
    int rate() const { return m_rate; }
    int channels() const { return m_channels; }

private:
    int pump();
    int receiveFrames();
    int convert(const AVFrame* frame);
    int setupResampler(const AVFrame* frame);
    // Where the first decoded frame lies in output frames (m_pos), and
    // which of its input samples a span's resampler skips to stay on the
    // whole stream's grid.
    void placeOrigin(const AVFrame* frame);
    void keepSpan(int64_t firstPos, int frames);
    int64_t expectedFrames() const;

    int m_rate;
    int m_channels;
    InputPtr m_fmt;
    CodecPtr m_dec;
    SwrPtr m_swr;
    FramePtr m_frame;
    PacketPtr m_packet;
    int m_stream = -1;
    AVRational m_timeBase{1, 1};
    int64_t m_streamStart = 0; // in the stream's time base

    bool m_span = false;
    int64_t m_startFrame = 0; // output frame index where the span begins
    int64_t m_endFrame = 0;   // one past its last frame
    bool m_haveOrigin = false;
    int64_t m_pos = 0; // output frame index of the next converted frame
    int64_t m_delivered = 0;
    int64_t m_dropInput = 0; // input samples still to skip before resampling

    // The resampler's current input, to notice a change mid-stream.
    int m_inRate = 0;
    int m_inFormat = -1;
    AVChannelLayout m_inLayout{};

    std::vector<int16_t> m_out;
    int m_outFrames = 0;

    bool m_draining = false;
    bool m_finished = false;
    int64_t m_packets = 0;
    int64_t m_decodeErrors = 0;
    int64_t m_durationFrames = 0; // from the container, 0 when unknown
};

} // namespace vexa
