#pragma once
// What the agent reads from one media file: title, artist, album, whether it
// carries video, and its embedded pictures (ID3v2 APIC, MP4 covr, FLAC and
// Xiph pictures, ASF WM/Picture). TagLib does the reading; MPEG-4 video is
// told apart from MPEG-4 audio by the handler of its tracks. Stateless;
// any thread.

#include <string>
#include <string_view>
#include <vector>

namespace ita {

enum class FileKind
{
    Other,
    Media,
    Playlist
};

// By extension, case-insensitively.
FileKind fileKind(std::string_view path);
bool isRingtoneName(std::string_view path); // ".m4r", ".m4a", ".ogg", ".mp3"

struct MediaTags
{
    bool ok = false;
    std::string why;   // when not ok
    std::string title; // the file name without extension when untagged
    std::string artist;
    std::string album;
    bool video = false;
    int artwork = 0; // number of embedded pictures
};

MediaTags readMediaTags(const std::string& path);
// The embedded pictures, in the order the file stores them.
std::vector<std::string> readArtwork(const std::string& path);
// True when an MPEG-4 file's tracks include a real video track (not a
// one-picture cover track).
bool mp4HasVideoTrack(const std::string& path);
// True when the file is a valid MPEG-4 file (a ringtone).
bool isMp4File(const std::string& path);
// A ringtone of its name's kind: an MPEG-4 file (.m4r, .m4a), Ogg Vorbis
// (.ogg) or MP3 (.mp3) with sound in it.
bool isRingtoneFile(const std::string& path);

} // namespace ita
