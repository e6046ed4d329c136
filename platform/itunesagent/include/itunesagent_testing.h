#pragma once
// Hooks of the media library agent for its tests and benchmarks: call
// counters and the handle limit. The program does not include this header.

#ifdef __cplusplus
extern "C" {
#endif

// Caps how many playlist handles may be open at once (default 65536); a
// value below 1 restores the default. Returns the previous cap.
int ItunesAgentSetHandleLimit(int nMaxOpenPlaylists);
// How often the named call (e.g. "GetSongInfo") was made since the last
// reset; with a null name, the calls of every library function of
// itunesagent.h (playlists, artwork, search and ringtones) together.
unsigned long ItunesAgentCallCount(const char* pszFunction);

#ifdef __cplusplus
}
#endif
