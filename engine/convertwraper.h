#pragma once
// CConvertWraper: the one place that drives a conversion. It puts one source
// file (optionally one span of it) on the process's engine timeline and asks
// the engine to render it into one file; progress comes back through the
// caller's IProgress. A process-wide singleton built on first use and
// destroyed at exit; called on the GUI thread. Its constructor has the engine
// post progress calls to the GUI thread's event loop, so a job that ends at
// once can never report its end before the progress pane starts to wait.

#include "engine/iprogress.h"

#include <QByteArray>

#include <functional>

#include <vexa.h>

// The title and artist a conversion writes into its file's tags (UTF-8;
// empty ones are left out).
struct ConvertTags
{
    QByteArray title;
    QByteArray artist;
};

class CConvertWraper
{
public:
    static CConvertWraper* instance();

    // 1 when the engine took the job, -1 when it refused the source, -2 when
    // it refused to run. The container name is const so literals can be given.
    int convertTo(const char* src, const char* dest, const char* format, int codec, int bitRate,
                  IProgress* progress, long long start, long long end,
                  const ConvertTags& tags = ConvertTags());
    // The whole file (span 0..0).
    int convertTo(const char* src, const char* dest, const char* format, int codec, int bitRate,
                  IProgress* progress);

    // Decodes the sound of the whole of `src` as 16-bit PCM of `rate` Hz and
    // `channels` (1 or 2), handing each block of frames to `sink` (false
    // stops it) on this thread; nothing is written to disk. 0 when the sound
    // came through to its end, negative otherwise. Any thread.
    static int decodePcm(const char* src, int rate, int channels,
                         std::function<bool(const short* samples, int frames)> sink);

    // The engine's progress callback: hands progress and status to the
    // IProgress given as user pointer; false when there is none.
    static bool notifyProc(tagKeloProgInfo* info, void* user);

    ~CConvertWraper();
    CConvertWraper(const CConvertWraper&) = delete;
    CConvertWraper& operator=(const CConvertWraper&) = delete;

private:
    CConvertWraper();

    int m_timeline;
    int m_media;
};
