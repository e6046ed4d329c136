// The agent's C calls over one process-wide state: the loaded library and
// the tables of open playlist and artwork handles, all behind one recursive
// lock (SearchSong's callback calls back in on the same thread). The library
// is built without holding the lock, so that a load on a worker thread keeps
// nobody waiting but the calls that need the library. Handles are numbers
// from one counter, never reused while open and never pointers, so a closed
// or made-up handle is simply not found.

#include "itunesagent.h"
#include "itunesagent_testing.h"

#include "agentlog.h"
#include "folderlibrary.h"
#include "library.h"
#include "mediafile.h"
#include "ringtones.h"
#include "scancache.h"
#include "xmllibrary.h"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <condition_variable>
#include <cstring>
#include <deque>
#include <filesystem>
#include <memory>
#include <mutex>
#include <string_view>
#include <unordered_map>

using namespace ita;

namespace {

enum Call
{
    cGetPlaylistCount,
    cGetPlaylistName,
    cOpenPlaylist,
    cClosePlaylist,
    cGetSongCount,
    cGetPlaylistKind,
    cGetSongInfo,
    cGetSongTitles,
    cOpenArtwork,
    cGetArtworkCount,
    cGetArtworkInfo,
    cCloseArtwork,
    cSearchSong,
    cAppendRingtone,
    cCallCount
};

const char* const kCallNames[cCallCount] = {
    "GetPlaylistCount", "GetPlaylistName", "OpenPlaylist",  "ClosePlaylist", "GetSongCount",
    "GetPlaylistKind",  "GetSongInfo",     "GetSongTitles", "OpenArtwork",   "GetArtworkCount",
    "GetArtworkInfo",   "CloseArtwork",    "SearchSong",    "AppendRingtone"};

constexpr int kDefaultHandleLimit = 65536;
// Artwork handles hold whole pictures; callers that never close them must
// not make the agent grow without end.
constexpr size_t kMaxArtworkHandles = 64;
// The playlist of a search: every track, in library order.
constexpr int32_t kAllTracks = -1;

struct ArtworkHandle
{
    uint32_t track = 0;
    bool loaded = false;
    std::vector<std::string> images;
};

// Where the library comes from, as the application said.
struct Sources
{
    std::string music;       // the Music folder: scanned, and home of iTunes/*.xml
    std::string videos;      // the Videos folder: scanned
    std::string cacheDir;    // the scan cache's folder; none: no cache
    std::string libraryFile; // an XML library to use instead of the usual places
};

struct State
{
    std::recursive_mutex mutex;
    std::condition_variable_any loadDone;
    Sources sources;
    bool loading = false;
    unsigned generation = 0; // a reset during a load makes that load stale
    std::shared_ptr<Library> lib;
    std::unordered_map<uintptr_t, int32_t> playlists; // handle -> playlist index or kAllTracks
    std::unordered_map<uintptr_t, ArtworkHandle> artworks;
    std::deque<uintptr_t> artworkOrder;
    uintptr_t nextHandle = 1;
    int handleLimit = kDefaultHandleLimit;
    bool limitLogged = false;
    std::atomic<unsigned long> calls[cCallCount] = {};
};

State& state()
{
    static State s;
    return s;
}

void counted(Call call)
{
    state().calls[call].fetch_add(1, std::memory_order_relaxed);
}

uintptr_t fromHandle(const void* handle)
{
    return reinterpret_cast<uintptr_t>(handle);
}

void* toHandle(uintptr_t id)
{
    return reinterpret_cast<void*>(id);
}

uintptr_t newHandle(State& s)
{
    for (;;) {
        const uintptr_t id = s.nextHandle;
        s.nextHandle = s.nextHandle >= 0x7FFFFFFF ? 1 : s.nextHandle + 1;
        if (!s.playlists.count(id) && !s.artworks.count(id))
            return id;
    }
}

bool fileExists(const std::string& path)
{
    std::error_code ec;
    return std::filesystem::exists(std::filesystem::u8path(path), ec);
}

double msSince(std::chrono::steady_clock::time_point start)
{
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start)
        .count();
}

