#pragma once
// vexa: the media engine. Timelines hold light media items (a path and a
// span); items are probed, converted (KeloRun) and played (Vexa*) by handle.
// Handles are small positive integers that index engine-owned objects; a bad
// handle gives a negative result, never a crash. Every call is thread-safe.

#include <stdbool.h>
#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

// Result codes shared by every call.
enum
{
    KELO_OK = 0,
    KELO_E_HANDLE = -1,   // no such timeline, media item or player
    KELO_E_ARGUMENT = -2, // a null or out-of-range argument
    KELO_E_OPEN = -3,     // the source could not be opened as media
    KELO_E_STREAM = -4,   // no stream that the job can use
    KELO_E_CODEC = -5,    // codec or container not available
    KELO_E_IO = -6,       // the destination could not be written
    KELO_E_DECODE = -7,   // the source is corrupt
    KELO_E_CANCELLED = -8,
    KELO_E_BUSY = -9,
    KELO_E_NOMEM = -10
};

// Audio codecs of KeloRun (libavcodec's numbering).
enum
{
    KELO_CODEC_PCM_S16LE = 65536,
    KELO_CODEC_MP3 = 86017,
    KELO_CODEC_AAC = 86018,
    KELO_CODEC_VORBIS = 86021
};

// The progress of a job that has ended (progress runs 0..10000).
enum
{
    KELO_PROGRESS_DONE = 10000
};

// Every render's sample rate (Hz): 16-bit stereo at this rate.
enum
{
    KELO_OUTPUT_SAMPLE_RATE = 44100
};

// Media source record: a span of one file. Start 0 with end 0 is the whole file.
typedef struct tagKeloMediaSrc
{
    int32_t nReserved0;
    int32_t nReserved1;
    int64_t llStart;     // ms
    int64_t llEnd;       // ms
    const char* pszPath; // local 8-bit encoding, NUL-terminated
    int32_t nReserved2;
    int32_t nReserved3;
} tagKeloMediaSrc;

// Stream kinds of the 64-byte records that KeloGetMediaInfo returns.
enum
{
    KELO_STREAM_OTHER = 0,
    KELO_STREAM_AUDIO = 1,
    KELO_STREAM_VIDEO = 2
};

// One 64-byte record per stream. Only nKind is part of the contract; the
// rest is informative.
typedef struct tagKeloStreamInfo
{
    int32_t nKind;       // KELO_STREAM_*
    int32_t nCodecId;    // libavcodec id
    int32_t nSampleRate; // audio
    int32_t nChannels;   // audio
    int32_t nWidth;      // video
    int32_t nHeight;     // video
    int64_t llDuration;  // ms, 0 when unknown
    int64_t llBitRate;   // bits per second, 0 when unknown
    uint8_t reserved[24];
} tagKeloStreamInfo;

// Progress record handed to the progress callback.
typedef struct tagKeloProgInfo
{
    int32_t nTimeline;
    int32_t nMedia;
    int32_t nProgress; // 0..KELO_PROGRESS_DONE
    int32_t nReserved;
    int32_t nStatus; // >= 0 running or done, < 0 failed (a KELO_E_* code)
    int32_t nReserved2;
} tagKeloProgInfo;

typedef bool (*KeloNotifyProc)(tagKeloProgInfo* info, void* user);

// Run parameters of KeloRun.
typedef struct tagKeloRunParam
{
    void* pUser;              // handed back to pfnNotify
    KeloNotifyProc pfnNotify; // may be null
    int32_t nReserved8;       // -1
    int32_t nReserved12;
    int32_t nReserved16;
    int32_t nReserved20;
    double dReserved24;
    double dReserved32;
    int32_t nReserved40;
    int32_t nReserved44;
    int32_t nAudioCodec;    // KELO_CODEC_*
    int32_t nAudioBitRate;  // bits per second
    int32_t nSampleRate;    // 44100
    int32_t nChannels;      // 2
    int32_t nBitsPerSample; // 16
    int32_t nReserved68;
    int32_t nReserved72;
    int32_t nReserved76;
    const char* pszFormat; // container: "wav" (PCM), "mp4" (AAC), "ogg" (Vorbis), "mp3" (MP3)
    const char* pszDest;   // destination path, local 8-bit encoding
} tagKeloRunParam;

