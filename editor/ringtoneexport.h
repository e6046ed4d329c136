#pragma once
// CRingtoneExport: the one way a ringtone is made, for the window and the
// command line alike. It knows every kind of file a ringtone is written as
// (container, codec, bit rate, extension, the phones' length limit), turns a
// name into the file name, holds the length rule and the replace rule,
// renders the selection with its fades and volume from the editor's
// temporary WAV with the title and artist tags, and hands the result to the
// library. Asking the user anything is the caller's business. Borrows the
// editor's parts; GUI thread (the wait keeps the event loop turning).

#include "editor/spanrender.h"

#include <QString>

#include <limits>

class CWaveIo;
struct ConvertTags;
class CWaveModel;
class CWavePlayback;

// The kinds of ringtone, in the order the window offers them.
enum class RingtoneKind
{
    IphoneRingtone, // AAC in MPEG-4 ".m4r", the default
    IphoneAlert,    // the same file, for the shorter alert tones
    AndroidOgg,     // Ogg Vorbis, what Android's own ringtones are
    AndroidMp3,     // MP3, Android's second choice
    PlainAac        // AAC in MPEG-4 ".m4a", for any other player
};

// What a ringtone of one kind is written as.
struct RingtoneFormat
{
    RingtoneKind kind;
    const char* key;         // its name in the settings and on the command line
    const char* label;       // its name in the window (translated there)
    const char* container;   // the media engine's container name
    int codec;               // libavcodec's codec id
    int bitRate;             // bits per second
    const char* extension;   // with its dot
    long long lengthLimitMs; // a span longer than this gets the warning
};

class CRingtoneExport
{
public:
    CRingtoneExport(CWaveModel& model, CWavePlayback& playback, CWaveIo& io);

    CRingtoneExport(const CRingtoneExport&) = delete;
    CRingtoneExport& operator=(const CRingtoneExport&) = delete;

    // Every kind, in RingtoneKind's order.
    static const RingtoneFormat* formats(int* count);
    static const RingtoneFormat& format(RingtoneKind kind = RingtoneKind::IphoneRingtone);
    // The kind of a key ("iphone", "ogg"...) or of a file's extension; false
    // when none has it. An extension names the first kind that has it.
    static bool kindOfKey(const QString& key, RingtoneKind* kind);
    static bool kindOfFile(const QString& path, RingtoneKind* kind);
    // The file name (with extension) a ringtone of this name is written under.
    static QString fileName(const QString& name, RingtoneKind kind = RingtoneKind::IphoneRingtone);
    // The length rule: a span this long (ms) is longer than the kind's limit.
    static bool isTooLong(long long lengthMs, RingtoneKind kind = RingtoneKind::IphoneRingtone);
    // Where the library keeps a ringtone of this name and kind once it took
    // it; empty when the library has no ringtone place.
    static QString libraryPath(const QString& name,
                               RingtoneKind kind = RingtoneKind::IphoneRingtone);
    // The replace rule: the path of the library's ringtone that a ringtone of
    // this name and kind would replace, or an empty string when there is none.
    static QString replacedInLibrary(const QString& name,
                                     RingtoneKind kind = RingtoneKind::IphoneRingtone);
    // The hand-over: copies a written ringtone into the library. 0 when the
    // library took it, negative when not.
    static int addToLibrary(const QString& path);

    void setKind(RingtoneKind kind) { m_kind = kind; }
    RingtoneKind kind() const { return m_kind; }
    // The tags the next export writes (the user's name for the ringtone, the
    // song's artist); empty ones are left out.
    void setTags(const QString& title, const QString& artist);

    // Renders the selection with its effects into `path`, then hands it to
    // the library and opens the editor's temporary WAV again (the effects go
    // into the ringtone only, so the WAV is as it was decoded). -1 for an
    // empty path, otherwise the last step's result: the reopened WAV's
    // WaveHelperInit result, or a negative code.
    // A failed hand-over does not fail the export: handedOver() tells.
    int exportTo(const QString& path);
    // Whether the last export's ringtone went into the library.
    bool handedOver() const { return m_handedOver; }
    // An export that only writes the ringtone (answering 0 when it is
    // written): no hand-over and the temporary WAV left closed. The command line
    // makes one ringtone a run and adds it itself when asked.
    void setExportOnly(bool on) { m_exportOnly = on; }

    // The loudness and true peak of a written file, as decoded again.
    struct WrittenLevels
    {
        bool measured = false;
        double lufs = -std::numeric_limits<double>::infinity();
        double truePeak = -std::numeric_limits<double>::infinity();
    };
    // Measure every ringtone written (the command line prints it); without
    // this only a ringtone with gain is measured, to check its peaks.
    void setMeasure(bool on) { m_measure = on; }
    // What the last export measured of its file (measured false when it did not).
    const WrittenLevels& writtenLevels() const { return m_written; }

private:
    // Renders, encodes and, with gain, checks the written file, rendering
    // again (at most kRenderAttempts times in all) when the encoder pushed
    // its peaks over the ceiling or moved its loudness off the target.
    int render(const CSpanRender& span, LoudnessSettings settings, const QString& path,
               const ConvertTags& tags);
    int encode(const CSpanRender& span, const SpanLevels& levels, const QString& path,
               const ConvertTags& tags);
    WrittenLevels measure(const QString& path);

    CWaveModel& m_model;
    CWavePlayback& m_playback;
    CWaveIo& m_io;
    RingtoneKind m_kind = RingtoneKind::IphoneRingtone;
    QString m_title;
    QString m_artist;
    bool m_exportOnly = false;
    bool m_handedOver = false;
    bool m_measure = false;
    WrittenLevels m_written;
};

// Renders of one ringtone at most, when the encoder's peaks or loudness miss.
constexpr int kRenderAttempts = 5;
// Room kept for the difference between meters (ours and another's) on peaks.
constexpr double kMeterMarginDb = 0.2;
// A written loudness this far off its target is rendered again.
constexpr double kLoudnessRetryLu = 0.25;
