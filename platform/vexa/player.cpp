// The video player's thread: decode, scale, wait for each picture's time,
// show it; seeks, pause and play as commands from other threads.

#include "player.h"

#include "avhandles.h"

extern "C" {
#include <libavutil/imgutils.h>
#include <libswscale/swscale.h>
}

#include <algorithm>
#include <cstring>
#include <optional>
#include <vector>

namespace vexa {

namespace {

constexpr auto kEventEvery = std::chrono::milliseconds(100);
// A picture this late is skipped rather than shown: the player catches up.
constexpr int64_t kLateMs = 100;
// A seek this far ahead of the picture on screen decodes on instead of going
// back to a key picture: how playing catches up with the sound.
constexpr int64_t kForwardSeekMs = 3000;

struct SwsFreer
{
    void operator()(SwsContext* s) const { sws_freeContext(s); }
};
using SwsPtr = std::unique_ptr<SwsContext, SwsFreer>;

// The largest size with the picture's shape that fits the box.
void fitInto(int boxW, int boxH, int srcW, int srcH, AVRational sar, int* w, int* h)
{
    double aspect = srcH > 0 ? double(srcW) / srcH : 1.0;
    if (sar.num > 0 && sar.den > 0)
        aspect *= double(sar.num) / sar.den;
    int fw = boxW;
    int fh = static_cast<int>(fw / aspect + 0.5);
    if (fh > boxH) {
        fh = boxH;
        fw = static_cast<int>(fh * aspect + 0.5);
    }
    *w = std::max(2, fw & ~1);
    *h = std::max(2, fh & ~1);
}

} // namespace

// The video stream of one file: decoded pictures with their times in ms
// from the stream's start.
class Player::Decoder
{
public:
    struct Picture
    {
        FramePtr frame;
        int64_t ms = 0;
    };

    bool open(const std::string& path)
    {
        m_input = openInput(path.c_str());
        // Text read as ANSI art is no video.
        if (!m_input || std::strcmp(m_input->iformat->name, "tty") == 0)
            return false;
        if (avformat_find_stream_info(m_input.get(), nullptr) < 0 && m_input->nb_streams == 0)
            return false;
        for (unsigned i = 0; i < m_input->nb_streams; ++i) {
            const AVStream* st = m_input->streams[i];
            if (st->codecpar->codec_type == AVMEDIA_TYPE_VIDEO &&
                !(st->disposition & AV_DISPOSITION_ATTACHED_PIC)) {
                m_stream = static_cast<int>(i);
                break;
            }
        }
        if (m_stream < 0)
            return false;
        AVStream* st = m_input->streams[m_stream];
        const AVCodec* codec = avcodec_find_decoder(st->codecpar->codec_id);
        if (!codec)
            return false;
        m_codec.reset(avcodec_alloc_context3(codec));
        if (!m_codec || avcodec_parameters_to_context(m_codec.get(), st->codecpar) < 0)
            return false;
        m_codec->thread_count = 0; // as many as the machine has
        m_codec->thread_type = FF_THREAD_FRAME | FF_THREAD_SLICE;
        if (avcodec_open2(m_codec.get(), codec, nullptr) < 0)
            return false;
        // Discard what the other streams carry: only video is read.
        for (unsigned i = 0; i < m_input->nb_streams; ++i)
            if (static_cast<int>(i) != m_stream)
                m_input->streams[i]->discard = AVDISCARD_ALL;
        m_timeBase = st->time_base;
        m_startTs = st->start_time != AV_NOPTS_VALUE ? st->start_time : 0;
        m_packet.reset(av_packet_alloc());
        return m_packet != nullptr;
    }

    // The next picture; nullopt at the end. *failed tells a decoding failure
    // from the end of the stream.
    std::optional<Picture> next(bool* failed)
    {
        *failed = false;
        for (;;) {
            FramePtr frame(av_frame_alloc());
            if (!frame) {
                *failed = true;
                return std::nullopt;
            }
            const int got = avcodec_receive_frame(m_codec.get(), frame.get());
            if (got == 0) {
                m_decoded = true;
                const int64_t ms = msOf(frame.get());
                return Picture{std::move(frame), ms};
            }
            if (got == AVERROR_EOF)
                return std::nullopt;
            if (got != AVERROR(EAGAIN)) {
                *failed = true;
                return std::nullopt;
            }
            if (m_drained)
                return std::nullopt;
            const int read = av_read_frame(m_input.get(), m_packet.get());
            if (read < 0) {
                // End of file, or a read error: drain what the decoder holds.
                m_drained = true;
                avcodec_send_packet(m_codec.get(), nullptr);
                if (read != AVERROR_EOF && !m_decoded) {
                    *failed = true;
                    return std::nullopt;
                }
                continue;
            }
            if (m_packet->stream_index == m_stream) {
                // A damaged packet is skipped; the decoder goes on from the next.
                avcodec_send_packet(m_codec.get(), m_packet.get());
            }
            av_packet_unref(m_packet.get());
        }
    }

