#pragma once
// One video player: a thread that decodes the video stream of a media item,
// scales each picture to the surface's size (libswscale) and shows it when
// its time comes by the player's clock, which runs while playing. Seeks land
// on the last picture at or before the position. Events go to the creator's
// callback on the player's thread. Owned by the player table (video.cpp);
// its methods are called from any thread and only leave commands for its
// thread, which the destructor stops and joins.

#include "registry.h"

#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <memory>
#include <mutex>
#include <thread>

namespace vexa {

class Player
{
public:
    Player(std::shared_ptr<const MediaItem> item, int width, int height, KeloEventProc event,
           void* user);
    ~Player();
    Player(const Player&) = delete;
    Player& operator=(const Player&) = delete;

    void play();
    void pause();
    void seek(int64_t ms);

private:
    class Decoder;
    using Clock = std::chrono::steady_clock;

    void run();
    void report(int kind, int64_t position);
    // The clock's position now (ms).
    int64_t clockNow() const;

    std::shared_ptr<const MediaItem> m_item;
    const int m_width;
    const int m_height;
    const KeloEventProc m_event;
    void* const m_user;

    std::mutex m_mutex;
    std::condition_variable m_wake;
    bool m_quit = false;
    bool m_playing = false;
    bool m_playChanged = false;
    int64_t m_seekTo = 0; // a pending seek, or -1; the start is the first one
    // The clock: m_base ms at m_started while playing, m_base while paused.
    int64_t m_base = 0;
    Clock::time_point m_started;

    std::thread m_thread;
};

// The surface pictures go to; called by players for each picture.
void showOnSurface(const uint8_t* pixels, int width, int height, int stride, int64_t position);
// The size the surface wants, or false when there is none.
bool surfaceSize(int* width, int* height);

} // namespace vexa
