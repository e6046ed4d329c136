#pragma once
// CVideoPlayerWraper: owns the media engine's one video player, made for the
// video being edited, and forwards its events to a CVideoNotify. A
// process-wide singleton made on first use; GUI thread (the player's events
// come on the player's thread, through callbackVexaEvent).

#include <vexa.h>

class CVideoNotify;
class CVideoWnd;

// Sizes of the picture the player makes when its surface gives none.
constexpr int kPreviewWidth = 180;
constexpr int kPreviewHeight = 135;

class CVideoPlayerWraper
{
public:
    static CVideoPlayerWraper* instance();
    ~CVideoPlayerWraper();
    CVideoPlayerWraper(const CVideoPlayerWraper&) = delete;
    CVideoPlayerWraper& operator=(const CVideoPlayerWraper&) = delete;

    // Remembers the notify target (when given) and shows pictures on the
    // widget (when given).
    void setPlayer(CVideoWnd* videoWnd, CVideoNotify* notify);
    // Forgets the notify target, whatever the argument.
    void removeNotify(CVideoNotify* notify);
    // A player for the file: 0, or negative when it could not be made.
    int CreateVexa(const char* path);
    int play();
    int pause();
    int seekPos(long long ms);
    // Destroys the player; 0.
    int stop();
    void init();
    bool hasPlayer() const { return m_player != 0; }

    static int callbackVexaEvent(tagKeloEvent* event, void* user);

private:
    CVideoPlayerWraper();

    int m_timeline;
    int m_player;
    int m_media;
    CVideoNotify* m_notify; // not owned
};
