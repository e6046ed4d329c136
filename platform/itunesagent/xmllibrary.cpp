#include "xmllibrary.h"

#include "agentlog.h"
#include "itunesagent.h"
#include "plistreader.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <unordered_map>
#include <unordered_set>

namespace ita {

namespace {

using Type = PlistReader::Type;
using Value = PlistReader::Value;

bool readWholeFile(const std::string& path, std::string& out, std::string& why)
{
    std::unique_ptr<FILE, int (*)(FILE*)> f(std::fopen(path.c_str(), "rb"), &std::fclose);
    if (!f) {
        why = "cannot be opened";
        return false;
    }
    out.clear();
    char buffer[1 << 16];
    size_t n = 0;
    if (std::fseek(f.get(), 0, SEEK_END) == 0) {
        const long size = std::ftell(f.get());
        if (size > 0)
            out.reserve(static_cast<size_t>(size));
        std::fseek(f.get(), 0, SEEK_SET);
    }
    while ((n = std::fread(buffer, 1, sizeof buffer, f.get())) > 0)
        out.append(buffer, n);
    if (std::ferror(f.get())) {
        why = "cannot be read";
        return false;
    }
    return true;
}

struct RawPlaylist
{
    std::string name;
    bool hasKind = false;
    int64_t kind = 0;
    bool master = false;
    bool visible = true;
    bool folder = false;
    std::string id;
    std::string parent;
    std::vector<int64_t> items;
};

class XmlLibraryReader
{
public:
    XmlLibraryReader(PlistReader& reader, Library& lib) : r(reader), m_lib(lib) {}

    bool read(std::string& musicFolder);

private:
    bool want(const Value& v, Type type, std::string_view key);
    bool readBool(const Value& v, std::string_view key, bool& out);
    bool readTracks();
    bool readTrack(std::string_view key);
    bool readPlaylists();
    bool readPlaylist(RawPlaylist& p);
    bool readItems(RawPlaylist& p);
    void build();
    void collectFolder(size_t index, std::vector<uint32_t>& out, std::unordered_set<uint32_t>& seen,
                       std::unordered_set<size_t>& visiting);

    PlistReader& r;
    Library& m_lib;
    std::unordered_map<int64_t, uint32_t> m_ids;
    std::vector<RawPlaylist> m_raw;
    std::unordered_map<std::string, std::vector<size_t>> m_children;
    bool m_haveTracks = false;
    size_t m_refusedLocations = 0;