// Tries the configured or usual library file; null when there is none or it
// cannot be read (the reason is logged).
std::shared_ptr<Library> loadXml(const Sources& from)
{
    const std::string& music = from.music;
    const bool configured = !from.libraryFile.empty();
    std::vector<std::string> candidates;
    if (configured)
        candidates.push_back(from.libraryFile);
    else if (!music.empty())
        candidates = {music + "/iTunes/iTunes Music Library.xml",
                      music + "/iTunes/iTunes Library.xml"};
    for (const std::string& path : candidates) {
        if (!configured && !fileExists(path))
            continue;
        const auto start = std::chrono::steady_clock::now();
        auto lib = std::make_shared<Library>();
        std::string mediaFolder;
        std::string why;
        if (!loadXmlLibrary(path, *lib, mediaFolder, why)) {
            logLine("library file %s could not be read: %s; using the folder library", path.c_str(),
                    why.c_str());
            return nullptr;
        }
        lib->backend = ITA_BACKEND_XML;
        lib->source = path;
        lib->ringtoneDir = ringtonePlace(mediaFolder, music);
        logLine("library file %s: %zu tracks, %zu playlists in %.1f ms", path.c_str(),
                lib->tracks.size(), lib->playlists.size(), msSince(start));
        return lib;
    }
    return nullptr;
}

std::shared_ptr<Library> loadFolders(const Sources& from)
{
    const std::string& music = from.music;
    const auto start = std::chrono::steady_clock::now();
    auto lib = std::make_shared<Library>();
    lib->backend = ITA_BACKEND_FOLDER;
    if (!music.empty())
        lib->ringtoneDir = music + "/Ringtones";
    std::vector<std::string> roots;
    for (const std::string& dir : {music, from.videos}) {
        if (!dir.empty() && std::find(roots.begin(), roots.end(), dir) == roots.end()) {
            roots.push_back(dir);
            lib->source += (lib->source.empty() ? "" : ", ") + dir;
        }
    }
    FolderScanStats stats;
    const std::string cache =
        from.cacheDir.empty() ? std::string() : from.cacheDir + "/library-cache.bin";
    loadFolderLibrary(*lib, roots, cache, stats);
    logLine("folder library %s: %zu files (%zu read, %zu from the cache, %zu skipped), "
            "%zu playlist files in %.1f ms",
            lib->source.c_str(), stats.files, stats.read, stats.cached, stats.skipped,
            stats.playlists, msSince(start));
    return lib;
}

using Lock = std::unique_lock<std::recursive_mutex>;

std::shared_ptr<Library> buildLibrary(const Sources& from)
{
    std::shared_ptr<Library> lib = loadXml(from);
    if (!lib)
        lib = loadFolders(from);
    attachRingtones(*lib);
    return lib;
}

// The library, built first when there is none. The build runs with the lock
// released; a call that needs the library while another thread builds it
// waits for that build, and a build that a reset made stale is thrown away.
Library& loaded(State& s, Lock& lock)
{
    while (!s.lib) {
        if (s.loading) {
            s.loadDone.wait(lock);
            continue;
        }
        s.loading = true;
        const unsigned generation = s.generation;
        const Sources from = s.sources;
        lock.unlock();
        std::shared_ptr<Library> lib = buildLibrary(from);
        lock.lock();
        s.loading = false;
        if (generation == s.generation)
            s.lib = std::move(lib);
        s.loadDone.notify_all();
    }
    return *s.lib;
}

const Playlist* playlistAt(Library& lib, int collection, int position)
{
    if (collection < 0 || collection > 2 || position < 0)
        return nullptr;
    const std::vector<uint32_t>& list = lib.collections[collection];
    if (static_cast<size_t>(position) >= list.size())
        return nullptr;
    return &lib.playlists[list[static_cast<size_t>(position)]];
}

// The number of songs behind an open handle, or a negative code.
int songCount(State& s, const void* handle)
{
    const auto it = s.playlists.find(fromHandle(handle));
    if (it == s.playlists.end())
        return ITA_E_HANDLE;
    // Handles exist only while a library does.
    const Library& lib = *s.lib;
    if (it->second == kAllTracks)
        return static_cast<int>(lib.tracks.size());
    return static_cast<int>(lib.playlists[static_cast<size_t>(it->second)].items.size());
}

// The track of a song of an open playlist, or a negative code.
int64_t trackAt(State& s, const void* handle, int song)
{
    const auto it = s.playlists.find(fromHandle(handle));
    if (it == s.playlists.end())
        return ITA_E_HANDLE;
    const Library& lib = *s.lib;
    if (song < 0)
        return ITA_E_ARGUMENT;
    if (it->second == kAllTracks)
        return static_cast<size_t>(song) < lib.tracks.size() ? int64_t{song}
                                                             : int64_t{ITA_E_ARGUMENT};
    const std::vector<uint32_t>& items = lib.playlists[static_cast<size_t>(it->second)].items;
    return static_cast<size_t>(song) < items.size() ? int64_t{items[static_cast<size_t>(song)]}
                                                    : int64_t{ITA_E_ARGUMENT};
}

