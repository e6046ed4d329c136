#include "folderlibrary.h"

#include "agentlog.h"
#include "itunesagent.h"
#include "mediafile.h"
#include "playlistfile.h"
#include "scancache.h"

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <unordered_map>

namespace fs = std::filesystem;

namespace ita {

namespace {

struct FoundFile
{
    std::string path;
    int64_t mtime = 0;
    int64_t size = 0;
};

bool statFile(const fs::path& path, FoundFile& file)
{
    std::error_code ec;
    const auto size = fs::file_size(path, ec);
    if (ec)
        return false;
    const auto time = fs::last_write_time(path, ec);
    if (ec)
        return false;
    file.size = static_cast<int64_t>(size);
    file.mtime =
        std::chrono::duration_cast<std::chrono::nanoseconds>(time.time_since_epoch()).count();
    return true;
}

void walk(const std::string& root, const std::string& skipDir, std::vector<FoundFile>& media,
          std::vector<std::string>& playlists)
{
    std::error_code ec;
    const fs::path skip = fs::u8path(skipDir).lexically_normal();
    fs::recursive_directory_iterator it(fs::u8path(root),
                                        fs::directory_options::skip_permission_denied, ec);
    for (const fs::recursive_directory_iterator end; !ec && it != end; it.increment(ec)) {
        const fs::path& path = it->path();
        const std::string name = path.filename().u8string();
        std::error_code typeError;
        const bool dir = it->is_directory(typeError);
        if (name.empty() || name[0] == '.' || (dir && path.lexically_normal() == skip)) {
            if (dir)
                it.disable_recursion_pending();
            continue;
        }
        if (dir || !it->is_regular_file(typeError))
            continue;
        const std::string file = path.u8string();
        switch (fileKind(file)) {
        case FileKind::Media: {
            FoundFile found;
            found.path = file;
            if (statFile(path, found))
                media.push_back(std::move(found));
            break;
        }
        case FileKind::Playlist:
            playlists.push_back(file);
            break;
        case FileKind::Other:
            break;
        }
    }
}

class FolderScan
{
public:
    FolderScan(Library& lib, FolderScanStats& stats) : m_lib(lib), m_stats(stats) {}

    void run(const std::vector<std::string>& roots, const std::string& cachePath);

private:
    const CacheEntry& entryFor(const FoundFile& file);
    // The track of a file, or -1 when it cannot be read.
    int64_t addFile(const FoundFile& file);
    void addPlaylistFile(const std::string& path);

    Library& m_lib;
    FolderScanStats& m_stats;
    ScanCache m_old;
    ScanCache m_fresh;
    bool m_changed = false;
    std::unordered_map<std::string, uint32_t> m_byPath;
    std::vector<uint32_t> m_music;
    std::vector<uint32_t> m_movies;
};

const CacheEntry& FolderScan::entryFor(const FoundFile& file)
{
    const auto known = m_fresh.entries.find(file.path);
    if (known != m_fresh.entries.end())
        return known->second;
    const auto old = m_old.entries.find(file.path);
    if (old != m_old.entries.end() && old->second.mtime == file.mtime &&
        old->second.size == file.size) {
        ++m_stats.cached;
        return m_fresh.entries.emplace(file.path, old->second).first->second;
    }
    ++m_stats.read;
    m_changed = true;
    MediaTags tags = readMediaTags(file.path);
    CacheEntry e;
    e.mtime = file.mtime;
    e.size = file.size;
    e.ok = tags.ok;
    e.why = std::move(tags.why);
    e.title = std::move(tags.title);
    e.artist = std::move(tags.artist);
    e.album = std::move(tags.album);
    e.video = tags.video;
    e.artwork = tags.artwork;
    return m_fresh.entries.emplace(file.path, std::move(e)).first->second;
}

int64_t FolderScan::addFile(const FoundFile& file)
{
    const auto known = m_byPath.find(file.path);
    if (known != m_byPath.end())
        return known->second;
    ++m_stats.files;
    const CacheEntry& e = entryFor(file);
    if (!e.ok) {
        ++m_stats.skipped;
        logLine("skipping unreadable file: %s (%s)", file.path.c_str(), e.why.c_str());
        return -1;
    }
    const uint32_t index =
        m_lib.addTrack(e.title, file.path, e.artist, e.album, e.video, e.artwork);
    m_byPath.emplace(file.path, index);
    (e.video ? m_movies : m_music).push_back(index);
    return index;
}

void FolderScan::addPlaylistFile(const std::string& path)
{
    PlaylistFile list;
    std::string why;
    if (!readPlaylistFile(path, list, why)) {
        logLine("skipping unreadable playlist: %s (%s)", path.c_str(), why.c_str());
        return;
    }
    std::vector<uint32_t> items;
    for (const std::string& entry : list.entries) {
        int64_t index = -1;
        const auto known = m_byPath.find(entry);
        if (known != m_byPath.end()) {
            index = known->second;
        } else if (fileKind(entry) == FileKind::Media) {
            // A file outside the folders joins the library through the list.
            FoundFile file;
            file.path = entry;
            std::error_code ec;
            if (fs::is_regular_file(fs::u8path(entry), ec) && statFile(fs::u8path(entry), file))
                index = addFile(file);
        }
        if (index >= 0)
            items.push_back(static_cast<uint32_t>(index));
    }
    const uint32_t playlist = m_lib.addPlaylist(ITA_COLLECTION_PLAYLISTS, list.name, ITA_KIND_USER);
    m_lib.playlists[playlist].items = std::move(items);
    ++m_stats.playlists;
}

void FolderScan::run(const std::vector<std::string>& roots, const std::string& cachePath)
{
    std::vector<FoundFile> media;
    std::vector<std::string> playlists;
    for (const std::string& root : roots)
        walk(root, m_lib.ringtoneDir, media, playlists);
    std::sort(media.begin(), media.end(),
              [](const FoundFile& a, const FoundFile& b) { return a.path < b.path; });
    // Nested roots (Videos inside Music) find the same file twice.
    media.erase(
        std::unique(media.begin(), media.end(),
                    [](const FoundFile& a, const FoundFile& b) { return a.path == b.path; }),
        media.end());
    std::sort(playlists.begin(), playlists.end());
    playlists.erase(std::unique(playlists.begin(), playlists.end()), playlists.end());

    // Without a cache folder every file is read.
    if (!cachePath.empty())
        m_old.load(cachePath);
    m_fresh.entries.reserve(media.size());
    m_byPath.reserve(media.size());
    m_lib.tracks.reserve(media.size());
    for (const FoundFile& file : media)
        addFile(file);
    for (const std::string& path : playlists)
        addPlaylistFile(path);

    m_lib.playlists[m_lib.addPlaylist(ITA_COLLECTION_LIBRARY, "Music", ITA_KIND_MUSIC)].items =
        std::move(m_music);
    m_lib.playlists[m_lib.addPlaylist(ITA_COLLECTION_LIBRARY, "Movies", ITA_KIND_MOVIES)].items =
        std::move(m_movies);

    if (!cachePath.empty() && (m_changed || m_fresh.entries.size() != m_old.entries.size())) {
        if (!m_fresh.save(cachePath))
            logLine("library cache: cannot write %s", cachePath.c_str());
    }
}

} // namespace

void loadFolderLibrary(Library& lib, const std::vector<std::string>& roots,
                       const std::string& cachePath, FolderScanStats& stats)
{
    FolderScan scan(lib, stats);
    scan.run(roots, cachePath);
}

} // namespace ita
