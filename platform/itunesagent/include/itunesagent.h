#pragma once
// itunesagent: the media library agent. It serves one library, chosen at the
// first call that needs it (or by ItunesAgentLoad), from the places the
// application gives it (ItunesAgentSetFolders, ItunesAgentSetLibraryFile):
//   1. a library file in the iTunes library XML format: the one set, or
//      else one found under the Music folder ("iTunes/iTunes Music
//      Library.xml", "iTunes/iTunes Library.xml");
//   2. otherwise, or when that file cannot be read, the Music and Videos
//      folders scanned for tagged media files and playlist files (.m3u,
//      .m3u8, .pls, .xspf). The scan is cached in <cache>/library-cache.bin
//      and refreshed incrementally at the next load.
// The agent reads no environment of its own: without folders it serves an
// empty library.
//
// Collections: 0 holds the built-in playlists, whose kind is their
// distinguished number (4 music, 2 movies, 3 TV shows, 10 podcasts,
// 19 purchased, 22 DJ, 26 genius, 55 ringtones); 1 is empty; 2 holds the
// user's playlists (smart ones and folders included), kind 0. The master
// playlist and hidden playlists are not listed. Every library has a
// ringtones playlist: the XML library's own (kind 55; when that one is
// hidden it stays hidden) or else one made by the agent at the end of
// collection 0.
//
// Texts are UTF-8. Variable-length texts use two passes: call once with null
// buffer pointers (the agent fills the sizes, terminator included; 0 for an
// empty text), then again with buffers of those sizes. A buffer that is too
// small receives a terminated prefix.
//
// Handles are opaque tokens, never pointers to memory: a handle that was
// never opened, or was closed, gives a negative result (or 0 where a handle
// is returned), never a crash. Every call answers from memory in constant
// time per row, except the first one (which loads the library), artwork
// (read from the media file on demand) and AppendRingtone.
//
// All calls are thread-safe (one lock); SearchSong calls its callback on the
// calling thread, and the callback may call the agent again. A load runs
// without the lock: ItunesAgentLoad may run on a worker thread, and a call
// that needs the library meanwhile waits for that load to end.

#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

// Result codes.
enum
{
    ITA_OK = 0,
    ITA_E_HANDLE = -1,   // no such playlist or artwork handle (never opened, or closed)
    ITA_E_ARGUMENT = -2, // a null pointer, or a collection or position out of range
    ITA_E_NOTFOUND = -3, // AppendRingtone: the source is missing or not a regular file
    ITA_E_FORMAT = -4,   // AppendRingtone: not a .m4r/.m4a (MPEG-4), .ogg (Vorbis) or .mp3 ringtone
    ITA_E_IO = -5        // AppendRingtone: the ringtone place could not be created or written
};

// Collections.
enum
{
    ITA_COLLECTION_LIBRARY = 0,
    ITA_COLLECTION_OTHER = 1,
    ITA_COLLECTION_PLAYLISTS = 2
};

// Playlist kinds (GetPlaylistKind).
enum
{
    ITA_KIND_USER = 0,
    ITA_KIND_MOVIES = 2,
    ITA_KIND_TV_SHOWS = 3,
    ITA_KIND_MUSIC = 4,
    ITA_KIND_PODCASTS = 10,
    ITA_KIND_PURCHASED = 19,
    ITA_KIND_DJ = 22,
    ITA_KIND_GENIUS = 26,
    ITA_KIND_RINGTONES = 55
};

// Backends (ItunesAgentBackend).
enum
{
    ITA_BACKEND_NONE = 0,
    ITA_BACKEND_XML = 1,
    ITA_BACKEND_FOLDER = 2
};

// One song: filled by GetSongInfo, read as a query by SearchSong.
typedef struct tagSongInfo
{
    char* pszTitle;
    int32_t nTitleSize;
    char* pszLocation; // the file path
    int32_t nLocationSize;
    int32_t nReserved1;
    char* pszArtist;
    int32_t nArtistSize;
    char* pszAlbum;
    int32_t nAlbumSize;
    int32_t nReserved2[5];
    int32_t bVideo; // non-zero when the song carries a video stream
} tagSongInfo;

// One embedded picture: filled by GetArtworkInfo.
typedef struct tagArtworkInfo
{
    int32_t nReserved[3];
    void* pData;       // image bytes as stored in the file (JPEG, PNG, ...)
    int32_t nDataSize; // bytes
} tagArtworkInfo;

// Called once per hit; return non-zero to go on, 0 to stop the search. The
// playlist handle is valid during the call only.
typedef int (*SearchSongProc)(const void* hPlaylist, int nSong, void* pUser);

// Playlists ---------------------------------------------------------------

