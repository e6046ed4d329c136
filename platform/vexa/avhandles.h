#pragma once
// Small RAII owners for the FFmpeg objects the engine uses.

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavformat/avformat.h>
#include <libavutil/frame.h>
#include <libswresample/swresample.h>
}

#include <memory>
#include <string>

namespace vexa {

struct InputCloser
{
    void operator()(AVFormatContext* c) const { avformat_close_input(&c); }
};
struct CodecFreer
{
    void operator()(AVCodecContext* c) const { avcodec_free_context(&c); }
};
struct FrameFreer
{
    void operator()(AVFrame* f) const { av_frame_free(&f); }
};
struct PacketFreer
{
    void operator()(AVPacket* p) const { av_packet_free(&p); }
};
struct SwrFreer
{
    void operator()(SwrContext* s) const { swr_free(&s); }
};

using InputPtr = std::unique_ptr<AVFormatContext, InputCloser>;
using CodecPtr = std::unique_ptr<AVCodecContext, CodecFreer>;
using FramePtr = std::unique_ptr<AVFrame, FrameFreer>;
using PacketPtr = std::unique_ptr<AVPacket, PacketFreer>;
using SwrPtr = std::unique_ptr<SwrContext, SwrFreer>;

// Opens a media file for reading with FFmpeg's logging kept quiet; null on
// failure, with *error set to the FFmpeg error code.
InputPtr openInput(const char* path, int* error = nullptr);
// openInput for media: refuses what is not media (plain text) and reads
// packets for stream details only when the header lacks them. Null on failure.
InputPtr openMedia(const std::string& path);

} // namespace vexa
