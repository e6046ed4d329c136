// What the folder library reads of a media file: the MPEG-4 box walk that
// tells video from audio, and TagLib's tags and pictures, over any bytes.
// The first byte picks the file's extension; the rest is the file.

#include "fuzzfile.h"
#include "mediafile.h"

#include <cstddef>
#include <cstdint>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    static fuzz::FuzzFile file;
    static const char* const names[] = {"clip.mp4", "clip.m4v", "song.m4a",  "tone.m4r",
                                        "clip.mov", "song.mp3", "song.flac", "song.ogg"};
    if (size < 1)
        return 0;
    const std::string& path = file.write(names[data[0] % 8], data + 1, size - 1);
    const ita::MediaTags tags = ita::readMediaTags(path);
    if (tags.ok && tags.artwork > 0)
        (void)ita::readArtwork(path);
    (void)ita::mp4HasVideoTrack(path);
    return 0;
}