// The number of playlists of a collection; ITA_E_ARGUMENT for an unknown one.
int GetPlaylistCount(int nCollection);
// With pBuffer null and nSize 0: the bytes needed for the name, terminator
// included. Otherwise copies the name and returns the bytes written,
// terminator included. ITA_E_ARGUMENT for a bad collection or position.
int GetPlaylistName(int nCollection, int nPosition, char* pBuffer, int nSize);
// A handle for the playlist at a position of a collection; 0 when there is
// none or when the handle limit (ItunesAgentSetHandleLimit) is reached.
void* OpenPlaylist(int nCollection, int nPosition);
// ITA_OK, or ITA_E_HANDLE (also for 0).
int ClosePlaylist(const void* hPlaylist);
// The number of songs, or ITA_E_HANDLE.
int GetSongCount(const void* hPlaylist);
// The playlist's kind (see ITA_KIND_*), or ITA_E_HANDLE.
int GetPlaylistKind(const void* hPlaylist);
// Fills one song of a playlist in two passes (see above). The video flag is
// set on both passes. ITA_E_HANDLE or ITA_E_ARGUMENT leave the record as it
// was.
int GetSongInfo(const void* hPlaylist, int nSong, tagSongInfo* pInfo);
// The titles of songs nFirst .. nFirst + nCount - 1 in one call, one after
// another, each as GetSongInfo gives it (up to its first NUL) followed by a
// terminator. With pBuffer null: the bytes needed. Otherwise copies the
// titles that fit whole into nSize bytes and returns the bytes written.
// ITA_E_HANDLE; ITA_E_ARGUMENT for songs out of range or more than 2 GB.
int GetSongTitles(const void* hPlaylist, int nFirst, int nCount, char* pBuffer, int nSize);

// Artwork -----------------------------------------------------------------

// A handle for the embedded pictures of a song; 0 when the song is known to
// have none or the arguments are bad. The pictures are read from the file
// on first use.
void* OpenArtwork(const void* hPlaylist, int nSong);
// The number of pictures, or ITA_E_HANDLE.
int GetArtworkCount(const void* hArtwork);
// Two passes: with pData null the size is filled; then the bytes are copied
// (at most nDataSize). ITA_E_HANDLE or ITA_E_ARGUMENT leave the record alone.
int GetArtworkInfo(const void* hArtwork, int nImage, tagArtworkInfo* pInfo);
// ITA_OK, or ITA_E_HANDLE.
int CloseArtwork(const void* hArtwork);

// Search and ringtones ----------------------------------------------------

// Reports, in library order and once each, every track of the whole library
// of which one of the query's non-empty fields (title, artist, album; each
// read up to its size or its terminator) is contained in the same field,
// compared without regard to case. A query without any non-empty field finds
// nothing. Returns the number of hits reported, or ITA_E_ARGUMENT.
int SearchSong(const tagSongInfo* pQuery, SearchSongProc pfnCallback, void* pUser);
// Copies a ringtone (.m4r, .m4a, .ogg or .mp3) into the library's ringtone place (the XML library's
// "Automatically Add to iTunes" folder under its media folder when that
// exists, else <Music>/Ringtones/) and shows it at once in the ringtones
// playlist (kind 55). A ringtone of the same file name is replaced, not
// duplicated. The source is only read. ITA_OK or a negative code.
int AppendRingtone(const char* pszPath);

// Agent control -----------------------------------------------------------

// Receives every log line (one line, no newline). Without a logger the lines
// go to standard error. pfnLog 0 restores that.
typedef void (*ItunesAgentLogProc)(const char* pszLine, void* pUser);
void ItunesAgentSetLogger(ItunesAgentLogProc pfnLog, void* pUser);
// Where the library comes from: the user's Music folder (scanned, and where
// iTunes keeps its library file and the agent its "Ringtones" folder), the
// Videos folder (scanned), and the folder for the scan cache. Null or empty
// leaves a place out. Used by the next load.
void ItunesAgentSetFolders(const char* pszMusic, const char* pszVideos, const char* pszCacheDir);
// An iTunes library XML file to serve instead of looking under the Music
// folder; null or empty looks there again. Used by the next load.
void ItunesAgentSetLibraryFile(const char* pszPath);
// Chooses and loads the library now (or waits for a load under way);
// returns the backend (ITA_BACKEND_*).
int ItunesAgentLoad(void);
// Forgets the library and closes every handle; the next call chooses and
// loads the library again from the places then set. Resets the call
// counters and the handle limit; a load under way is thrown away.
void ItunesAgentReset(void);
// The backend in use, ITA_BACKEND_NONE before the first load (and during it).
int ItunesAgentBackend(void);
// At most 64 artwork handles stay open: opening another closes the oldest.
// Two passes like GetPlaylistName: the ringtone place of the loaded library.
int ItunesAgentGetRingtoneDir(char* pBuffer, int nSize);

#ifdef __cplusplus
}
#endif
