#pragma once
// CWaveIo: the editor's import without a widget. Every source, whatever its
// format, becomes a temporary PCM WAV in the cache directory that the
// playback's engine then opens; after an export the same temporary WAV opens
// again (the export leaves it as it was decoded). Holds the song
// being edited and the path of its temporary WAV; the progress wait is
// borrowed (an own, silent one stands in without one). GUI thread; the wait
// keeps the event loop turning while the engine converts.

#include "audio/wavehelper.h"
#include "engine/ringtonenode.h"

#include <QString>

#include <memory>

class CProgressWait;
class CTemporaryMark;
class CWavePlayback;

// Bit rate the editor's conversions into its temporary WAV ask for.
constexpr int kEditorBitRate = 128000;
// The longest sound the editor's temporary WAV (44.1 kHz 16-bit stereo)
// holds within the WAV engine's size limit: 3 h 18 min.
constexpr long long kEditorMaxSoundMs = (kWaveMaxFileSize - 44) / (44100LL * 4) * 1000;

// What keeps a source out of the editor, found by a probe before anything
// is converted.
enum class SourceProblem
{
    None,
    Unreadable, // missing, a folder, or refused when opened: trying again may help
    NotMedia,   // the media engine does not take it as media at all
    NoSound,    // media without an audio stream
    TooShort,   // less sound than the shortest ringtone
    TooLong,    // more sound than the editor's WAV holds (kEditorMaxSoundMs)
    NotAFile    // a pipe, a socket or a device: opening it may never end
};

class CWaveIo
{
public:
    CWaveIo(CWavePlayback& playback, CProgressWait* progressWait);
    ~CWaveIo();

    CWaveIo(const CWaveIo&) = delete;
    CWaveIo& operator=(const CWaveIo&) = delete;

    void setNode(const CRingToneNode& song) { node = song; }
    const CRingToneNode& getNode() const { return node; }
    CRingToneNode& getNode() { return node; }
    void setWavePath(const QString& path) { wavePath = path; }
    const QString& getWavePath() const { return wavePath; }

    // Whether the source can be edited; `audioMs`, when given, gets the
    // sound's length (0 when unknown), `audioChannels` its channels as the
    // header says.
    static SourceProblem checkSource(const QString& path, long long* audioMs = nullptr,
                                     int* audioChannels = nullptr);
    // The source as a new temporary WAV: 1, -2 conversion refused, -3 the
    // copy's progress phase failed, -4 the source has no audio. With a span
    // (startMs..endMs, not both 0) the WAV holds only that part of the
    // source, decoded from a seek near its start; its frame 0 is startMs.
    int convertToWave(const QString& src, long long startMs = 0, long long endMs = 0);
    // A file that begins with a RIFF/WAVE header.
    static bool isWaveFile(const char* path);
    // A WAV in exactly the form the engine plays and the converter writes:
    // the 44-byte header (a 16-byte PCM fmt chunk, then data) of 44.1 kHz
    // 16-bit stereo. Only such a file is copied as it stands; any other WAV
    // (recorders add LIST, fact or bext chunks, other rates, depths and
    // channel counts) goes through the converter like any other file.
    static bool isCanonicalWave(const char* path);
    // Opens the temporary WAV again as it stands (an export leaves it as it
    // was decoded): no conversion. The selection, zoom and scroll stay.
    // WaveHelperInit's result, or -3.
    int reopen();
    // The wait every conversion of the editor goes through.
    CProgressWait& progressWait() const { return *m_wait; }
    // Waits for one phase of a conversion (see CProgressWait::start).
    int waitPhase(float weight, float offset, bool wait);

    // "<cache>/wave_hhmmsszzz.tmp": a new name for every conversion, claimed
    // by creating an empty file there.
    static QString newTempWavePath();

private:
    CWavePlayback& m_playback;
    CRingToneNode node;
    QString wavePath;
    // Set when no wait was given.
    std::unique_ptr<CProgressWait> m_ownWait;
    std::unique_ptr<CTemporaryMark> m_waveMark; // the current WAV, removed if interrupted
    CProgressWait* m_wait;
};
