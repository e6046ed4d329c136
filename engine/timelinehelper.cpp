#include "engine/timelinehelper.h"

#include <vexa.h>

#include <QByteArray>

#include <cstring>

CTimeLineHelper::CTimeLineHelper() : m_timeline(0)
{
    if (m_timeline == 0)
        m_timeline = CreateTimelineEx("com.vandrel.tonewright", -1);
}

CTimeLineHelper::~CTimeLineHelper()
{
    DestroyTimeline(m_timeline);
}

int CTimeLineHelper::getTimeline()
{
    static CTimeLineHelper helper;
    return helper.m_timeline;
}

bool CTimeLineHelper::haveAudio(const char* path)
{
    return haveStream(path, KELO_STREAM_AUDIO);
}

bool CTimeLineHelper::haveVideo(const char* path)
{
    return haveStream(path, KELO_STREAM_VIDEO);
}

bool CTimeLineHelper::haveStream(const char* path, int kind)
{
    MediaStreams streams;
    if (!probe(path, &streams))
        return false;
    return kind == KELO_STREAM_AUDIO ? streams.audio : kind == KELO_STREAM_VIDEO && streams.video;
}

bool CTimeLineHelper::probe(const char* path, MediaStreams* streams)
{
    *streams = MediaStreams();
    const int timeline = getTimeline();
    tagKeloMediaSrc src;
    std::memset(&src, 0, sizeof src);
    src.pszPath = path;
    const int media = KeloAddMedia2(timeline, &src, 0, 0);
    if (media < 0)
        return false;

    // Two passes: the length first, then the tag.
    const int artistBytes = KeloGetMediaArtist(timeline, media, nullptr, 0);
    if (artistBytes > 1) {
        QByteArray artist(artistBytes, '\0');
        KeloGetMediaArtist(timeline, media, artist.data(), artistBytes);
        streams->artist = QString::fromUtf8(artist.constData());
    }

    unsigned char buffer[64] = {};
    void* info = buffer;
    const int count = KeloGetMediaInfo(timeline, media, &info);
    if (count < 1)
        return count == 0; // opened, with no stream in it
    const auto* records = static_cast<const unsigned char*>(info);
    for (int i = 0; i < count; ++i) {
        tagKeloStreamInfo stream;
        std::memcpy(&stream, records + sizeof stream * i, sizeof stream);
        if (stream.nKind == KELO_STREAM_AUDIO && !streams->audio) {
            streams->audio = true;
            streams->audioMs = stream.llDuration;
            streams->audioChannels = stream.nChannels;
        } else if (stream.nKind == KELO_STREAM_VIDEO) {
            streams->video = true;
        }
    }
    return true;
}
