// The media engine's probe over any bytes: adding a file as a media item
// and reading its stream records. The first byte picks the extension (some
// formats are told by it); the rest is the file.

#include "fuzzfile.h"

#include <vexa.h>

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>

namespace {
int timeline()
{
    static const int t = CreateTimelineEx("fuzz", -1);
    return t;
}
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    static fuzz::FuzzFile file;
    static const char* const names[] = {"media.mp3",  "media.mp4", "media.wav", "media.ogg",
                                        "media.flac", "media.mkv", "media.aac", "media.bin"};
    if (size < 1)
        return 0;
    const std::string& path = file.write(names[data[0] % 8], data + 1, size - 1);
    tagKeloMediaSrc src;
    std::memset(&src, 0, sizeof src);
    src.pszPath = path.c_str();
    const int media = KeloAddMedia2(timeline(), &src, 0, 0);
    if (media < 0)
        return 0;
    void* info = nullptr;
    const int streams = KeloGetMediaInfo(timeline(), media, &info);
    if (streams > 0) {
        const auto* records = static_cast<const tagKeloStreamInfo*>(info);
        for (int i = 0; i < streams; ++i)
            if (records[i].nKind < KELO_STREAM_OTHER || records[i].nKind > KELO_STREAM_VIDEO)
                __builtin_trap();
    }
    KeloRemoveMedia(timeline(), media);
    return 0;
}
