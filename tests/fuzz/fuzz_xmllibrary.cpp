// The library XML reader over any bytes: a property list that is not
// well-formed, has values of the wrong type, or names tracks that do not
// exist must end in a reason, never in a crash.

#include "library.h"
#include "xmllibrary.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    ita::Library lib;
    std::string musicFolder;
    std::string why;
    const std::string_view document(reinterpret_cast<const char*>(data), size);
    if (ita::parseXmlLibrary(document, lib, musicFolder, why)) {
        // Whatever was read must be consistent enough to serve.
        for (const ita::Playlist& p : lib.playlists)
            for (uint32_t item : p.items)
                if (item >= lib.tracks.size())
                    __builtin_trap();
        for (const ita::Track& t : lib.tracks)
            (void)lib.strings.view(t.title);
    }
    return 0;
}
