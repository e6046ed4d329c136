#pragma once
// Owns the process's one media-engine timeline and answers whether a file
// holds an audio or a video stream. GUI thread only; the timeline lives from
// the first getTimeline() to program exit, and probed items stay on it.

#include <QString>

// What a probe of a file found.
struct MediaStreams
{
    bool audio = false;
    bool video = false;
    long long audioMs = 0; // the first audio stream's length; 0 when unknown
    int audioChannels = 0; // the first audio stream's channels, as its header says
    QString artist;        // the file's own artist tag; empty when none
};

class CTimeLineHelper
{
public:
    static int getTimeline();
    static bool haveAudio(const char* path);
    static bool haveVideo(const char* path);
    // False when the media engine cannot open the file as media at all.
    static bool probe(const char* path, MediaStreams* streams);

    ~CTimeLineHelper();
    CTimeLineHelper(const CTimeLineHelper&) = delete;
    CTimeLineHelper& operator=(const CTimeLineHelper&) = delete;

private:
    CTimeLineHelper();
    static bool haveStream(const char* path, int kind);

    int m_timeline;
};
