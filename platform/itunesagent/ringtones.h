#pragma once
// The ringtone place of a library and its playlist (kind 55): the ringtone files
// of the place, listed at load, and AppendRingtone, which copies a ringtone
// there and shows it in the playlist at once. Called with the agent's lock
// held.

#include "library.h"

#include <string>

namespace ita {

// For an XML library, its "Automatically Add to iTunes" folder under the
// media folder when that exists; otherwise <Music>/Ringtones.
std::string ringtonePlace(const std::string& xmlMusicFolder, const std::string& musicDir);
// Lists the ringtone files (.m4r, .m4a, .ogg, .mp3) of lib.ringtoneDir into the ringtones playlist,
// making that playlist ("Ringtones", collection 0) when the library has none.
void attachRingtones(Library& lib);
// ITA_OK or a negative ITA_E_* code; the source is only read.
int appendRingtone(Library& lib, const std::string& source);

} // namespace ita
