#include "engine/videoplayerwraper.h"

#include "engine/timelinehelper.h"
#include "engine/videonotify.h"

#include <videownd.h>

#include <cstring>

CVideoPlayerWraper* CVideoPlayerWraper::instance()
{
    static CVideoPlayerWraper wrapper;
    return &wrapper;
}

CVideoPlayerWraper::CVideoPlayerWraper()
    : m_timeline(CTimeLineHelper::getTimeline()), m_player(0), m_media(-1), m_notify(nullptr)
{
}

CVideoPlayerWraper::~CVideoPlayerWraper()
{
    if (m_player)
        VexaDestroy(m_player);
    if (m_media >= 0)
        KeloRemoveMedia(m_timeline, m_media);
}

void CVideoPlayerWraper::setPlayer(CVideoWnd* videoWnd, CVideoNotify* notify)
{
    if (notify)
        m_notify = notify;
    if (videoWnd)
        VexaSetEnvironment(videoWnd->surface());
}

void CVideoPlayerWraper::removeNotify(CVideoNotify*)
{
    m_notify = nullptr;
}

int CVideoPlayerWraper::CreateVexa(const char* path)
{
    tagKeloMediaSrc src;
    std::memset(&src, 0, sizeof src);
    src.pszPath = path;
    // The old player goes; its handle is only replaced below.
    if (m_player)
        VexaDestroy(m_player);
    if (m_media >= 0) {
        KeloRemoveMedia(m_timeline, m_media);
        m_media = -1;
    }
    m_media = KeloAddMedia2(m_timeline, &src, 0, 0);
    if (m_media < 0)
        return -1;
    void* object = nullptr;
    if (KeloGetMediaObject(m_timeline, m_media, &object) < 0)
        return 0;
    tagVexaCreateParam param;
    std::memset(&param, 0, sizeof param);
    param.nTimeline = m_timeline;
    param.pMediaObject = object;
    param.nReserved = 0;
    param.nWidth = kPreviewWidth;
    param.nHeight = kPreviewHeight;
    param.pfnEvent = &CVideoPlayerWraper::callbackVexaEvent;
    param.pUser = m_notify;
    const int rc = VexaCreateEx(&param, 0, 1, &m_player);
    if (rc < 0) {
        m_player = 0;
        return rc;
    }
    return 0;
}

int CVideoPlayerWraper::play()
{
    return m_player ? VexaPlay(m_player) : -1;
}

int CVideoPlayerWraper::pause()
{
    return m_player ? VexaPause(m_player) : -1;
}

int CVideoPlayerWraper::seekPos(long long ms)
{
    return m_player ? VexaSeekToPos(m_player, ms) : -1;
}

int CVideoPlayerWraper::stop()
{
    if (m_player)
        VexaDestroy(m_player);
    m_player = 0;
    return 0;
}

void CVideoPlayerWraper::init() {}

int CVideoPlayerWraper::callbackVexaEvent(tagKeloEvent* event, void* user)
{
    if (!event || event->nReserved != 0)
        return -1;
    if (!user)
        return -2;
    const int stat =
        (event->nKind == KELO_EVENT_OPEN_FAILED || event->nKind == KELO_EVENT_DECODE_FAILED) ? -1
                                                                                             : 0;
    // The position widens without its sign.
    const long long time = static_cast<long long>(static_cast<uint32_t>(event->nPosition));
    return static_cast<CVideoNotify*>(user)->callbackVexaEvent(time, stat);
}
