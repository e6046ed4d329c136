#pragma once
// Reads the playlist files the folder library finds: .m3u and .m3u8 (one
// path or file URL a line, "#" lines are comments), .pls ("FileN=" keys, in
// the order of N) and .xspf (the <location> of each <track>). Relative
// entries are resolved against the playlist's own folder; network streams
// are left out. Stateless; any thread.

#include <string>
#include <vector>

namespace ita {

struct PlaylistFile
{
    std::string name;                 // the file name without extension, or the XSPF <title>
    std::vector<std::string> entries; // absolute, cleaned paths, in playlist order
};

// False with a reason when the file cannot be read or parsed.
bool readPlaylistFile(const std::string& path, PlaylistFile& playlist, std::string& why);

} // namespace ita