// One field of the two-pass protocol.
void fill(const StringPool& pool, Text text, char* buffer, int32_t& size)
{
    if (!buffer) {
        size = text.len ? static_cast<int32_t>(text.len + 1) : 0;
        return;
    }
    if (size <= 0)
        return;
    const size_t n = std::min<size_t>(text.len, static_cast<size_t>(size) - 1);
    std::memcpy(buffer, pool.c_str(text), n);
    buffer[n] = '\0';
}

int copyText(std::string_view text, char* buffer, int size)
{
    if (!buffer)
        return static_cast<int>(text.size()) + 1;
    if (size <= 0)
        return ITA_E_ARGUMENT;
    const size_t n = std::min<size_t>(text.size(), static_cast<size_t>(size) - 1);
    std::memcpy(buffer, text.data(), n);
    buffer[n] = '\0';
    return static_cast<int>(n) + 1;
}

ArtworkHandle* artworkOf(State& s, const void* handle)
{
    const auto it = s.artworks.find(fromHandle(handle));
    if (it == s.artworks.end())
        return nullptr;
    ArtworkHandle& art = it->second;
    if (!art.loaded) {
        Library& lib = *s.lib;
        art.images = readArtwork(std::string(lib.strings.view(lib.tracks[art.track].location)));
        art.loaded = true;
        // Remembered, so that a song without pictures is not opened again.
        lib.tracks[art.track].artwork = static_cast<int32_t>(art.images.size());
    }
    return &art;
}

std::string_view queryField(const char* text, int32_t size)
{
    if (!text || size <= 0)
        return std::string_view();
    return std::string_view(text, strnlen(text, static_cast<size_t>(size)));
}

bool contains(std::string_view haystack, const std::string& needle)
{
    return !needle.empty() && haystack.find(needle) != std::string_view::npos;
}

} // namespace

