#include "engine/convertwraper.h"

#include "engine/timelinehelper.h"

#include <QCoreApplication>
#include <QMetaObject>

#include <vexanotify.h>

#include <cstring>
#include <memory>

namespace {

// A progress call on its way to the GUI thread. When the event loop drops
// it unrun (the program ends first), the engine gets it back to free it.
class PostedTask
{
public:
    PostedTask(KeloTaskProc task, void* arg) : m_task(task), m_arg(arg) {}
    ~PostedTask()
    {
        if (m_task)
            KeloDiscardTask(m_task, m_arg);
    }
    PostedTask(const PostedTask&) = delete;
    PostedTask& operator=(const PostedTask&) = delete;

    void run()
    {
        const KeloTaskProc task = m_task;
        m_task = nullptr;
        task(m_arg);
    }

private:
    KeloTaskProc m_task;
    void* m_arg;
};

// Runs the engine's progress calls on the GUI thread's event loop; with no
// application object (its last moments) they run where they come from.
void postToGuiThread(KeloTaskProc task, void* arg)
{
    QCoreApplication* app = QCoreApplication::instance();
    if (!app) {
        task(arg);
        return;
    }
    auto posted = std::make_shared<PostedTask>(task, arg);
    QMetaObject::invokeMethod(
        app, [posted] { posted->run(); }, Qt::QueuedConnection);
}

} // namespace

CConvertWraper::CConvertWraper() : m_timeline(CTimeLineHelper::getTimeline()), m_media(-1)
{
    KeloSetNotifyDispatcher(&postToGuiThread);
}

CConvertWraper::~CConvertWraper()
{
    if (m_media >= 0)
        KeloRemoveMedia(m_timeline, m_media);
}

CConvertWraper* CConvertWraper::instance()
{
    static CConvertWraper wraper;
    return &wraper;
}

int CConvertWraper::decodePcm(const char* src, int rate, int channels,
                              std::function<bool(const short*, int)> sink)
{
    const auto proc = [](const int16_t* samples, int32_t frames, void* user) {
        return (*static_cast<std::function<bool(const short*, int)>*>(user))(samples, frames);
    };
    return KeloDecodePcm(src, 0, 0, rate, channels, proc, &sink) < 0 ? -1 : 0;
}

int CConvertWraper::convertTo(const char* src, const char* dest, const char* format, int codec,
                              int bitRate, IProgress* progress)
{
    return convertTo(src, dest, format, codec, bitRate, progress, 0, 0);
}

int CConvertWraper::convertTo(const char* src, const char* dest, const char* format, int codec,
                              int bitRate, IProgress* progress, long long start, long long end,
                              const ConvertTags& tags)
{
    tagKeloMediaSrc source;
    std::memset(&source, 0, sizeof source);
    source.pszPath = src;
    source.llStart = start;
    source.llEnd = end;

    // Only one item is ever on the timeline for conversion.
    if (m_media >= 0) {
        KeloRemoveMedia(m_timeline, m_media);
        m_media = -1;
    }
    // Kept even when negative, so that the next call removes nothing.
    m_media = KeloAddMedia2(m_timeline, &source, 0, 0);
    if (m_media < 0)
        return -1;
    if ((!tags.title.isEmpty() || !tags.artist.isEmpty()) &&
        KeloSetMediaTags(m_timeline, m_media, tags.title.constData(), tags.artist.constData()) < 0)
        return -1;

    tagKeloRunParam param;
    std::memset(&param, 0, sizeof param);
    param.pUser = progress;
    param.pfnNotify = &CConvertWraper::notifyProc;
    param.nReserved8 = -1;
    param.dReserved24 = 0.0;
    param.dReserved32 = 0.0;
    param.nAudioCodec = codec;
    param.nAudioBitRate = bitRate;
    param.nSampleRate = KELO_OUTPUT_SAMPLE_RATE;
    param.nChannels = 2;
    param.nBitsPerSample = 16;
    param.pszFormat = format;
    param.pszDest = dest;
    if (KeloRun(m_timeline, &m_media, 1, &param) < 0)
        return -2;
    return 1;
}

bool CConvertWraper::notifyProc(tagKeloProgInfo* info, void* user)
{
    if (!user)
        return false;
    static_cast<IProgress*>(user)->setProgress(info->nProgress, info->nStatus);
    return true;
}
