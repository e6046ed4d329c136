#pragma once
// Builds the embedded default library from folders: every media file under
// the roots (hidden files and the ringtone place left out) read with TagLib,
// unless the scan cache already knows it unchanged; the playlist files found
// there; the built-in playlists "Music" (kind 4, the audio tracks) and
// "Movies" (kind 2, the video tracks) in collection 0 and one playlist per
// playlist file in collection 2. Files that cannot be read are skipped with
// a log line. Runs on the loading thread; fills a Library it does not own.

#include "library.h"

#include <string>
#include <vector>

namespace ita {

struct FolderScanStats
{
    size_t files = 0;     // media files found
    size_t read = 0;      // read from the file (not in the cache, or changed)
    size_t cached = 0;    // taken from the cache
    size_t skipped = 0;   // unreadable
    size_t playlists = 0; // playlist files listed
};

void loadFolderLibrary(Library& lib, const std::vector<std::string>& roots,
                       const std::string& cachePath, FolderScanStats& stats);

} // namespace ita