    // Reused for every track, so their buffers are allocated once.
    std::string m_name, m_artist, m_album, m_location;
};

bool XmlLibraryReader::want(const Value& v, Type type, std::string_view key)
{
    if (v.type == type)
        return true;
    return r.fail("\"" + std::string(key) + "\" is <" + PlistReader::typeName(v.type) +
                  ">, expected <" + PlistReader::typeName(type) + ">");
}

bool XmlLibraryReader::readBool(const Value& v, std::string_view key, bool& out)
{
    if (v.type != Type::True && v.type != Type::False)
        return r.fail("\"" + std::string(key) + "\" is <" + PlistReader::typeName(v.type) +
                      ">, expected <true/> or <false/>");
    out = v.type == Type::True;
    return true;
}

bool XmlLibraryReader::read(std::string& musicFolder)
{
    if (!r.begin())
        return false;
    Value root;
    if (!r.next(root))
        return r.fail("no value in <plist>");
    if (!want(root, Type::Dict, "plist"))
        return false;
    std::string_view key;
    Value v;
    while (!root.closed && r.nextKey(key)) {
        if (key == "Tracks") {
            if (!r.next(v) || !want(v, Type::Dict, "Tracks"))
                return false;
            m_haveTracks = true;
            if (!v.closed && !readTracks())
                return false;
        } else if (key == "Playlists") {
            if (!r.next(v) || !want(v, Type::Array, "Playlists"))
                return false;
            if (!v.closed && !readPlaylists())
                return false;
        } else if (key == "Music Folder") {
            if (!r.next(v) || !want(v, Type::String, "Music Folder"))
                return false;
            musicFolder = pathFromFileUrl(v.text);
        } else {
            if (!r.next(v) || !r.skip(v))
                return false;
        }
    }
    if (!r.ok() || !r.end())
        return false;
    if (!m_haveTracks)
        return r.fail("no \"Tracks\" dictionary");
    build();
    return true;
}

bool XmlLibraryReader::readTracks()
{
    std::string_view key;
    while (r.nextKey(key)) {
        const std::string trackKey(key);
        if (!readTrack(trackKey))
            return false;
    }
    return r.ok();
}

bool XmlLibraryReader::readTrack(std::string_view trackKey)
{
    Value v;
    if (!r.next(v))
        return false;
    if (v.type != Type::Dict)
        return r.fail("track " + std::string(trackKey) + " is <" + PlistReader::typeName(v.type) +
                      ">, expected <dict>");
    m_name.clear();
    m_artist.clear();
    m_album.clear();
    m_location.clear();
    bool haveId = false;
    int64_t id = 0;
    bool video = false;
    int artwork = -1;
    std::string_view key;
    while (!v.closed && r.nextKey(key)) {
        Value f;
        if (!r.next(f))
            return false;
        bool flag = false;
        if (key == "Track ID") {
            if (!want(f, Type::Integer, key))
                return false;
            id = f.integer;
            haveId = true;
        } else if (key == "Name") {
            if (!want(f, Type::String, key))
                return false;
            m_name.assign(f.text);
        } else if (key == "Artist") {
            if (!want(f, Type::String, key))
                return false;
            m_artist.assign(f.text);
        } else if (key == "Album") {
            if (!want(f, Type::String, key))
                return false;
            m_album.assign(f.text);
        } else if (key == "Location") {
            if (!want(f, Type::String, key))
                return false;
            m_location = pathFromFileUrl(f.text);
            // A location that gives no path (one with a NUL byte) leaves the
            // track without a file, as if it named none.
            if (m_location.empty() && !f.text.empty())
                ++m_refusedLocations;
        } else if (key == "Has Video" || key == "Movie" || key == "TV Show" ||
                   key == "Music Video") {
            if (!readBool(f, key, flag))
                return false;
            video = video || flag;
        } else if (key == "Artwork Count") {
            if (!want(f, Type::Integer, key))
                return false;
            artwork = f.integer < 0 ? 0 : static_cast<int>(std::min<int64_t>(f.integer, 1000));
        } else if (!r.skip(f)) {
            return false;
        }
    }
    if (!r.ok())
        return false;
    if (!haveId) {
        // The dictionary key is the track's number too.
        char* end = nullptr;
        const std::string k(trackKey);
        id = std::strtoll(k.c_str(), &end, 10);
        if (k.empty() || *end != '\0')
            return r.fail("track \"" + k + "\" has no \"Track ID\"");
    }
    const std::string title = m_name.empty() ? baseTitle(m_location) : m_name;
    const uint32_t index = m_lib.addTrack(title, m_location, m_artist, m_album, video, artwork);
    m_ids.emplace(id, index);
    return true;
}

bool XmlLibraryReader::readPlaylists()
{
    Value v;
    while (r.next(v)) {
        if (v.type != Type::Dict)
            return r.fail(std::string("a playlist is <") + PlistReader::typeName(v.type) +
                          ">, expected <dict>");
        RawPlaylist p;
        if (!v.closed && !readPlaylist(p))
            return false;
        m_raw.push_back(std::move(p));
    }
    return r.ok();
}

bool XmlLibraryReader::readPlaylist(RawPlaylist& p)
{
    std::string_view key;
    while (r.nextKey(key)) {
        Value f;
        if (!r.next(f))
            return false;
        if (key == "Name") {
            if (!want(f, Type::String, key))
                return false;
            p.name.assign(f.text);
        } else if (key == "Distinguished Kind") {
            if (!want(f, Type::Integer, key))
                return false;
            p.hasKind = true;
            p.kind = f.integer;
        } else if (key == "Master") {
            if (!readBool(f, key, p.master))
                return false;
        } else if (key == "Visible") {
            if (!readBool(f, key, p.visible))
                return false;
        } else if (key == "Folder") {
            if (!readBool(f, key, p.folder))
                return false;
        } else if (key == "Playlist Persistent ID") {
            if (!want(f, Type::String, key))
                return false;
            p.id.assign(f.text);
        } else if (key == "Parent Persistent ID") {
            if (!want(f, Type::String, key))
                return false;
            p.parent.assign(f.text);
        } else if (key == "Playlist Items") {
            if (!want(f, Type::Array, key))
                return false;
            if (!f.closed && !readItems(p))
                return false;
        } else if (!r.skip(f)) {
            return false;
        }
    }
    return r.ok();
}

bool XmlLibraryReader::readItems(RawPlaylist& p)
{
    Value item;
    while (r.next(item)) {
        if (item.type != Type::Dict)
            return r.fail(std::string("a playlist item is <") + PlistReader::typeName(item.type) +
                          ">, expected <dict>");
        std::string_view key;
        while (!item.closed && r.nextKey(key)) {
            Value f;
            if (!r.next(f))
                return false;
            if (key == "Track ID") {
                if (!want(f, Type::Integer, key))
                    return false;
                p.items.push_back(f.integer);
            } else if (!r.skip(f)) {
                return false;
            }
        }
        if (!r.ok())
            return false;
    }
    return r.ok();
}

void XmlLibraryReader::collectFolder(size_t index, std::vector<uint32_t>& out,
                                     std::unordered_set<uint32_t>& seen,
                                     std::unordered_set<size_t>& visiting)
{
    if (!visiting.insert(index).second)
        return; // a folder that contains itself
    const RawPlaylist& p = m_raw[index];
    for (int64_t id : p.items) {
        const auto it = m_ids.find(id);
        if (it != m_ids.end() && seen.insert(it->second).second)
            out.push_back(it->second);
    }
    if (!p.id.empty()) {
        const auto children = m_children.find(p.id);
        if (children != m_children.end())
            for (size_t child : children->second)
                collectFolder(child, out, seen, visiting);
    }
}

void XmlLibraryReader::build()
{
    for (size_t i = 0; i < m_raw.size(); ++i)
        if (!m_raw[i].parent.empty())
            m_children[m_raw[i].parent].push_back(i);

    size_t unknown = 0;
    for (size_t i = 0; i < m_raw.size(); ++i) {
        const RawPlaylist& p = m_raw[i];
        // A hidden ringtones playlist stays hidden, but is still the one that
        // AppendRingtone fills, so that no second one appears.
        const bool hiddenRingtones =
            !p.master && !p.visible && p.hasKind && p.kind == ITA_KIND_RINGTONES;
        if ((p.master || !p.visible) && !hiddenRingtones)
            continue;
        const int collection = hiddenRingtones ? -1
                               : p.hasKind     ? ITA_COLLECTION_LIBRARY
                                               : ITA_COLLECTION_PLAYLISTS;
        const int kind = p.hasKind ? static_cast<int>(p.kind) : ITA_KIND_USER;
        const uint32_t index = m_lib.addPlaylist(collection, p.name, kind);
        std::vector<uint32_t>& items = m_lib.playlists[index].items;
        if (p.folder && p.items.empty()) {
            std::unordered_set<uint32_t> seen;
            std::unordered_set<size_t> visiting;
            collectFolder(i, items, seen, visiting);
        } else {
            items.reserve(p.items.size());
            for (int64_t id : p.items) {
                const auto it = m_ids.find(id);
                if (it != m_ids.end())
                    items.push_back(it->second);
                else
                    ++unknown;
            }
        }
        if (kind == ITA_KIND_RINGTONES && m_lib.ringtonePlaylist < 0)
            m_lib.ringtonePlaylist = static_cast<int>(index);
    }
    if (unknown)
        logLine("library file: %zu playlist items name no known track; left out", unknown);
    if (m_refusedLocations)
        logLine("library file: %zu track locations name no usable path; those tracks have no "
                "file",
                m_refusedLocations);
}

} // namespace

bool loadXmlLibrary(const std::string& path, Library& lib, std::string& musicFolder,
                    std::string& why)
{
    std::string document;
    if (!readWholeFile(path, document, why))
        return false;
    return parseXmlLibrary(document, lib, musicFolder, why);
}

bool parseXmlLibrary(std::string_view document, Library& lib, std::string& musicFolder,
                     std::string& why)
{
    lib.strings.reserve(document.size() / 8);
    PlistReader reader(document);
    XmlLibraryReader builder(reader, lib);
    if (!builder.read(musicFolder)) {
        why = reader.error().empty() ? std::string("unreadable") : reader.error();
        return false;
    }
    return true;
}

} // namespace ita
