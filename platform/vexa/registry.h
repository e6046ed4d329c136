#pragma once
// The engine's object tables: timelines by handle, media items by identifier
// within their timeline, and the jobs running on them. One mutex guards the
// tables; jobs run on their own threads and hold their item by shared_ptr,
// so removing an item or destroying a timeline never pulls data from under
// a running job: it cancels the job and waits for it first.

#include "vexa.h"

#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

namespace vexa {

struct MediaItem
{
    std::string path;
    int64_t start = 0; // ms
    int64_t end = 0;   // ms; 0..0 is the whole file
    std::vector<tagKeloStreamInfo> streams;
    std::string title; // tags of what is rendered from it, UTF-8
    std::string artist;
    std::string sourceArtist; // the file's own artist tag, found by the probe
};

// A running or finished job, as the tables see it.
class JobControl
{
public:
    virtual ~JobControl() = default;
    virtual int media() const = 0;
    virtual bool done() const = 0;
    virtual void cancel() = 0;
    // Waits until the job's thread has ended; a no-op on the job's own thread.
    virtual void wait() = 0;
};

struct Timeline
{
    std::string owner;
    int nextMedia = 0;
    std::map<int, std::shared_ptr<const MediaItem>> items;
    std::vector<std::shared_ptr<JobControl>> jobs;
};

class Registry
{
public:
    static Registry& instance();

    std::mutex mutex;
    std::map<int, std::unique_ptr<Timeline>> timelines;
    int nextTimeline = 1;

    // Both expect the mutex held.
    Timeline* timeline(int handle);
    std::shared_ptr<const MediaItem> item(int timeline, int media);
};

// Cancels and waits for the given jobs; call without the mutex held.
void stopJobs(const std::vector<std::shared_ptr<JobControl>>& jobs);

// Probes a file's streams: bounded, the file is closed again. Returns
// KELO_OK or a negative code.
int probeStreams(const std::string& path, std::vector<tagKeloStreamInfo>* streams,
                 std::string* artist = nullptr);

} // namespace vexa