extern "C" {

int GetPlaylistCount(int nCollection)
{
    counted(cGetPlaylistCount);
    State& s = state();
    Lock lock(s.mutex);
    Library& lib = loaded(s, lock);
    if (nCollection < 0 || nCollection > 2)
        return ITA_E_ARGUMENT;
    return static_cast<int>(lib.collections[nCollection].size());
}

int GetPlaylistName(int nCollection, int nPosition, char* pBuffer, int nSize)
{
    counted(cGetPlaylistName);
    State& s = state();
    Lock lock(s.mutex);
    Library& lib = loaded(s, lock);
    const Playlist* playlist = playlistAt(lib, nCollection, nPosition);
    if (!playlist)
        return ITA_E_ARGUMENT;
    return copyText(lib.strings.view(playlist->name), pBuffer, nSize);
}

void* OpenPlaylist(int nCollection, int nPosition)
{
    counted(cOpenPlaylist);
    State& s = state();
    Lock lock(s.mutex);
    Library& lib = loaded(s, lock);
    const Playlist* playlist = playlistAt(lib, nCollection, nPosition);
    if (!playlist)
        return nullptr;
    if (s.playlists.size() >= static_cast<size_t>(s.handleLimit)) {
        if (!s.limitLogged)
            logLine("open playlist: %d handles are open, none is left", s.handleLimit);
        s.limitLogged = true;
        return nullptr;
    }
    s.limitLogged = false;
    const uintptr_t id = newHandle(s);
    s.playlists.emplace(id, static_cast<int32_t>(playlist - lib.playlists.data()));
    return toHandle(id);
}

int ClosePlaylist(const void* hPlaylist)
{
    counted(cClosePlaylist);
    State& s = state();
    Lock lock(s.mutex);
    return s.playlists.erase(fromHandle(hPlaylist)) ? ITA_OK : ITA_E_HANDLE;
}

int GetSongCount(const void* hPlaylist)
{
    counted(cGetSongCount);
    State& s = state();
    Lock lock(s.mutex);
    return songCount(s, hPlaylist);
}

int GetPlaylistKind(const void* hPlaylist)
{
    counted(cGetPlaylistKind);
    State& s = state();
    Lock lock(s.mutex);
    const auto it = s.playlists.find(fromHandle(hPlaylist));
    if (it == s.playlists.end())
        return ITA_E_HANDLE;
    if (it->second == kAllTracks)
        return ITA_KIND_USER;
    return s.lib->playlists[static_cast<size_t>(it->second)].kind;
}

int GetSongInfo(const void* hPlaylist, int nSong, tagSongInfo* pInfo)
{
    counted(cGetSongInfo);
    State& s = state();
    Lock lock(s.mutex);
    const int64_t track = trackAt(s, hPlaylist, nSong);
    if (track < 0)
        return static_cast<int>(track);
    if (!pInfo)
        return ITA_E_ARGUMENT;
    const Library& lib = *s.lib;
    const Track& t = lib.tracks[static_cast<size_t>(track)];
    fill(lib.strings, t.title, pInfo->pszTitle, pInfo->nTitleSize);
    fill(lib.strings, t.location, pInfo->pszLocation, pInfo->nLocationSize);
    fill(lib.strings, t.artist, pInfo->pszArtist, pInfo->nArtistSize);
    fill(lib.strings, t.album, pInfo->pszAlbum, pInfo->nAlbumSize);
    pInfo->bVideo = t.video;
    return ITA_OK;
}

int GetSongTitles(const void* hPlaylist, int nFirst, int nCount, char* pBuffer, int nSize)
{
    counted(cGetSongTitles);
    State& s = state();
    Lock lock(s.mutex);
    const int songs = songCount(s, hPlaylist);
    if (songs < 0)
        return songs;
    if (nFirst < 0 || nCount < 0 || nFirst > songs - nCount || (pBuffer && nSize < 0))
        return ITA_E_ARGUMENT;
    const Library& lib = *s.lib;
    const int32_t playlist = s.playlists.find(fromHandle(hPlaylist))->second;
    const std::vector<uint32_t>* items =
        playlist == kAllTracks ? nullptr : &lib.playlists[static_cast<size_t>(playlist)].items;
    // A title is what a reader of GetSongInfo's terminated text sees: up to
    // its first NUL.
    auto titleOf = [&](int song) {
        const auto at = static_cast<size_t>(song);
        const Text text = lib.tracks[items ? (*items)[at] : at].title;
        const char* bytes = lib.strings.c_str(text);
        return std::string_view(bytes, strnlen(bytes, text.len));
    };
    int64_t written = 0;
    for (int song = nFirst; song < nFirst + nCount; ++song) {
        const std::string_view title = titleOf(song);
        const int64_t next = written + static_cast<int64_t>(title.size()) + 1;
        if (!pBuffer) {
            if (next > INT32_MAX)
                return ITA_E_ARGUMENT;
        } else {
            if (next > nSize)
                break;
            std::memcpy(pBuffer + written, title.data(), title.size());
            pBuffer[written + static_cast<int64_t>(title.size())] = '\0';
        }
        written = next;
    }
    return static_cast<int>(written);
}

void* OpenArtwork(const void* hPlaylist, int nSong)
{
    counted(cOpenArtwork);
    State& s = state();
    Lock lock(s.mutex);
    const int64_t track = trackAt(s, hPlaylist, nSong);
    if (track < 0)
        return nullptr;
    const Track& t = s.lib->tracks[static_cast<size_t>(track)];
    if (t.artwork == 0 || t.location.len == 0)
        return nullptr;
    while (s.artworks.size() >= kMaxArtworkHandles && !s.artworkOrder.empty()) {
        s.artworks.erase(s.artworkOrder.front());
        s.artworkOrder.pop_front();
    }
    const uintptr_t id = newHandle(s);
    ArtworkHandle art;
    art.track = static_cast<uint32_t>(track);
    s.artworks.emplace(id, std::move(art));
    s.artworkOrder.push_back(id);
    return toHandle(id);
}

int GetArtworkCount(const void* hArtwork)
{
    counted(cGetArtworkCount);
    State& s = state();
    Lock lock(s.mutex);
    const ArtworkHandle* art = artworkOf(s, hArtwork);
    return art ? static_cast<int>(art->images.size()) : ITA_E_HANDLE;
}

int GetArtworkInfo(const void* hArtwork, int nImage, tagArtworkInfo* pInfo)
{
    counted(cGetArtworkInfo);
    State& s = state();
    Lock lock(s.mutex);
    const ArtworkHandle* art = artworkOf(s, hArtwork);
    if (!art)
        return ITA_E_HANDLE;
    if (!pInfo || nImage < 0 || static_cast<size_t>(nImage) >= art->images.size())
        return ITA_E_ARGUMENT;
    const std::string& image = art->images[static_cast<size_t>(nImage)];
    if (!pInfo->pData) {
        pInfo->nDataSize = static_cast<int32_t>(image.size());
    } else if (pInfo->nDataSize > 0) {
        std::memcpy(pInfo->pData, image.data(),
                    std::min<size_t>(image.size(), static_cast<size_t>(pInfo->nDataSize)));
    }
    return ITA_OK;
}

int CloseArtwork(const void* hArtwork)
{
    counted(cCloseArtwork);
    State& s = state();
    Lock lock(s.mutex);
    const uintptr_t id = fromHandle(hArtwork);
    if (!s.artworks.erase(id))
        return ITA_E_HANDLE;
    s.artworkOrder.erase(std::remove(s.artworkOrder.begin(), s.artworkOrder.end(), id),
                         s.artworkOrder.end());
    return ITA_OK;
}

int SearchSong(const tagSongInfo* pQuery, SearchSongProc pfnCallback, void* pUser)
{
    counted(cSearchSong);
    State& s = state();
    Lock lock(s.mutex);
    if (!pQuery || !pfnCallback)
        return ITA_E_ARGUMENT;
    // Held here: a callback that resets the agent must not pull the tracks
    // away under the loop.
    loaded(s, lock);
    const std::shared_ptr<Library> lib = s.lib;
    const std::string title = foldCase(queryField(pQuery->pszTitle, pQuery->nTitleSize));
    const std::string artist = foldCase(queryField(pQuery->pszArtist, pQuery->nArtistSize));
    const std::string album = foldCase(queryField(pQuery->pszAlbum, pQuery->nAlbumSize));
    if (title.empty() && artist.empty() && album.empty())
        return 0;
    const uintptr_t id = newHandle(s);
    s.playlists.emplace(id, kAllTracks);
    int hits = 0;
    const size_t count = lib->tracks.size();
    for (size_t i = 0; i < count; ++i) {
        const Track& t = lib->tracks[i];
        if (!contains(lib->strings.view(t.foldTitle), title) &&
            !contains(lib->strings.view(t.foldArtist), artist) &&
            !contains(lib->strings.view(t.foldAlbum), album))
            continue;
        ++hits;
        if (!pfnCallback(toHandle(id), static_cast<int>(i), pUser))
            break;
    }
    s.playlists.erase(id);
    return hits;
}

int AppendRingtone(const char* pszPath)
{
    counted(cAppendRingtone);
    State& s = state();
    Lock lock(s.mutex);
    if (!pszPath || !*pszPath)
        return ITA_E_ARGUMENT;
    return appendRingtone(loaded(s, lock), pszPath);
}

void ItunesAgentSetLogger(ItunesAgentLogProc pfnLog, void* pUser)
{
    setLogger(pfnLog, pUser);
}

void ItunesAgentSetFolders(const char* pszMusic, const char* pszVideos, const char* pszCacheDir)
{
    State& s = state();
    Lock lock(s.mutex);
    s.sources.music = pszMusic ? pszMusic : "";
    s.sources.videos = pszVideos ? pszVideos : "";
    s.sources.cacheDir = pszCacheDir ? pszCacheDir : "";
}

void ItunesAgentSetLibraryFile(const char* pszPath)
{
    State& s = state();
    Lock lock(s.mutex);
    s.sources.libraryFile = pszPath ? pszPath : "";
}

int ItunesAgentLoad(void)
{
    State& s = state();
    Lock lock(s.mutex);
    return loaded(s, lock).backend;
}

void ItunesAgentReset(void)
{
    State& s = state();
    Lock lock(s.mutex);
    s.lib.reset();
    ++s.generation;
    s.playlists.clear();
    s.artworks.clear();
    s.artworkOrder.clear();
    s.handleLimit = kDefaultHandleLimit;
    s.limitLogged = false;
    for (auto& c : s.calls)
        c.store(0);
}

int ItunesAgentBackend(void)
{
    State& s = state();
    Lock lock(s.mutex);
    return s.lib ? s.lib->backend : ITA_BACKEND_NONE;
}

int ItunesAgentSetHandleLimit(int nMaxOpenPlaylists)
{
    State& s = state();
    Lock lock(s.mutex);
    const int previous = s.handleLimit;
    s.handleLimit = nMaxOpenPlaylists < 1 ? kDefaultHandleLimit : nMaxOpenPlaylists;
    return previous;
}

unsigned long ItunesAgentCallCount(const char* pszFunction)
{
    State& s = state();
    unsigned long total = 0;
    for (int i = 0; i < cCallCount; ++i) {
        if (!pszFunction)
            total += s.calls[i].load();
        else if (std::strcmp(pszFunction, kCallNames[i]) == 0)
            return s.calls[i].load();
    }
    return total;
}

int ItunesAgentGetRingtoneDir(char* pBuffer, int nSize)
{
    State& s = state();
    Lock lock(s.mutex);
    return copyText(loaded(s, lock).ringtoneDir, pBuffer, nSize);
}

} // extern "C"
