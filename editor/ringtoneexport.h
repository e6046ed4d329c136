#pragma once
// CRingtoneExport: the one way a ringtone is made, for the window and the
// command line alike. It knows the kind of file written (container, codec,
// bit rate, extension), turns a name into the file name, holds the length
// rule and the replace rule, renders the selection with its fades and volume
// from the editor's temporary WAV, and hands the result to the library.
// Asking the user anything is the caller's business. Borrows the editor's
// parts; GUI thread (the wait keeps the event loop turning).

#include <QString>

class CWaveIo;
class CWaveModel;
class CWavePlayback;

// What a ringtone is written as.
struct RingtoneFormat
{
    const char* container; // the media engine's container name
    int codec;             // libavcodec's codec id
    int bitRate;           // bits per second
    const char* extension; // with its dot
};

class CRingtoneExport
{
public:
    CRingtoneExport(CWaveModel& model, CWavePlayback& playback, CWaveIo& io);

    CRingtoneExport(const CRingtoneExport&) = delete;
    CRingtoneExport& operator=(const CRingtoneExport&) = delete;

    // The kind of file every ringtone is written as: AAC in an MPEG-4 ".m4r".
    static const RingtoneFormat& format();
    // The file name (with extension) a ringtone of this name is written under.
    static QString fileName(const QString& name);
    // The length rule: a span this long (ms) is one phones refuse.
    static bool isTooLong(long long lengthMs);
    // The replace rule: the path of the library's ringtone that a ringtone of
    // this name would replace, or an empty string when there is none.
    static QString replacedInLibrary(const QString& name);
    // The hand-over: copies a written ringtone into the library. 0 when the
    // library took it, negative when not.
    static int addToLibrary(const QString& path);

    // Renders the selection with its effects into `path`, then hands it to
    // the library and rebuilds the editor's temporary WAV (the render wrote
    // the effects into it). -1 for an empty path, otherwise the last step's
    // result: the rebuilt WAV's WaveHelperInit result, or a negative code.
    int exportTo(const QString& path);
    // An export that only writes the ringtone (answering 0 when it is
    // written): no hand-over and no rebuilt temporary WAV. The command line
    // makes one ringtone a run and adds it itself when asked.
    void setExportOnly(bool on) { m_exportOnly = on; }

private:
    CWaveModel& m_model;
    CWavePlayback& m_playback;
    CWaveIo& m_io;
    bool m_exportOnly = false;
};