// --- timelines and media items -----------------------------------------
// Where the logger writes its day files: <dataDir>/log/dd.MM.yyyy.log.
// Until it is set the logger writes to standard error only.
void KeloSetDataDirectory(const char* dataDir);

int CreateTimelineEx(const char* owner, int flags);
int DestroyTimeline(int timeline);

// Adds a media item; the file is probed once (bounded) and closed again.
// Returns the item's identifier (>= 0) or a negative code.
int KeloAddMedia2(int timeline, const tagKeloMediaSrc* src, int reserved1, int reserved2);
int KeloRemoveMedia(int timeline, int media);
// The title and artist that renders of the item write into their files'
// tags (UTF-8; a null or empty title is left out, a null or empty artist
// takes the source's own). 0, or a negative code.
int KeloSetMediaTags(int timeline, int media, const char* title, const char* artist);
// The item's file's own artist tag (UTF-8) into `buffer` (cut to `size`,
// always terminated); returns the bytes the whole tag needs with its NUL
// (1 when there is none), or a negative code.
int KeloGetMediaArtist(int timeline, int media, char* buffer, int size);

// Points *ppInfo at the engine's array of tagKeloStreamInfo records (valid
// until the item is removed) and returns their number; negative on failure.
int KeloGetMediaInfo(int timeline, int media, void** ppInfo);

// Renders one item on a worker thread and returns at once (0) or fails
// (negative). Progress reaches pfnNotify as 0..10000 with status >= 0; the
// last call carries 10000 or the failure (status < 0).
int KeloRun(int timeline, const int* media, int count, const tagKeloRunParam* param);

// Hears decoded sound: `frames` interleaved 16-bit frames, valid during the
// call only. False stops the decoding.
typedef bool (*KeloPcmProc)(const int16_t* samples, int32_t frames, void* user);

// Decodes the sound of the file at `path` (local 8-bit encoding), the span
// startMs..endMs (0..0 the whole file), as 16-bit PCM of `sampleRate` Hz
// (1000..192000) and `channels` (1 or 2), handing it to `proc` a block at a
// time on the caller's thread; nothing is written anywhere. KELO_OK,
// KELO_E_CANCELLED when `proc` stopped it, or a negative code (as KeloRun's).
int KeloDecodePcm(const char* path, int64_t startMs, int64_t endMs, int32_t sampleRate,
                  int32_t channels, KeloPcmProc proc, void* user);

// --- video player -----------------------------------------------------------
// A player shows the pictures of a video item (sound plays elsewhere) on the
// surface set with VexaSetEnvironment: a thread of its own decodes, scales
// and hands over each picture when it is due, and reports events.

// What a player reports, with the position in ms of its clock. Nothing is
// reported while it is paused, nor for a seek that went well.
enum
{
    KELO_EVENT_PROGRESS = 1,     // playing: as it starts, then at least every 100 ms
    KELO_EVENT_END = 3,          // the last picture was shown; the player pauses there
    KELO_EVENT_OPEN_FAILED = 5,  // the file or its video cannot be opened
    KELO_EVENT_DECODE_FAILED = 7 // the video could not be decoded
};

typedef struct tagKeloEvent
{
    int32_t nReserved; // 0
    int32_t nKind;     // KELO_EVENT_*
    int32_t nPosition; // ms
} tagKeloEvent;

// Called on the player's thread; the record is valid during the call only.
typedef int (*KeloEventProc)(tagKeloEvent* event, void* user);

