// Bounded probing of a file's streams for KeloAddMedia2.

#include "avhandles.h"
#include "fflog.h"
#include "registry.h"

#include <sys/stat.h>

#include <cerrno>
#include <cstring>
#include <string>

namespace vexa {

InputPtr openInput(const char* path, int* error)
{
    routeFfmpegLog();

    // Only regular files: opening a pipe waits for a writer that may never
    // come, and a device such as /dev/zero never ends.
    struct stat st;
    const int statError = ::stat(path, &st) != 0 ? errno : (S_ISREG(st.st_mode) ? 0 : EINVAL);
    if (statError != 0) {
        if (error)
            *error = AVERROR(statError);
        return nullptr;
    }

    AVFormatContext* raw = avformat_alloc_context();
    if (!raw) {
        if (error)
            *error = AVERROR(ENOMEM);
        return nullptr;
    }
    // Keep probing cheap: a song needs a few kilobytes to be recognised.
    raw->probesize = 1 << 20;
    raw->max_analyze_duration = AV_TIME_BASE / 2;
    // Always through the file protocol: "Song: Remix.flac" is a file, not a URL.
    const std::string url = std::string("file:") + path;
    const int rc = avformat_open_input(&raw, url.c_str(), nullptr, nullptr);
    if (rc < 0) {
        if (error)
            *error = rc;
        return nullptr; // avformat_open_input frees the context on failure
    }
    if (error)
        *error = 0;
    return InputPtr(raw);
}

namespace {

bool needsStreamInfo(const AVFormatContext* fmt)
{
    if (fmt->nb_streams == 0)
        return true;
    for (unsigned i = 0; i < fmt->nb_streams; ++i) {
        const AVCodecParameters* par = fmt->streams[i]->codecpar;
        if (par->codec_type == AVMEDIA_TYPE_UNKNOWN || par->codec_id == AV_CODEC_ID_NONE)
            return true;
        if (par->codec_type == AVMEDIA_TYPE_AUDIO &&
            (par->sample_rate <= 0 || par->ch_layout.nb_channels <= 0))
            return true;
    }
    return false;
}

} // namespace

InputPtr openMedia(const std::string& path)
{
    InputPtr fmt = openInput(path.c_str());
    if (!fmt)
        return nullptr;
    // FFmpeg reads any text file as ANSI art; that is not media to us.
    if (std::strcmp(fmt->iformat->name, "tty") == 0)
        return nullptr;
    // Most containers describe their streams in the header; read packets only when not.
    if (needsStreamInfo(fmt.get()) && avformat_find_stream_info(fmt.get(), nullptr) < 0 &&
        fmt->nb_streams == 0)
        return nullptr;
    return fmt;
}

static tagKeloStreamInfo describe(const AVFormatContext* fmt, const AVStream* st)
{
    tagKeloStreamInfo info;
    std::memset(&info, 0, sizeof info);
    const AVCodecParameters* par = st->codecpar;
    switch (par->codec_type) {
    case AVMEDIA_TYPE_AUDIO:
        info.nKind = KELO_STREAM_AUDIO;
        break;
    case AVMEDIA_TYPE_VIDEO:
        // Cover art in a song is a picture, not a video.
        info.nKind =
            (st->disposition & AV_DISPOSITION_ATTACHED_PIC) ? KELO_STREAM_OTHER : KELO_STREAM_VIDEO;
        break;
    default:
        info.nKind = KELO_STREAM_OTHER;
        break;
    }
    info.nCodecId = par->codec_id;
    info.nSampleRate = par->sample_rate;
    info.nChannels = par->ch_layout.nb_channels;
    info.nWidth = par->width;
    info.nHeight = par->height;
    if (st->duration > 0 && st->time_base.den > 0)
        info.llDuration = av_rescale_q(st->duration, st->time_base, AVRational{1, 1000});
    else if (fmt->duration > 0)
        info.llDuration = fmt->duration / 1000;
    info.llBitRate = par->bit_rate;
    return info;
}

int probeStreams(const std::string& path, std::vector<tagKeloStreamInfo>* streams,
                 std::string* artist)
{
    InputPtr fmt = openMedia(path);
    if (!fmt)
        return KELO_E_OPEN;
    streams->clear();
    streams->reserve(fmt->nb_streams);
    for (unsigned i = 0; i < fmt->nb_streams; ++i)
        streams->push_back(describe(fmt.get(), fmt->streams[i]));
    if (artist) {
        // The container's tag, or the first audio stream's (Ogg keeps its own there).
        const AVDictionaryEntry* entry = av_dict_get(fmt->metadata, "artist", nullptr, 0);
        for (unsigned i = 0; !entry && i < fmt->nb_streams; ++i)
            if (fmt->streams[i]->codecpar->codec_type == AVMEDIA_TYPE_AUDIO)
                entry = av_dict_get(fmt->streams[i]->metadata, "artist", nullptr, 0);
        *artist = entry && entry->value ? entry->value : "";
    }
    return KELO_OK;
}

} // namespace vexa
