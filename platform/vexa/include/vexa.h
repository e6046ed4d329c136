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
    KELO_CODEC_AAC = 86018
};

// The progress of a job that has ended (progress runs 0..10000).
enum
{
    KELO_PROGRESS_DONE = 10000
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
    const char* pszFormat; // container: "wav" or "mp4"
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

// Points *ppInfo at the engine's array of tagKeloStreamInfo records (valid
// until the item is removed) and returns their number; negative on failure.
int KeloGetMediaInfo(int timeline, int media, void** ppInfo);

// Renders one item on a worker thread and returns at once (0) or fails
// (negative). Progress reaches pfnNotify as 0..10000 with status >= 0; the
// last call carries 10000 or the failure (status < 0).
int KeloRun(int timeline, const int* media, int count, const tagKeloRunParam* param);

// --- diagnostics ----------------------------------------------------------
// printf-style; each line gets a time stamp and goes to standard error and
// to today's log file. Safe from any thread.
void KeloLogMessage(int level, const char* format, ...)
#if defined(__GNUC__)
    __attribute__((format(printf, 2, 3)))
#endif
    ;

#ifdef __cplusplus
}
#endif
