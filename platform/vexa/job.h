#pragma once
// RenderJob: one KeloRun job. It renders a media item into a temporary file
// beside the destination on its own worker thread, renames the file into
// place when all went well (deletes it otherwise) and reports progress
// through the caller's callback, on the worker thread or through the
// dispatcher set with KeloSetNotifyDispatcher. The timeline's job list and
// the worker share the job; the worker keeps a reference while it runs, so a
// progress callback may remove the job's own item.

#include "registry.h"
#include "vexanotify.h"

#include <atomic>
#include <memory>
#include <mutex>
#include <string>
#include <thread>

namespace vexa {

// What a render writes.
enum class OutputKind
{
    Wav,       // canonical 44-byte-header PCM
    Mp4Aac,    // AAC-LC in MPEG-4 (brand "M4A ")
    OggVorbis, // Vorbis in Ogg
    Mp3        // MP3 with an ID3v2 tag
};

struct RenderOrder
{
    int timeline = 0;
    int media = 0;
    std::shared_ptr<const MediaItem> item;
    OutputKind output = OutputKind::Wav;
    int bitRate = 0;
    std::string dest;
    KeloNotifyProc notify = nullptr;
    void* user = nullptr;
    KeloPostProc post = nullptr;
};

class RenderJob : public JobControl, public std::enable_shared_from_this<RenderJob>
{
public:
    explicit RenderJob(RenderOrder order);
    ~RenderJob() override;
    RenderJob(const RenderJob&) = delete;
    RenderJob& operator=(const RenderJob&) = delete;

    // Starts the worker thread; throws std::system_error when it cannot.
    void start();

    int media() const override { return m_order.media; }
    bool done() const override { return m_done.load(); }
    void cancel() override { m_cancelled->store(true); }
    void wait() override;

    const std::string& destination() const { return m_order.dest; }
    // True until the output is in place or gone, which is before the last call.
    bool writing() const { return m_writing.load(); }

private:
    void run();
    int render(std::string* temp);
    void notify(int progress, int status);

    RenderOrder m_order;
    // Shared with posted progress calls, which check it before they run.
    std::shared_ptr<std::atomic<bool>> m_cancelled;
    std::atomic<bool> m_done{false};
    std::atomic<bool> m_writing{true};
    int m_progress = 0; // worker thread only
    std::mutex m_joinMutex;
    std::thread m_thread;
};

} // namespace vexa