    // Back to the key picture at or before the position.
    bool seekBefore(int64_t ms)
    {
        const int64_t ts = av_rescale_q(ms, AVRational{1, 1000}, m_timeBase) + m_startTs;
        if (av_seek_frame(m_input.get(), m_stream, ts, AVSEEK_FLAG_BACKWARD) < 0 &&
            av_seek_frame(m_input.get(), m_stream, m_startTs, AVSEEK_FLAG_BACKWARD) < 0)
            return false;
        avcodec_flush_buffers(m_codec.get());
        m_drained = false;
        return true;
    }

    // Scales a picture to fit the box and hands it to the surface.
    void show(const Picture& picture, int boxW, int boxH)
    {
        const AVFrame* f = picture.frame.get();
        if (f->width <= 0 || f->height <= 0)
            return;
        int w = 0;
        int h = 0;
        fitInto(boxW, boxH, f->width, f->height, f->sample_aspect_ratio, &w, &h);
        m_sws.reset(sws_getCachedContext(
            m_sws.release(), f->width, f->height, static_cast<AVPixelFormat>(f->format), w, h,
            AV_PIX_FMT_RGB32, SWS_BILINEAR, nullptr, nullptr, nullptr));
        if (!m_sws)
            return;
        const int stride = w * 4;
        m_pixels.resize(static_cast<size_t>(stride) * h);
        uint8_t* dst[4] = {m_pixels.data(), nullptr, nullptr, nullptr};
        const int dstStride[4] = {stride, 0, 0, 0};
        sws_scale(m_sws.get(), f->data, f->linesize, 0, f->height, dst, dstStride);
        showOnSurface(m_pixels.data(), w, h, stride, picture.ms);
    }

private:
    int64_t msOf(const AVFrame* f)
    {
        int64_t ts = f->best_effort_timestamp;
        if (ts == AV_NOPTS_VALUE)
            ts = f->pts;
        if (ts == AV_NOPTS_VALUE)
            return m_lastMs;
        m_lastMs =
            std::max<int64_t>(0, av_rescale_q(ts - m_startTs, m_timeBase, AVRational{1, 1000}));
        return m_lastMs;
    }

    InputPtr m_input;
    CodecPtr m_codec;
    PacketPtr m_packet;
    SwsPtr m_sws;
    std::vector<uint8_t> m_pixels;
    int m_stream = -1;
    AVRational m_timeBase{1, 1000};
    int64_t m_startTs = 0;
    int64_t m_lastMs = 0;
    bool m_drained = false;
    bool m_decoded = false;
};

Player::Player(std::shared_ptr<const MediaItem> item, int width, int height, KeloEventProc event,
               void* user)
    : m_item(std::move(item)), m_width(width > 0 ? width : 180),
      m_height(height > 0 ? height : 135), m_event(event), m_user(user), m_started(Clock::now())
{
    m_thread = std::thread([this] { run(); });
}

Player::~Player()
{
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        m_quit = true;
    }
    m_wake.notify_all();
    m_thread.join();
}

void Player::play()
{
    std::lock_guard<std::mutex> lock(m_mutex);
    if (m_playing)
        return;
    m_playing = true;
    m_started = Clock::now();
    m_playChanged = true;
    m_wake.notify_all();
}

void Player::pause()
{
    std::lock_guard<std::mutex> lock(m_mutex);
    if (!m_playing)
        return;
    m_base = clockNow();
    m_playing = false;
    m_playChanged = true;
    m_wake.notify_all();
}

void Player::seek(int64_t ms)
{
    std::lock_guard<std::mutex> lock(m_mutex);
    m_seekTo = std::max<int64_t>(0, ms);
    m_wake.notify_all();
}

int64_t Player::clockNow() const
{
    if (!m_playing)
        return m_base;
    return m_base +
           std::chrono::duration_cast<std::chrono::milliseconds>(Clock::now() - m_started).count();
}

void Player::report(int kind, int64_t position)
{
    if (!m_event)
        return;
    tagKeloEvent event;
    event.nReserved = 0;
    event.nKind = kind;
    event.nPosition = static_cast<int32_t>(position);
    m_event(&event, m_user);
}

