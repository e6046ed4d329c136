#pragma once
// CWaveIo: the editor's import and export without a widget. Every source,
// whatever its format, becomes a temporary PCM WAV in the cache directory
// that the playback's engine then opens; the export closes the engine (which
// writes the volume and fades into that WAV), renders the selected span into
// an AAC ".m4r" file, hands it to the library and rebuilds the temporary
// WAV. Holds the song being edited and the path of its temporary WAV; the
// progress pane is borrowed (a silent wait stands in without one). GUI
// thread; the pane keeps the event loop turning while the engine converts.

#include "library/ringtonenode.h"

#include <QString>

#include <functional>
#include <utility>

class CProgressDlg;
class CWaveModel;
class CWavePlayback;
class IProgress;

// Bit rate of every conversion the editor asks for.
constexpr int kEditorBitRate = 128000;

class CWaveIo
{
public:
    CWaveIo(CWaveModel& model, CWavePlayback& playback, CProgressDlg* progressDlg);

    CWaveIo(const CWaveIo&) = delete;
    CWaveIo& operator=(const CWaveIo&) = delete;

    void setNode(const CRingToneNode& song) { node = song; }
    const CRingToneNode& getNode() const { return node; }
    CRingToneNode& getNode() { return node; }
    void setWavePath(const QString& path) { wavePath = path; }
    const QString& getWavePath() const { return wavePath; }

    // The source as a new temporary WAV: 1, -2 conversion refused, -3 the
    // copy's progress phase failed, -4 the source has no audio.
    int convertToWave(const QString& src);
    // A file that begins with a RIFF/WAVE header.
    static bool isWaveFile(const char* path);
    // Rebuilds the temporary WAV of the song under a new name and opens it;
    // the selection, zoom and scroll stay. WaveHelperInit's result, -2, -3.
    int reload();
    // The selection with its effects into an AAC ringtone at m4rPath, added
    // to the library: -1 for an empty path, otherwise the last step's result.
    int convertToM4r(const QString& m4rPath);
    // An export that only writes the ringtone (answering 0 when it is
    // written): no hand-over to the library and no rebuilt temporary WAV. The
    // command line makes one ringtone a run and adds it itself when asked.
    void setExportOnly(bool on) { exportOnly = on; }
    // Without a progress pane, every turn of a conversion's wait reports the
    // percentage the pane would show (a console's progress bar).
    void setProgressReport(std::function<void(int percent)> report)
    {
        progressReport = std::move(report);
    }

    // "<cache>/wave_hhmmsszzz.tmp": a new name for every conversion, claimed
    // by creating an empty file there.
    static QString newTempWavePath();

private:
    // Where a conversion reports progress and how one phase of it is waited
    // for: the progress pane, or a silent wait when there is none.
    IProgress* progressSink() const;
    int waitPhase(float weight, float offset, bool wait);

    CWaveModel& m_model;
    CWavePlayback& m_playback;
    CRingToneNode node;
    QString wavePath;
    CProgressDlg* progressDlg;
    bool exportOnly = false;
    std::function<void(int)> progressReport;
};
