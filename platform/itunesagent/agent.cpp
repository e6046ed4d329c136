// The agent's C calls over one process-wide state: the loaded library and
// the tables of open playlist and artwork handles, all behind one recursive
// lock (SearchSong's callback calls back in on the same thread). Handles are
// numbers from one counter, never reused while open and never pointers, so a
// closed or made-up handle is simply not found.

#include "itunesagent.h"

#include "agentlog.h"
#include "folderlibrary.h"
#include "library.h"
#include "mediafile.h"
#include "ringtones.h"
#include "scancache.h"
#include "xmllibrary.h"

#include <QStandardPaths>
#include <QString>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <cstdlib>
#include <cstring>
#include <deque>
#include <filesystem>
#include <memory>
#include <mutex>
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
    cOpenArtwork,
    cGetArtworkCount,
    cGetArtworkInfo,
    cCloseArtwork,
    cSearchSong,
    cAppendRingtone,
    cCallCount
};

const char* const kCallNames[cCallCount] = {
    "GetPlaylistCount", "GetPlaylistName", "OpenPlaylist",  "ClosePlaylist",   "GetSongCount",
    "GetPlaylistKind",  "GetSongInfo",     "OpenArtwork",   "GetArtworkCount", "GetArtworkInfo",
    "CloseArtwork",     "SearchSong",      "AppendRingtone"};

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

