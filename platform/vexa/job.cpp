// One render job: source to temporary file to destination, with progress.

#include "job.h"

#include "encodedwriter.h"
#include "pcmsource.h"
#include "wavwriter.h"

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <system_error>

namespace fs = std::filesystem;

namespace vexa {

namespace {

// The job whose worker runs on this thread, so that wait() from inside its
// own progress callback returns instead of joining itself.
thread_local const RenderJob* t_current = nullptr;

struct PendingNote
{
    std::shared_ptr<const std::atomic<bool>> cancelled;
    KeloNotifyProc proc;
    void* user;
    tagKeloProgInfo info;
};

void deliver(void* arg)
{
    std::unique_ptr<PendingNote> note(static_cast<PendingNote*>(arg));
    if (!note->cancelled->load())
        note->proc(&note->info, note->user);
}

// Claims a fresh hidden name in the destination's directory, so that the
// final rename stays on one file system and a half-written file never
// carries the destination's name. Empty when no name could be made there.
std::string claimTempName(const std::string& dest)
{
    static std::atomic<unsigned> counter{0};
    const fs::path target(dest);
    for (int attempt = 0; attempt < 8; ++attempt) {
        const auto ticks = std::chrono::steady_clock::now().time_since_epoch().count();
        char suffix[48];
        std::snprintf(suffix, sizeof suffix, ".%llx-%x.part",
                      static_cast<unsigned long long>(ticks) & 0xffffffffffULL,
                      counter.fetch_add(1));
        const fs::path temp = target.parent_path() / ("." + target.filename().string() + suffix);
        // "x": never take over a file that someone else made.
        std::FILE* f = std::fopen(temp.string().c_str(), "wbx");
        if (f) {
            std::fclose(f);
            // Removed should the process be interrupted before it is done.
            KeloMarkTemporary(temp.c_str());
            return temp.string();
        }
        if (errno != EEXIST)
            break;
    }
    return std::string();
}

} // namespace

RenderJob::RenderJob(RenderOrder order)
    : m_order(std::move(order)), m_cancelled(std::make_shared<std::atomic<bool>>(false))
{
}

RenderJob::~RenderJob()
{
    m_cancelled->store(true);
    if (m_thread.joinable()) {
        // The worker may drop the last reference itself, on its way out.
        if (m_thread.get_id() == std::this_thread::get_id())
            m_thread.detach();
        else
            m_thread.join();
    }
}

void RenderJob::start()
{
    // With a dispatcher the first call is posted before KeloRun returns:
    // whoever then waits on the event loop sees this job's good status first,
    // never the failure of an earlier job.
    if (m_order.post)
        notify(0, KELO_OK);
    m_thread = std::thread([self = shared_from_this()] { self->run(); });
}

void RenderJob::wait()
{
    if (t_current == this)
        return;
    std::lock_guard<std::mutex> lock(m_joinMutex);
    if (m_thread.joinable())
        m_thread.join();
}

void RenderJob::notify(int progress, int status)
{
    m_progress = progress;
    if (!m_order.notify || m_cancelled->load())
        return;
    tagKeloProgInfo info{};
    info.nTimeline = m_order.timeline;
    info.nMedia = m_order.media;
    info.nProgress = progress;
    info.nStatus = status;
    if (m_order.post)
        m_order.post(&deliver, new PendingNote{m_cancelled, m_order.notify, m_order.user, info});
    else
        m_order.notify(&info, m_order.user);
}

void RenderJob::run()
{
    t_current = this;
    if (!m_order.post)
        notify(0, KELO_OK);
    std::string temp;
    int rc = render(&temp);
    const bool cancelled = m_cancelled->load();
    std::error_code ec;
    if (rc == KELO_OK && !cancelled) {
        fs::rename(temp, m_order.dest, ec);
        if (ec)
            rc = KELO_E_IO;
    }
    if ((rc != KELO_OK || cancelled) && !temp.empty())
        fs::remove(temp, ec);
    if (!temp.empty())
        KeloUnmarkTemporary(temp.c_str());
    m_writing.store(false);

    if (cancelled) {
        KeloLogMessage(0, "render cancelled: %s", m_order.dest.c_str());
    } else if (rc < 0) {
        KeloLogMessage(0, "render failed (%d): %s -> %s", rc, m_order.item->path.c_str(),
                       m_order.dest.c_str());
        notify(m_progress, rc);
    } else {
        notify(KELO_PROGRESS_DONE, KELO_OK);
    }
    m_done.store(true);
    t_current = nullptr;
}

int RenderJob::render(std::string* temp)
{
    const MediaItem& item = *m_order.item;
    // Rendering onto the source would replace the user's file.
    std::error_code ec;
    if (fs::equivalent(item.path, m_order.dest, ec))
        return KELO_E_ARGUMENT;

    PcmSource source;
    int rc = source.open(item.path, item.start, item.end);
    if (rc < 0)
        return rc;

    *temp = claimTempName(m_order.dest);
    if (temp->empty())
        return KELO_E_IO;
    std::unique_ptr<PcmSink> sink;
    if (m_order.output != OutputKind::Wav) {
        auto encoded = std::make_unique<EncodedWriter>();
        // The source's own artist unless the item says otherwise.
        const Tags tags{item.title, item.artist.empty() ? item.sourceArtist : item.artist};
        rc = encoded->open(*temp, m_order.output, m_order.bitRate, tags);
        sink = std::move(encoded);
    } else {
        auto wav = std::make_unique<WavWriter>();
        rc = wav->open(*temp);
        sink = std::move(wav);
    }
    if (rc < 0)
        return rc;

    if (m_cancelled->load(std::memory_order_relaxed))
        return KELO_E_CANCELLED;
    int noted = 0;
    rc = source.readAll([&](const int16_t* samples, int frames) {
        const int written = sink->write(samples, frames);
        if (written < 0)
            return written;
        if (m_cancelled->load(std::memory_order_relaxed))
            return static_cast<int>(KELO_E_CANCELLED);
        // One call per percent; the end's value is kept for the very end.
        const int progress = std::min(KELO_PROGRESS_DONE - 1,
                                      static_cast<int>(source.progress() * KELO_PROGRESS_DONE));
        if (progress / 100 > noted / 100) {
            noted = progress;
            notify(progress, KELO_OK);
        }
        return static_cast<int>(KELO_OK);
    });
    if (rc < 0)
        return rc;
    return sink->finish();
}

} // namespace vexa

extern "C" void KeloDiscardTask(KeloTaskProc task, void* arg)
{
    // The engine posts one kind of task only.
    if (task == &vexa::deliver)
        delete static_cast<vexa::PendingNote*>(arg);
}