// Where players show their pictures. Both calls come on a player's thread.
typedef struct tagVexaSurface tagVexaSurface;
struct tagVexaSurface
{
    // The size in pixels that pictures should fit (0 x 0: the player's own).
    void (*pfnTargetSize)(tagVexaSurface* surface, int32_t* width, int32_t* height);
    // A picture that is due: width x height pixels of 32 bits (0xffRRGGBB in
    // host order), `stride` bytes a line, valid during the call only.
    void (*pfnShowFrame)(tagVexaSurface* surface, const uint8_t* pixels, int32_t width,
                         int32_t height, int32_t stride, int64_t position);
};

// Player creation record.
typedef struct tagVexaCreateParam
{
    int32_t nTimeline;
    void* pMediaObject; // from KeloGetMediaObject
    int32_t nReserved;  // 0
    int32_t nWidth;     // the picture's size when the surface gives none
    int32_t nHeight;
    KeloEventProc pfnEvent; // may be null
    void* pUser;            // handed back to pfnEvent
} tagVexaCreateParam;

// The media object of an item, for VexaCreateEx. KELO_OK or a negative code.
int KeloGetMediaObject(int timeline, int media, void** ppObject);
// The surface every player shows its pictures on (null: none). After it
// returns no player shows a picture on the surface it replaced.
int VexaSetEnvironment(tagVexaSurface* surface);
// Takes `surface` away if it is the one set; a surface calls it before it
// goes. KELO_OK either way.
int VexaRemoveEnvironment(tagVexaSurface* surface);
// A paused player of the item's video at its start; *pPlayer gets its
// handle. A file that cannot be opened still gets a player, which reports
// KELO_EVENT_OPEN_FAILED. Negative for a bad record or item.
int VexaCreateEx(const tagVexaCreateParam* param, int reserved0, int reserved1, int* pPlayer);
int VexaPlay(int player);
int VexaPause(int player);
// Shows the last picture at or before the position; playing goes on from it.
int VexaSeekToPos(int player, int64_t position);
// Stops the player's thread and frees it; no event comes after it returns.
int VexaDestroy(int player);

// --- diagnostics ----------------------------------------------------------
// printf-style; each line gets a time stamp and goes to standard error and
// to today's log file. FFmpeg's own messages (errors and worse) come through
// here too, marked "ffmpeg:". Safe from any thread.
void KeloLogMessage(int level, const char* format, ...)
#if defined(__GNUC__)
    __attribute__((format(printf, 2, 3)))
#endif
    ;
// Whether the lines also go to standard error (they do until this says 0);
// the day file gets them either way. A quiet command line turns it off.
void KeloSetLogEcho(int on);

// --- temporary files -------------------------------------------------------
// Files to remove should the process be interrupted: a conversion's
// half-written file (the engine marks its own), a caller's staging file, a
// folder that holds only marked files.
// Up to 64 at a time; a mark beyond them, or of a path of PATH_MAX bytes or
// more, is refused (-1) and the file then stays to a later clean-up.
int KeloMarkTemporary(const char* path);
void KeloUnmarkTemporary(const char* path);
// Removes every marked file, then every marked folder. Async-signal-safe
// (unlink(2) and rmdir(2) only): a SIGINT or SIGTERM handler calls it
// before the process ends.
void KeloRemoveTemporaries(void);

// --- problem reports ---------------------------------------------------------
// A line for the summary of every later problem report ("Qt", "6.4.2").
void KeloAddReportDetail(const char* name, const char* value);
// The program's settings file, copied into reports without its passwords.
void KeloSetReportSettingsFile(const char* path);
// Makes a fresh directory under <data>/reports holding what a problem report
// needs: a summary of the system and the program, the newest log files, and
// the settings without passwords. Returns its path, valid until the next
// call; "" when it could not be made.
const char* KeloBugReport(const char* bundleId, const char* appName, int reserved1, int reserved2);

#ifdef __cplusplus
}
#endif
