// The encoded outputs of a render: AAC, Vorbis and MP3.

#include "encodedwriter.h"

#include "pcmsource.h"
#include "vexa.h"

extern "C" {
#include <libavutil/channel_layout.h>
}

#include <algorithm>

namespace vexa {

void OutputCloser::operator()(AVFormatContext* c) const
{
    if (c->pb)
        avio_closep(&c->pb);
    avformat_free_context(c);
}

namespace {

constexpr int kDefaultBitRate = 128000;

// The muxer and the encoder of each kind.
struct Encoding
{
    OutputKind kind;
    const char* muxer;
    const char* encoder;
};
constexpr Encoding kEncodings[] = {{OutputKind::Mp4Aac, "ipod", "aac"},
                                   {OutputKind::OggVorbis, "ogg", "libvorbis"},
                                   {OutputKind::Mp3, "mp3", "libmp3lame"}};

void setTags(AVDictionary** dict, const Tags& tags)
{
    if (!tags.title.empty())
        av_dict_set(dict, "title", tags.title.c_str(), 0);
    if (!tags.artist.empty())
        av_dict_set(dict, "artist", tags.artist.c_str(), 0);
}

} // namespace

int EncodedWriter::open(const std::string& path, OutputKind kind, int bitRate, const Tags& tags)
{
    const Encoding* encoding = nullptr;
    for (const Encoding& e : kEncodings)
        if (e.kind == kind)
            encoding = &e;
    if (!encoding)
        return KELO_E_CODEC;
    const AVOutputFormat* format = av_guess_format(encoding->muxer, nullptr, nullptr);
    const AVCodec* codec = avcodec_find_encoder_by_name(encoding->encoder);
    if (!format || !codec)
        return KELO_E_CODEC;
    AVFormatContext* raw = nullptr;
    if (avformat_alloc_output_context2(&raw, format, nullptr, nullptr) < 0 || !raw)
        return KELO_E_NOMEM;
    m_out.reset(raw);
    setTags(&m_out->metadata, tags);

    m_enc.reset(avcodec_alloc_context3(codec));
    if (!m_enc)
        return KELO_E_NOMEM;
    m_enc->sample_fmt = AV_SAMPLE_FMT_FLTP;
    m_enc->sample_rate = kOutRate;
    const AVChannelLayout stereo = AV_CHANNEL_LAYOUT_STEREO;
    av_channel_layout_copy(&m_enc->ch_layout, &stereo);
    m_enc->bit_rate = bitRate > 0 ? bitRate : kDefaultBitRate;
    if (kind == OutputKind::Mp4Aac)
        m_enc->profile = FF_PROFILE_AAC_LOW;
    m_enc->time_base = AVRational{1, kOutRate};
    if (format->flags & AVFMT_GLOBALHEADER)
        m_enc->flags |= AV_CODEC_FLAG_GLOBAL_HEADER;
    if (avcodec_open2(m_enc.get(), codec, nullptr) < 0)
        return KELO_E_CODEC;

    m_stream = avformat_new_stream(m_out.get(), nullptr);
    if (!m_stream)
        return KELO_E_NOMEM;
    if (avcodec_parameters_from_context(m_stream->codecpar, m_enc.get()) < 0)
        return KELO_E_CODEC;
    m_stream->time_base = m_enc->time_base;
    // Ogg keeps its Vorbis comments with the stream.
    if (kind == OutputKind::OggVorbis)
        setTags(&m_stream->metadata, tags);
    m_padLastFrame = !(codec->capabilities & AV_CODEC_CAP_SMALL_LAST_FRAME);

    // "file:" keeps a colon in the name from being read as a protocol.
    const std::string url = "file:" + path;
    if (avio_open(&m_out->pb, url.c_str(), AVIO_FLAG_WRITE) < 0)
        return KELO_E_IO;
    if (avformat_write_header(m_out.get(), nullptr) < 0)
        return KELO_E_IO;
    m_headerWritten = true;

    m_frame.reset(av_frame_alloc());
    m_packet.reset(av_packet_alloc());
    if (!m_frame || !m_packet)
        return KELO_E_NOMEM;
    m_frame->nb_samples = m_enc->frame_size;
    m_frame->format = m_enc->sample_fmt;
    m_frame->sample_rate = kOutRate;
    av_channel_layout_copy(&m_frame->ch_layout, &m_enc->ch_layout);
    if (av_frame_get_buffer(m_frame.get(), 0) < 0)
        return KELO_E_NOMEM;
    return KELO_OK;
}

int EncodedWriter::write(const int16_t* samples, int frames)
{
    if (!m_headerWritten)
        return KELO_E_IO;
    const int frameSize = m_enc->frame_size;
    constexpr float kScale = 1.0f / 32768.0f;
    while (frames > 0) {
        // The encoder may still hold the last frame's buffers.
        if (m_fill == 0 && av_frame_make_writable(m_frame.get()) < 0)
            return KELO_E_NOMEM;
        const int n = std::min(frames, frameSize - m_fill);
        auto* left = reinterpret_cast<float*>(m_frame->data[0]) + m_fill;
        auto* right = reinterpret_cast<float*>(m_frame->data[1]) + m_fill;
        for (int i = 0; i < n; ++i) {
            left[i] = samples[2 * i] * kScale;
            right[i] = samples[2 * i + 1] * kScale;
        }
        samples += 2 * n;
        frames -= n;
        m_fill += n;
        if (m_fill == frameSize) {
            m_frame->nb_samples = frameSize;
            m_frame->pts = m_pts;
            m_pts += frameSize;
            m_fill = 0;
            const int rc = encode(m_frame.get());
            if (rc < 0)
                return rc;
        }
    }
    return KELO_OK;
}

int EncodedWriter::encode(AVFrame* frame)
{
    if (avcodec_send_frame(m_enc.get(), frame) < 0)
        return KELO_E_CODEC;
    for (;;) {
        const int r = avcodec_receive_packet(m_enc.get(), m_packet.get());
        if (r == AVERROR(EAGAIN) || r == AVERROR_EOF)
            return KELO_OK;
        if (r < 0)
            return KELO_E_CODEC;
        av_packet_rescale_ts(m_packet.get(), m_enc->time_base, m_stream->time_base);
        m_packet->stream_index = m_stream->index;
        const int w = av_write_frame(m_out.get(), m_packet.get());
        av_packet_unref(m_packet.get());
        if (w < 0 || m_out->pb->error < 0)
            return KELO_E_IO;
    }
}

int EncodedWriter::finish()
{
    if (!m_headerWritten)
        return KELO_E_IO;
    int rc = KELO_OK;
    if (m_fill > 0) {
        // Most encoders take a short last frame, and its packet says how
        // long it is; the others get it filled up with silence.
        if (m_padLastFrame) {
            for (int ch = 0; ch < 2; ++ch) {
                auto* plane = reinterpret_cast<float*>(m_frame->data[ch]);
                std::fill(plane + m_fill, plane + m_enc->frame_size, 0.0f);
            }
            m_fill = m_enc->frame_size;
        }
        m_frame->nb_samples = m_fill;
        m_frame->pts = m_pts;
        m_pts += m_fill;
        m_fill = 0;
        rc = encode(m_frame.get());
    }
    if (rc == KELO_OK)
        rc = encode(nullptr);
    if (rc == KELO_OK && av_write_trailer(m_out.get()) < 0)
        rc = KELO_E_IO;
    if (rc == KELO_OK && m_out->pb->error < 0)
        rc = KELO_E_IO;
    if (avio_closep(&m_out->pb) < 0 && rc == KELO_OK)
        rc = KELO_E_IO;
    m_headerWritten = false;
    return rc;
}

} // namespace vexa
