#pragma once
// The agent's in-memory library: tracks, playlists and the three
// collections, built once by a backend (XML file or folder scan) and then
// only read, except that AppendRingtone adds or refreshes ringtone tracks.
// Texts live in one string pool so that 50 000 tracks cost few allocations.
// Owned by the agent's state (agent.cpp) behind its lock.

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace ita {

// A text in the pool: offset and length, always followed by a terminator.
struct Text
{
    uint32_t off = 0;
    uint32_t len = 0;
};

class StringPool
{
public:
    StringPool();
    Text add(std::string_view s);
    std::string_view view(Text t) const { return std::string_view(m_data.data() + t.off, t.len); }
    const char* c_str(Text t) const { return m_data.data() + t.off; }
    void reserve(size_t bytes) { m_data.reserve(bytes); }

private:
    std::string m_data;
};

struct Track
{
    Text title;
    Text location; // file path
    Text artist;
    Text album;
    // Case-folded copies for the search.
    Text foldTitle;
    Text foldArtist;
    Text foldAlbum;
    int32_t video = 0;
    // Embedded pictures: -1 unknown (read the file to find out), else the count.
    int32_t artwork = -1;
};

struct Playlist
{
    Text name;
    int32_t kind = 0;
    std::vector<uint32_t> items; // indices into Library::tracks
};

struct Library
{
    int backend = 0;    // ITA_BACKEND_*
    std::string source; // the XML file, or the scanned folders
    std::string ringtoneDir;
    StringPool strings;
    std::vector<Track> tracks; // library order
    std::vector<Playlist> playlists;
    std::vector<uint32_t> collections[3]; // indices into playlists
    int ringtonePlaylist = -1;            // index into playlists

    // Adds a track; the folded copies are made here.
    uint32_t addTrack(std::string_view title, std::string_view location, std::string_view artist,
                      std::string_view album, bool video, int artwork);
    // Replaces the texts of a track (AppendRingtone of a known name).
    void updateTrack(uint32_t index, std::string_view title, std::string_view artist,
                     std::string_view album, int artwork);
    uint32_t addPlaylist(int collection, std::string_view name, int kind);
};

// Case folding for the search: ASCII fast, everything else through Unicode
// case folding.
std::string foldCase(std::string_view utf8);
// The file name without its directory and its last extension.
std::string baseTitle(std::string_view path);
// "file://localhost/a%20b" and "file:///a%20b" give "/a b"; a Windows drive
// keeps its letter ("file://localhost/C:/x" gives "C:/x"). Other texts come
// back unchanged. A path that would hold a NUL byte ("%00") gives "": the
// file APIs would end it at that byte and so open another file.
std::string pathFromFileUrl(std::string_view url);
// "%41" -> "A"; a malformed escape stays as it is.
std::string percentDecode(std::string_view s);

} // namespace ita
