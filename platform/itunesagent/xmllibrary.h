#pragma once
// Builds the library from a file in the iTunes library XML format: the
// "Tracks" dictionary (library order), the "Playlists" array and the
// "Music Folder". Built-in playlists (those with a "Distinguished Kind") go
// to collection 0 with that kind, the other playlists (smart ones and
// folders too) to collection 2 with kind 0; the master playlist and hidden
// ones are left out. A folder without items of its own lists the songs of
// the playlists inside it. Runs on the loading thread; fills a Library it
// does not own.

#include "library.h"

#include <string>
#include <string_view>

namespace ita {

// False with a reason (and a line number) when the file cannot be read, is
// not well-formed, or a value the agent uses has the wrong type; lib is then
// left in an unspecified state and must be thrown away.
bool loadXmlLibrary(const std::string& path, Library& lib, std::string& musicFolder,
                    std::string& why);
// The same over a document already in memory.
bool parseXmlLibrary(std::string_view document, Library& lib, std::string& musicFolder,
                     std::string& why);

} // namespace ita