struct State
{
    std::recursive_mutex mutex;
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

std::string utf8(const QString& s)
{
    const QByteArray b = s.toUtf8();
    return std::string(b.constData(), static_cast<size_t>(b.size()));
}

std::string homeDir()
{
    const char* home = std::getenv("HOME");
    return home ? home : "";
}

std::string musicDir()
{
    const QString dir = QStandardPaths::writableLocation(QStandardPaths::MusicLocation);
    return dir.isEmpty() ? homeDir() + "/Music" : utf8(dir);
}

std::string videosDir()
{
    const QString dir = QStandardPaths::writableLocation(QStandardPaths::MoviesLocation);
    return dir.isEmpty() ? homeDir() + "/Videos" : utf8(dir);
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
std::shared_ptr<Library> loadXml(const std::string& music)
{
    std::vector<std::string> candidates;
    const char* configured = std::getenv("TONEWRIGHT_LIBRARY_XML");
    if (configured && *configured)
        candidates.push_back(configured);
    else
        candidates = {music + "/iTunes/iTunes Music Library.xml",
                      music + "/iTunes/iTunes Library.xml"};
    for (const std::string& path : candidates) {
        if (!(configured && *configured) && !fileExists(path))
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

std::shared_ptr<Library> loadFolders(const std::string& music)
{
    const auto start = std::chrono::steady_clock::now();
    auto lib = std::make_shared<Library>();
    lib->backend = ITA_BACKEND_FOLDER;
    lib->ringtoneDir = music + "/Ringtones";
    std::vector<std::string> roots;
    for (const std::string& dir : {music, videosDir()}) {
        if (!dir.empty() && std::find(roots.begin(), roots.end(), dir) == roots.end()) {
            roots.push_back(dir);
            lib->source += (lib->source.empty() ? "" : ", ") + dir;
        }
    }
    FolderScanStats stats;
    loadFolderLibrary(*lib, roots, ScanCache::defaultPath(), stats);
    logLine("folder library %s: %zu files (%zu read, %zu from the cache, %zu skipped), "
            "%zu playlist files in %.1f ms",
            lib->source.c_str(), stats.files, stats.read, stats.cached, stats.skipped,
            stats.playlists, msSince(start));
    return lib;
}

Library& loaded(State& s)
{
    if (!s.lib) {
        const std::string music = musicDir();
        std::shared_ptr<Library> lib = loadXml(music);
        if (!lib)
            lib = loadFolders(music);
        attachRingtones(*lib);
        s.lib = std::move(lib);
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
    Library& lib = loaded(s);
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
    Library& lib = loaded(s);
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
        Library& lib = loaded(s);
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
    std::lock_guard<std::recursive_mutex> lock(s.mutex);
    Library& lib = loaded(s);
    if (nCollection < 0 || nCollection > 2)
        return ITA_E_ARGUMENT;
    return static_cast<int>(lib.collections[nCollection].size());
}

int GetPlaylistName(int nCollection, int nPosition, char* pBuffer, int nSize)
{
    counted(cGetPlaylistName);
    State& s = state();
    std::lock_guard<std::recursive_mutex> lock(s.mutex);
    Library& lib = loaded(s);
    const Playlist* playlist = playlistAt(lib, nCollection, nPosition);
    if (!playlist)
        return ITA_E_ARGUMENT;
    return copyText(lib.strings.view(playlist->name), pBuffer, nSize);
}

void* OpenPlaylist(int nCollection, int nPosition)
{
    counted(cOpenPlaylist);
    State& s = state();
    std::lock_guard<std::recursive_mutex> lock(s.mutex);
    Library& lib = loaded(s);
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
    std::lock_guard<std::recursive_mutex> lock(s.mutex);
    return s.playlists.erase(fromHandle(hPlaylist)) ? ITA_OK : ITA_E_HANDLE;
}

int GetSongCount(const void* hPlaylist)
{
    counted(cGetSongCount);
    State& s = state();
    std::lock_guard<std::recursive_mutex> lock(s.mutex);
    return songCount(s, hPlaylist);
}

int GetPlaylistKind(const void* hPlaylist)
{
    counted(cGetPlaylistKind);
    State& s = state();
    std::lock_guard<std::recursive_mutex> lock(s.mutex);
    const auto it = s.playlists.find(fromHandle(hPlaylist));
    if (it == s.playlists.end())
        return ITA_E_HANDLE;
    if (it->second == kAllTracks)
        return ITA_KIND_USER;
    return loaded(s).playlists[static_cast<size_t>(it->second)].kind;
}

int GetSongInfo(const void* hPlaylist, int nSong, tagSongInfo* pInfo)
{
    counted(cGetSongInfo);
    State& s = state();
    std::lock_guard<std::recursive_mutex> lock(s.mutex);
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

void* OpenArtwork(const void* hPlaylist, int nSong)
{
    counted(cOpenArtwork);
    State& s = state();
    std::lock_guard<std::recursive_mutex> lock(s.mutex);
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
    std::lock_guard<std::recursive_mutex> lock(s.mutex);
    const ArtworkHandle* art = artworkOf(s, hArtwork);
    return art ? static_cast<int>(art->images.size()) : ITA_E_HANDLE;
}

int GetArtworkInfo(const void* hArtwork, int nImage, tagArtworkInfo* pInfo)
{
    counted(cGetArtworkInfo);
    State& s = state();
    std::lock_guard<std::recursive_mutex> lock(s.mutex);
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
    std::lock_guard<std::recursive_mutex> lock(s.mutex);
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
    std::lock_guard<std::recursive_mutex> lock(s.mutex);
    if (!pQuery || !pfnCallback)
        return ITA_E_ARGUMENT;
    // Held here: a callback that resets the agent must not pull the tracks
    // away under the loop.
    loaded(s);
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
    std::lock_guard<std::recursive_mutex> lock(s.mutex);
    if (!pszPath || !*pszPath)
        return ITA_E_ARGUMENT;
    return appendRingtone(loaded(s), pszPath);
}

void ItunesAgentSetLogger(ItunesAgentLogProc pfnLog, void* pUser)
{
    setLogger(pfnLog, pUser);
}

int ItunesAgentLoad(void)
{
    State& s = state();
    std::lock_guard<std::recursive_mutex> lock(s.mutex);
    return loaded(s).backend;
}

void ItunesAgentReset(void)
{
    State& s = state();
    std::lock_guard<std::recursive_mutex> lock(s.mutex);
    s.lib.reset();
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
    std::lock_guard<std::recursive_mutex> lock(s.mutex);
    return s.lib ? s.lib->backend : ITA_BACKEND_NONE;
}

int ItunesAgentSetHandleLimit(int nMaxOpenPlaylists)
{
    State& s = state();
    std::lock_guard<std::recursive_mutex> lock(s.mutex);
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
    std::lock_guard<std::recursive_mutex> lock(s.mutex);
    return copyText(loaded(s).ringtoneDir, pBuffer, nSize);
}

} // extern "C"