void Player::run()
{
    Decoder decoder;
    if (!decoder.open(m_item->path)) {
        report(KELO_EVENT_OPEN_FAILED, 0);
        std::unique_lock<std::mutex> lock(m_mutex);
        m_wake.wait(lock, [this] { return m_quit; });
        return;
    }
    auto box = [this](int* w, int* h) {
        if (!surfaceSize(w, h) || *w <= 0 || *h <= 0) {
            *w = m_width;
            *h = m_height;
        }
    };

    std::optional<Decoder::Picture> next; // decoded, not shown yet
    int64_t onScreen = -1;                // the time of the picture shown last
    bool ended = false;
    Clock::time_point lastEvent = Clock::now() - kEventEvery;
    Clock::time_point lastShown = Clock::now();
    std::unique_lock<std::mutex> lock(m_mutex);
    while (!m_quit) {
        if (m_seekTo >= 0) {
            const int64_t target = m_seekTo;
            m_seekTo = -1;
            lock.unlock();
            // A short step forward decodes on from here; anything else goes
            // back to the key picture before the target. Either way the last
            // picture at or before the target shows, and the one after it is
            // kept for playing on.
            const bool forward = onScreen >= 0 && !ended && target >= onScreen &&
                                 target - onScreen <= kForwardSeekMs;
            bool failed = false;
            std::optional<Decoder::Picture> shown;
            bool decode = true;
            if (forward) {
                if (next && next->ms <= target) {
                    shown = std::move(next);
                    next.reset();
                } else if (next) {
                    decode = false; // the picture on screen is the one
                }
            } else {
                next.reset();
                decode = decoder.seekBefore(target);
            }
            ended = false;
            while (decode) {
                auto picture = decoder.next(&failed);
                if (!picture) {
                    ended = !shown && onScreen < 0;
                    break;
                }
                if (picture->ms > target && (shown || forward)) {
                    next = std::move(picture);
                    break;
                }
                shown = std::move(picture);
                if (shown->ms > target)
                    break; // the video starts after the target: its first picture
            }
            if (shown) {
                int w = 0;
                int h = 0;
                box(&w, &h);
                decoder.show(*shown, w, h);
                onScreen = shown->ms;
                lastShown = Clock::now();
            }
            lock.lock();
            if (m_seekTo >= 0)
                continue; // a newer seek came meanwhile
            m_base = target;
            m_started = Clock::now();
            // A seek is reported only when it fails: the events tell where
            // playing has got to, and a listener answers them with seeks.
            if (failed && !shown && onScreen < 0) {
                lock.unlock();
                report(KELO_EVENT_DECODE_FAILED, target);
                lock.lock();
            }
            continue;
        }
        if (m_playChanged) {
            // Events come while playing: the first one as it starts.
            m_playChanged = false;
            if (m_playing) {
                const int64_t at = clockNow();
                lock.unlock();
                report(KELO_EVENT_PROGRESS, at);
                lastEvent = Clock::now();
                lock.lock();
            }
            continue;
        }
        if (!m_playing || ended) {
            m_wake.wait(lock);
            continue;
        }
        if (!next) {
            lock.unlock();
            bool failed = false;
            next = decoder.next(&failed);
            lock.lock();
            if (!next) {
                // The end: rest on the last picture, paused.
                ended = true;
                m_base = clockNow();
                m_playing = false;
                const int64_t at = m_base;
                lock.unlock();
                report(failed ? KELO_EVENT_DECODE_FAILED : KELO_EVENT_END, at);
                lock.lock();
            }
            continue;
        }
        const int64_t now = clockNow();
        if (next->ms <= now) {
            Decoder::Picture picture = std::move(*next);
            next.reset();
            const bool late = picture.ms < now - kLateMs &&
                              Clock::now() - lastShown < std::chrono::milliseconds(250);
            if (!late) {
                lock.unlock();
                int w = 0;
                int h = 0;
                box(&w, &h);
                decoder.show(picture, w, h);
                lastShown = Clock::now();
                lock.lock();
            }
            onScreen = picture.ms;
            // Straight on to the next picture, unless an event is due first:
            // waiting here would hold every picture back to the event's pace.
            if (Clock::now() - lastEvent < kEventEvery)
                continue;
        }
        if (Clock::now() - lastEvent >= kEventEvery) {
            const int64_t at = clockNow();
            lock.unlock();
            report(KELO_EVENT_PROGRESS, at);
            lastEvent = Clock::now();
            lock.lock();
            continue;
        }
        // Until the next picture is due or the next event, whichever is first.
        auto until = lastEvent + kEventEvery;
        if (next && m_playing)
            until = std::min(until, Clock::now() + std::chrono::milliseconds(std::max<int64_t>(
                                                       0, next->ms - clockNow())));
        m_wake.wait_until(lock, until);
    }
}

} // namespace vexa
