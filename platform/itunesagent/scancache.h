#pragma once
// The folder library's scan cache: what was read from each media file,
// keyed by path and valid while the file's size and modification time stay
// the same. Kept in one binary file written atomically; a cache that cannot
// be read is simply ignored. Single-threaded; owned by the folder scan.

#include <cstdint>
#include <string>
#include <unordered_map>

namespace ita {

struct CacheEntry
{
    int64_t mtime = 0; // nanoseconds
    int64_t size = 0;
    bool ok = false; // false: a file that could not be read
    std::string why;
    std::string title;
    std::string artist;
    std::string album;
    bool video = false;
    int32_t artwork = 0;
};

class ScanCache
{
public:
    bool load(const std::string& path);
    bool save(const std::string& path) const;

    std::unordered_map<std::string, CacheEntry> entries;
};

} // namespace ita
