// Timelines and media items: handle tables behind one mutex.

#include "registry.h"

#include <algorithm>
#include <cstring>

namespace vexa {

Registry& Registry::instance()
{
    static Registry registry;
    return registry;
}

Timeline* Registry::timeline(int handle)
{
    auto it = timelines.find(handle);
    return it == timelines.end() ? nullptr : it->second.get();
}

std::shared_ptr<const MediaItem> Registry::item(int handle, int media)
{
    Timeline* t = timeline(handle);
    if (!t)
        return nullptr;
    auto it = t->items.find(media);
    return it == t->items.end() ? nullptr : it->second;
}

void stopJobs(const std::vector<std::shared_ptr<JobControl>>& jobs)
{
    for (const auto& job : jobs)
        job->cancel();
    for (const auto& job : jobs)
        job->wait();
}

} // namespace vexa

using vexa::Registry;

extern "C" int CreateTimelineEx(const char* owner, int /*flags*/)
{
    Registry& r = Registry::instance();
    std::lock_guard<std::mutex> lock(r.mutex);
    auto t = std::make_unique<vexa::Timeline>();
    t->owner = owner ? owner : "";
    const int handle = r.nextTimeline++;
    r.timelines.emplace(handle, std::move(t));
    return handle;
}

extern "C" int DestroyTimeline(int timeline)
{
    Registry& r = Registry::instance();
    std::unique_ptr<vexa::Timeline> doomed;
    {
        std::lock_guard<std::mutex> lock(r.mutex);
        auto it = r.timelines.find(timeline);
        if (it == r.timelines.end())
            return KELO_E_HANDLE;
        doomed = std::move(it->second);
        r.timelines.erase(it);
    }
    vexa::stopJobs(doomed->jobs);
    return KELO_OK;
}

extern "C" int KeloAddMedia2(int timeline, const tagKeloMediaSrc* src, int, int)
{
    if (!src || !src->pszPath || !*src->pszPath)
        return KELO_E_ARGUMENT;
    Registry& r = Registry::instance();
    {
        std::lock_guard<std::mutex> lock(r.mutex);
        if (!r.timeline(timeline))
            return KELO_E_HANDLE;
    }
    auto item = std::make_shared<vexa::MediaItem>();
    item->path = src->pszPath;
    item->start = src->llStart;
    item->end = src->llEnd;
    // Probe outside the lock: it reads the file.
    const int rc = vexa::probeStreams(item->path, &item->streams, &item->sourceArtist);
    if (rc < 0)
        return rc;

    std::lock_guard<std::mutex> lock(r.mutex);
    vexa::Timeline* t = r.timeline(timeline);
    if (!t)
        return KELO_E_HANDLE;
    const int id = t->nextMedia++;
    t->items.emplace(id, std::move(item));
    return id;
}

extern "C" int KeloSetMediaTags(int timeline, int media, const char* title, const char* artist)
{
    Registry& r = Registry::instance();
    std::lock_guard<std::mutex> lock(r.mutex);
    vexa::Timeline* t = r.timeline(timeline);
    if (!t)
        return KELO_E_HANDLE;
    auto found = t->items.find(media);
    if (found == t->items.end())
        return KELO_E_HANDLE;
    // Items are shared with running jobs and never change: a tagged copy
    // takes the old one's place.
    auto tagged = std::make_shared<vexa::MediaItem>(*found->second);
    tagged->title = title ? title : "";
    tagged->artist = artist ? artist : "";
    found->second = std::move(tagged);
    return KELO_OK;
}

extern "C" int KeloGetMediaArtist(int timeline, int media, char* buffer, int size)
{
    Registry& r = Registry::instance();
    std::lock_guard<std::mutex> lock(r.mutex);
    auto item = r.item(timeline, media);
    if (!item)
        return KELO_E_HANDLE;
    const std::string& artist = item->sourceArtist;
    if (buffer && size > 0) {
        const size_t n = std::min(artist.size(), static_cast<size_t>(size - 1));
        artist.copy(buffer, n);
        buffer[n] = '\0';
    }
    return static_cast<int>(artist.size()) + 1;
}

extern "C" int KeloRemoveMedia(int timeline, int media)
{
    Registry& r = Registry::instance();
    std::vector<std::shared_ptr<vexa::JobControl>> jobs;
    {
        std::lock_guard<std::mutex> lock(r.mutex);
        vexa::Timeline* t = r.timeline(timeline);
        if (!t)
            return KELO_E_HANDLE;
        if (t->items.erase(media) == 0)
            return KELO_E_HANDLE;
        auto keep = std::stable_partition(t->jobs.begin(), t->jobs.end(),
                                          [media](const auto& j) { return j->media() != media; });
        jobs.assign(keep, t->jobs.end());
        t->jobs.erase(keep, t->jobs.end());
    }
    vexa::stopJobs(jobs);
    return KELO_OK;
}

extern "C" int KeloGetMediaInfo(int timeline, int media, void** ppInfo)
{
    if (!ppInfo)
        return KELO_E_ARGUMENT;
    Registry& r = Registry::instance();
    std::lock_guard<std::mutex> lock(r.mutex);
    auto item = r.item(timeline, media);
    if (!item)
        return KELO_E_HANDLE;
    if (item->streams.empty())
        return 0;
    // The array belongs to the item and lives as long as it does.
    *ppInfo = const_cast<tagKeloStreamInfo*>(item->streams.data());
    return static_cast<int>(item->streams.size());
}
