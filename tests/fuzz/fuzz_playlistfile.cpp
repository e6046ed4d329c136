// The playlist file readers (.m3u, .m3u8, .pls, .xspf) over any bytes. The
// first byte picks the kind; the rest is the file.

#include "fuzzfile.h"
#include "playlistfile.h"

#include <cstddef>
#include <cstdint>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    static fuzz::FuzzFile file;
    static const char* const names[] = {"list.m3u", "list.m3u8", "list.pls", "list.xspf"};
    if (size < 1)
        return 0;
    const std::string& path = file.write(names[data[0] % 4], data + 1, size - 1);
    ita::PlaylistFile playlist;
    std::string why;
    if (ita::readPlaylistFile(path, playlist, why)) {
        for (const std::string& entry : playlist.entries)
            if (entry.empty())
                __builtin_trap(); // entries are absolute paths
    }
    return 0;
}
