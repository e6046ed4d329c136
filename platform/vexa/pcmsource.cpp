// Decoding, resampling and span cutting for the render jobs.

#include "pcmsource.h"

#include "vexa.h"

#include <algorithm>
#include <cstring>
#include <limits>
#include <numeric>

extern "C" {
#include <libavutil/channel_layout.h>
#include <libavutil/mathematics.h>
#include <libavutil/samplefmt.h>
}

namespace vexa {

namespace {

// Seeking lands this far before the span so that decoders with overlapping
// frames (AAC, MP3) are settled when the first kept sample comes out.
constexpr int64_t kSeekLeadMs = 500;

} // namespace

PcmSource::PcmSource(int rate, int channels) : m_rate(rate), m_channels(channels) {}

PcmSource::~PcmSource()
{
    av_channel_layout_uninit(&m_inLayout);
}

int PcmSource::open(const std::string& path, int64_t startMs, int64_t endMs)
{
    m_fmt = openMedia(path);
    if (!m_fmt)
        return KELO_E_OPEN;

    const AVCodec* codec = nullptr;
    m_stream = av_find_best_stream(m_fmt.get(), AVMEDIA_TYPE_AUDIO, -1, -1, &codec, 0);
    if (m_stream == AVERROR_DECODER_NOT_FOUND)
        return KELO_E_CODEC;
    if (m_stream < 0 || !codec)
        return KELO_E_STREAM;
    // The demuxer drops the packets of every other stream (the picture of a video).
    for (unsigned i = 0; i < m_fmt->nb_streams; ++i)
        if (static_cast<int>(i) != m_stream)
            m_fmt->streams[i]->discard = AVDISCARD_ALL;

    const AVStream* st = m_fmt->streams[m_stream];
    m_timeBase = st->time_base;
    m_streamStart = st->start_time != AV_NOPTS_VALUE ? st->start_time : 0;

    m_dec.reset(avcodec_alloc_context3(codec));
    if (!m_dec)
        return KELO_E_NOMEM;
    if (avcodec_parameters_to_context(m_dec.get(), st->codecpar) < 0)
        return KELO_E_CODEC;
    m_dec->pkt_timebase = st->time_base;
    if (avcodec_open2(m_dec.get(), codec, nullptr) < 0)
        return KELO_E_CODEC;

    if (st->duration > 0)
        m_durationFrames = av_rescale_q(st->duration, m_timeBase, AVRational{1, m_rate});
    else if (m_fmt->duration > 0)
        m_durationFrames = av_rescale_q(m_fmt->duration, AV_TIME_BASE_Q, AVRational{1, m_rate});

    // MPEG-4 files state their exact length (the edit list leaves out the
    // encoder's padding), but the decoder hands out whole AAC frames: cut
    // there. Other containers' durations may be estimates and are not used.
    int64_t exactEnd = std::numeric_limits<int64_t>::max();
    if (std::strncmp(m_fmt->iformat->name, "mov,", 4) == 0 && st->duration > 0)
        exactEnd = av_rescale_q(st->duration, m_timeBase, AVRational{1, m_rate});

    m_span = !(startMs == 0 && endMs == 0);
    if (m_span) {
        startMs = std::max<int64_t>(startMs, 0);
        m_startFrame = av_rescale(startMs, m_rate, 1000);
        m_endFrame =
            endMs > 0 ? av_rescale(endMs, m_rate, 1000) : std::numeric_limits<int64_t>::max();
        // Without timestamps a seek could not tell where it landed: read from the top.
        const bool timed = !(m_fmt->iformat->flags & AVFMT_NOTIMESTAMPS);
        if (timed && startMs > kSeekLeadMs) {
            const int64_t ts =
                av_rescale_q(startMs - kSeekLeadMs, AVRational{1, 1000}, m_timeBase) +
                m_streamStart;
            // A failed seek only costs time: the frames before the span are dropped anyway.
            av_seek_frame(m_fmt.get(), m_stream, ts, AVSEEK_FLAG_BACKWARD);
        }
    } else {
        m_startFrame = std::numeric_limits<int64_t>::min();
        m_endFrame = std::numeric_limits<int64_t>::max();
    }
    m_endFrame = std::min(m_endFrame, exactEnd);

    m_frame.reset(av_frame_alloc());
    m_packet.reset(av_packet_alloc());
    if (!m_frame || !m_packet)
        return KELO_E_NOMEM;
    return KELO_OK;
}

int PcmSource::read(const int16_t** samples, int* frames)
{
    *samples = nullptr;
    *frames = 0;
    m_outFrames = 0;
    while (m_outFrames == 0 && !m_finished) {
        const int rc = pump();
        if (rc < 0)
            return rc;
    }
    *samples = m_out.data();
    *frames = m_outFrames;
    m_delivered += m_outFrames;
    return KELO_OK;
}

int PcmSource::pump()
{
    if (!m_draining) {
        const int r = av_read_frame(m_fmt.get(), m_packet.get());
        if (r < 0) {
            // The end, or a read error that ends a cut-off file early: either
            // way what was decoded so far is kept.
            if (r != AVERROR_EOF)
                ++m_decodeErrors;
            m_draining = true;
            avcodec_send_packet(m_dec.get(), nullptr);
        } else {
            if (m_packet->stream_index == m_stream) {
                ++m_packets;
                const int s = avcodec_send_packet(m_dec.get(), m_packet.get());
                if (s < 0 && s != AVERROR(EAGAIN))
                    ++m_decodeErrors; // a damaged packet is skipped, as players do
            }
            av_packet_unref(m_packet.get());
        }
    }
    return receiveFrames();
}

int PcmSource::receiveFrames()
{
    for (;;) {
        const int r = avcodec_receive_frame(m_dec.get(), m_frame.get());
        if (r == AVERROR(EAGAIN)) {
            if (m_draining)
                m_finished = true;
            return KELO_OK;
        }
        if (r == AVERROR_EOF) {
            // Whatever the resampler still holds is the tail of the sound.
            const int rc = convert(nullptr);
            m_finished = true;
            return rc;
        }
        if (r < 0) {
            ++m_decodeErrors;
            return KELO_OK;
        }
        const int rc = convert(m_frame.get());
        av_frame_unref(m_frame.get());
        if (rc < 0)
            return rc;
        if (m_pos >= m_endFrame) {
            m_finished = true;
            return KELO_OK;
        }
    }
}

int PcmSource::setupResampler(const AVFrame* frame)
{
    AVChannelLayout in{};
    if (frame->ch_layout.order == AV_CHANNEL_ORDER_UNSPEC || frame->ch_layout.nb_channels <= 0)
        av_channel_layout_default(&in, std::max(frame->ch_layout.nb_channels, 1));
    else if (av_channel_layout_copy(&in, &frame->ch_layout) < 0)
        return KELO_E_NOMEM;
    AVChannelLayout out{};
    av_channel_layout_default(&out, m_channels);
    SwrContext* swr = nullptr;
    int rc = swr_alloc_set_opts2(&swr, &out, AV_SAMPLE_FMT_S16, m_rate, &in,
                                 static_cast<AVSampleFormat>(frame->format), frame->sample_rate, 0,
                                 nullptr);
    if (rc >= 0)
        rc = swr_init(swr);
    av_channel_layout_uninit(&in);
    if (rc < 0) {
        swr_free(&swr);
        return KELO_E_CODEC;
    }
    m_swr.reset(swr);
    m_inRate = frame->sample_rate;
    m_inFormat = frame->format;
    av_channel_layout_uninit(&m_inLayout);
    av_channel_layout_copy(&m_inLayout, &frame->ch_layout);
    return KELO_OK;
}

int PcmSource::convert(const AVFrame* frame)
{
    if (frame) {
        if (!m_swr || frame->sample_rate != m_inRate || frame->format != m_inFormat ||
            av_channel_layout_compare(&frame->ch_layout, &m_inLayout) != 0) {
            const int rc = setupResampler(frame);
            if (rc < 0)
                return rc;
        }
        if (!m_haveOrigin)
            placeOrigin(frame);
    }
    if (!m_swr)
        return KELO_OK;

    int in = frame ? frame->nb_samples : 0;
    const uint8_t* const* data = frame ? frame->extended_data : nullptr;
    std::vector<const uint8_t*> skipped;
    if (frame && m_dropInput > 0) {
        // The samples before the resampler's first shared grid point go unheard.
        const int skip = static_cast<int>(std::min<int64_t>(m_dropInput, in));
        m_dropInput -= skip;
        in -= skip;
        if (in == 0)
            return KELO_OK;
        const auto fmt = static_cast<AVSampleFormat>(frame->format);
        const int bytes = av_get_bytes_per_sample(fmt);
        const int channels = frame->ch_layout.nb_channels;
        if (av_sample_fmt_is_planar(fmt)) {
            for (int c = 0; c < channels; ++c)
                skipped.push_back(frame->extended_data[c] + size_t(skip) * bytes);
        } else {
            skipped.push_back(frame->extended_data[0] + size_t(skip) * bytes * channels);
        }
        data = skipped.data();
    }
    const int capacity = swr_get_out_samples(m_swr.get(), in);
    if (capacity <= 0)
        return KELO_OK;
    const size_t need = static_cast<size_t>(m_outFrames + capacity) * m_channels;
    if (m_out.size() < need)
        m_out.resize(need);
    auto* dst = reinterpret_cast<uint8_t*>(m_out.data() + size_t(m_outFrames) * m_channels);
    const int n = swr_convert(m_swr.get(), &dst, capacity, const_cast<const uint8_t**>(data), in);
    if (n < 0)
        return KELO_E_DECODE;
    keepSpan(m_pos, n);
    m_pos += n;
    return KELO_OK;
}

void PcmSource::placeOrigin(const AVFrame* frame)
{
    // Everything after the first frame is counted, so one timestamp places
    // the whole stream; without one the stream starts at 0.
    m_haveOrigin = true;
    const int64_t ts = frame->best_effort_timestamp;
    if (ts == AV_NOPTS_VALUE) {
        m_pos = 0;
        return;
    }
    const int inRate = frame->sample_rate;
    if (!m_span || inRate == m_rate || inRate <= 0) {
        m_pos = av_rescale_q(ts - m_streamStart, m_timeBase, AVRational{1, m_rate});
        return;
    }
    // A seek lands anywhere, but the resampler's grid of input and output
    // samples meets itself again only every `period` input samples: it
    // starts at the next such point, where the whole stream's resampler
    // stood too, so that once settled it gives the very same samples.
    const int64_t first = av_rescale_q(ts - m_streamStart, m_timeBase, AVRational{1, inRate});
    const int64_t period = inRate / std::gcd(inRate, m_rate);
    const int64_t into = ((first % period) + period) % period;
    m_dropInput = (period - into) % period;
    m_pos = av_rescale(first + m_dropInput, m_rate, inRate);
}

void PcmSource::keepSpan(int64_t firstPos, int frames)
{
    const int64_t from = std::max(firstPos, m_startFrame);
    const int64_t to = std::min(firstPos + frames, m_endFrame);
    if (to <= from)
        return;
    const int64_t skip = from - firstPos;
    const int64_t count = to - from;
    int16_t* at = m_out.data() + size_t(m_outFrames) * m_channels;
    if (skip > 0)
        std::memmove(at, at + skip * m_channels, size_t(count) * m_channels * sizeof(int16_t));
    m_outFrames += static_cast<int>(count);
}

int64_t PcmSource::expectedFrames() const
{
    if (!m_span)
        return m_durationFrames;
    int64_t end = m_endFrame;
    if (m_durationFrames > 0)
        end = std::min(end, m_durationFrames);
    if (end == std::numeric_limits<int64_t>::max())
        return 0;
    return std::max<int64_t>(end - m_startFrame, 0);
}

double PcmSource::progress() const
{
    const int64_t expected = expectedFrames();
    if (expected > 0)
        return std::min(1.0, double(m_delivered) / double(expected));
    // Length unknown: how far into the file the reading is.
    if (m_fmt && m_fmt->pb) {
        const int64_t size = avio_size(m_fmt->pb);
        const int64_t pos = avio_tell(m_fmt->pb);
        if (size > 0 && pos > 0)
            return std::min(1.0, double(pos) / double(size));
    }
    return 0.0;
}

int PcmSource::readAll(const std::function<int(const int16_t*, int)>& block)
{
    for (;;) {
        const int16_t* samples = nullptr;
        int frames = 0;
        int rc = read(&samples, &frames);
        if (rc < 0)
            return rc;
        if (frames == 0)
            return endStatus();
        rc = block(samples, frames);
        if (rc < 0)
            return rc;
    }
}

int PcmSource::endStatus() const
{
    if (m_delivered == 0) {
        // A clean stream that gave nothing for the span: the span is past its end.
        if (m_span && m_decodeErrors == 0)
            return KELO_E_ARGUMENT;
        return KELO_E_DECODE;
    }
    // Mostly undecodable: the few frames that came through are not the song.
    if (m_decodeErrors > 2 && m_decodeErrors * 2 > m_packets)
        return KELO_E_DECODE;
    return KELO_OK;
}

} // namespace vexa
