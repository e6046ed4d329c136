#include "ringtones.h"

#include "agentlog.h"
#include "itunesagent.h"
#include "mediafile.h"

#include <QDir>
#include <QFile>
#include <QSaveFile>

#include <algorithm>
#include <filesystem>
#include <unordered_map>
#include <unordered_set>

namespace fs = std::filesystem;

namespace ita {

namespace {

std::string joinPath(const std::string& dir, const std::string& name)
{
    if (!dir.empty() && dir.back() == '/')
        return dir + name;
    return dir + "/" + name;
}

bool isDirectory(const std::string& path)
{
    std::error_code ec;
    return !path.empty() && fs::is_directory(fs::u8path(path), ec);
}

Playlist& ringtones(Library& lib)
{
    if (lib.ringtonePlaylist < 0)
        lib.ringtonePlaylist = static_cast<int>(
            lib.addPlaylist(ITA_COLLECTION_LIBRARY, "Ringtones", ITA_KIND_RINGTONES));
    return lib.playlists[static_cast<size_t>(lib.ringtonePlaylist)];
}

// Copies through a temporary file renamed over the target at the end, so a
// failed copy never leaves half a ringtone in the place.
bool copyFile(const std::string& source, const std::string& target)
{
    QFile in(QString::fromUtf8(source.c_str()));
    if (!in.open(QIODevice::ReadOnly))
        return false;
    QSaveFile out(QString::fromUtf8(target.c_str()));
    if (!out.open(QIODevice::WriteOnly))
        return false;
    char buffer[1 << 16];
    for (;;) {
        const qint64 n = in.read(buffer, sizeof buffer);
        if (n < 0) {
            out.cancelWriting();
            return false;
        }
        if (n == 0)
            break;
        if (out.write(buffer, n) != n) {
            out.cancelWriting();
            return false;
        }
    }
    return out.commit();
}

} // namespace

std::string ringtonePlace(const std::string& xmlMusicFolder, const std::string& musicDir)
{
    if (!xmlMusicFolder.empty()) {
        for (const char* name :
             {"Automatically Add to iTunes", "Automatically Add to iTunes.localized"}) {
            const std::string candidate = joinPath(xmlMusicFolder, name);
            if (isDirectory(candidate))
                return candidate;
        }
    }
    return joinPath(musicDir, "Ringtones");
}

void attachRingtones(Library& lib)
{
    Playlist& list = ringtones(lib);
    std::vector<std::string> names;
    std::error_code ec;
    for (fs::directory_iterator it(fs::u8path(lib.ringtoneDir), ec), end; !ec && it != end;
         it.increment(ec)) {
        const std::string name = it->path().filename().u8string();
        std::error_code typeError;
        if (name.empty() || name[0] == '.' || !isRingtoneName(name) ||
            !it->is_regular_file(typeError))
            continue;
        names.push_back(name);
    }
    std::sort(names.begin(), names.end());
    if (names.empty())
        return;

    // Tracks the library already has in the place (an XML library may list
    // them), so that they are not added twice.
    const std::string prefix = joinPath(lib.ringtoneDir, "");
    std::unordered_map<std::string, uint32_t> known;
    for (uint32_t i = 0; i < lib.tracks.size(); ++i) {
        const std::string_view location = lib.strings.view(lib.tracks[i].location);
        if (location.size() > prefix.size() && location.compare(0, prefix.size(), prefix) == 0)
            known.emplace(std::string(location), i);
    }
    std::unordered_set<uint32_t> listed(list.items.begin(), list.items.end());
    for (const std::string& name : names) {
        const std::string path = joinPath(lib.ringtoneDir, name);
        const auto it = known.find(path);
        if (it != known.end()) {
            if (listed.insert(it->second).second)
                lib.playlists[static_cast<size_t>(lib.ringtonePlaylist)].items.push_back(
                    it->second);
            continue;
        }
        const MediaTags tags = readMediaTags(path);
        if (!tags.ok) {
            logLine("skipping unreadable file: %s (%s)", path.c_str(), tags.why.c_str());
            continue;
        }
        const uint32_t index =
            lib.addTrack(tags.title, path, tags.artist, tags.album, tags.video, tags.artwork);
        lib.playlists[static_cast<size_t>(lib.ringtonePlaylist)].items.push_back(index);
    }
}

int appendRingtone(Library& lib, const std::string& source)
{
    std::error_code ec;
    const fs::path src = fs::u8path(source);
    if (!fs::is_regular_file(src, ec)) {
        logLine("append ringtone: no such file: %s", source.c_str());
        return ITA_E_NOTFOUND;
    }
    // The file name, without the leading dots that would hide it.
    std::string name = src.filename().u8string();
    name.erase(0, name.find_first_not_of('.'));
    if (name.empty() || !isRingtoneName(name) || name.size() <= 4) {
        logLine("append ringtone: not a .m4r, .m4a, .ogg or .mp3 file: %s", source.c_str());
        return ITA_E_FORMAT;
    }
    if (!isRingtoneFile(source)) {
        logLine("append ringtone: not a ringtone of its kind: %s", source.c_str());
        return ITA_E_FORMAT;
    }
    if (!QDir().mkpath(QString::fromUtf8(lib.ringtoneDir.c_str()))) {
        logLine("append ringtone: cannot make %s", lib.ringtoneDir.c_str());
        return ITA_E_IO;
    }
    const std::string target = joinPath(lib.ringtoneDir, name);
    const bool same =
        fs::exists(fs::u8path(target), ec) && fs::equivalent(src, fs::u8path(target), ec);
    if (!same && !copyFile(source, target)) {
        logLine("append ringtone: cannot write %s", target.c_str());
        return ITA_E_IO;
    }

    MediaTags tags = readMediaTags(target);
    if (!tags.ok)
        tags.title = baseTitle(target);
    Playlist& list = ringtones(lib);
    for (uint32_t index : list.items) {
        if (lib.strings.view(lib.tracks[index].location) == target) {
            // Same name: the new file replaces the old one in place.
            lib.updateTrack(index, tags.title, tags.artist, tags.album, tags.artwork);
            logLine("ringtone replaced: %s", target.c_str());
            return ITA_OK;
        }
    }
    const uint32_t index =
        lib.addTrack(tags.title, target, tags.artist, tags.album, false, tags.artwork);
    lib.playlists[static_cast<size_t>(lib.ringtonePlaylist)].items.push_back(index);
    logLine("ringtone added: %s", target.c_str());
    return ITA_OK;
}

} // namespace ita
