#pragma once
// CWavePlayback: the editor's playback without a widget. Owns the WAV
// engine's record of the loaded wave and the 50 ms play timer, keeps the
// volume and fade settings, and runs the play / preview / pause / stop
// state machine over the engine, reading and moving the times of the
// editor's CWaveModel (the play position, the selection, the scroll while
// playing). Its signals are the editor's. GUI thread; the engine's SDL
// callback reads the record from the audio thread under SDL's audio lock.

#include "audio/wavehelper.h"
#include "editor/spanrender.h"

#include <QObject>
#include <QString>

#include <memory>

class CWaveModel;
class QTimer;

// How often the play position is polled while playing, in ms.
constexpr int kPlayTimerInterval = 50;

class CWavePlayback : public QObject
{
    Q_OBJECT

public:
    explicit CWavePlayback(CWaveModel& model, QObject* parent = nullptr);
    ~CWavePlayback() override;

    CWavePlayback(const CWavePlayback&) = delete;
    CWavePlayback& operator=(const CWavePlayback&) = delete;

    // --- the engine record --------------------------------------------------
    // Opens a WAV in the engine (WaveHelperInit's result); the model learns
    // its frame count.
    int open(const QString& wavePath);
    // Closes the engine, which writes the effects then set into the file.
    void release();
    // release() and onStop().
    void close();
    // release() without writing anything into the file, and onPause():
    // playback ends while an export renders the selection; the file stays
    // as it was decoded.
    void closeForExport();
    // A wave is open and has a peak table.
    bool isOpen() const { return wave.peakTable != nullptr; }
    tagWaveInfo& record() { return wave; }
    const tagWaveInfo& record() const { return wave; }
    int engineState();
    long long enginePos();

    // --- volume and fades ----------------------------------------------------
    void setFadeInLength(int seconds) { fadeInLength = seconds; }
    void setFadeOutLength(int seconds) { fadeOutLength = seconds; }
    int getFadeInLength() const { return fadeInLength; }
    int getFadeOutLength() const { return fadeOutLength; }
    void enableFadeIn(bool on) { fadeInOn = on; }
    void enableFadeOut(bool on) { fadeOutOn = on; }
    bool isFadeInOn() const { return fadeInOn; }
    bool isFadeOutOn() const { return fadeOutOn; }
    // Puts the enabled fades on the engine, in whole seconds, or takes them off.
    void applyEffect(bool on);
    // The record's layout with the fades the export puts on it (spanLayout),
    // whether or not they are on the engine now.
    tagWaveInfo exportLayout() const;
    // 0..256, clamped; no signal.
    void setVolume(int volume);
    // Steps of 10 that end on 256 from 246 and on 0 from 10; volumeChange.
    void volumeAdd();
    void volumeReduce();
    int volume() const { return wave.volume; }
    // The loudness the selection is brought to (LUFS), NaN for none: the
    // volume alone sets the gain then.
    void setLoudnessTarget(double lufs) { m_target = lufs; }
    double loudnessTarget() const { return m_target; }
    // Volume and target, as the export and the levels use them.
    LoudnessSettings loudnessSettings() const;
    // The selection's gain and limiter factors, which preview plays as the
    // export writes them; nullptr for none (the volume alone, as in play).
    void setPreviewLevels(std::shared_ptr<const SpanLevels> levels);
    const SpanLevels* previewLevels() const { return m_levels.get(); }

    // --- playing -------------------------------------------------------------
    bool isPreview() const { return bPreview; }
    // A new wave starts in normal play.
    void endPreview() { bPreview = false; }
    bool isTimerActive() const;
    // Plays the song from the play position (from its start after a preview).
    void play();
    // Plays the selection with its fades, to its end.
    void preview();
    void pause();
    // Stops and closes the engine.
    void stop();
    // Starts or toggles the engine with the current effects.
    void do_play();
    // One step of the play timer: follows the engine, stops at the end of the
    // selection (preview) or rewinds at the song's end, pages the view.
    void tick();
    // The play cursor was dropped on a new place: a playing engine goes on
    // from there.
    void cursorMoved();
    // Loop preview: the preview plays the selection again from its begin,
    // fades and gain included, until paused. Takes effect at once while
    // previewing.
    void setLooping(bool on);
    bool isLooping() const { return m_looping; }
    // The selection changed: a looping preview loops the new one.
    void selectionChanged();
    // Moves the play position (clamped to the song); a playing engine goes
    // on from there. playPosChange.
    void seek(long long ms);

signals:
    void onPlay(long long pos, bool bPreview);
    void onPause(bool bPreview);
    void onStop();
    void playPosChange(long long pos);
    void volumeChange(int volume);
    // Playback paged the view forward to this scroll position.
    void scrolled(int scrollX);
    // Something the view shows changed.
    void changed();

private:
    CWaveModel& m_model;
    tagWaveInfo wave;
    QTimer* playTimer;
    bool bPreview;
    bool fadeOutOn;
    bool fadeInOn;
    int fadeInLength;
    int fadeOutLength;
    double m_target = normalizeTarget(Normalize::Off);
    // Kept alive while the engine may read it.
    std::shared_ptr<const SpanLevels> m_levels;
    tagWaveGain m_gain{};
    // Sets the enabled fades on a record, or takes them off.
    void putFades(tagWaveInfo* record, bool on) const;
    // Puts the preview gain on the engine while previewing, else takes it off.
    void installGain();
    // Puts the selection's loop on the engine while a looping preview
    // plays, else takes it off.
    void installLoop();
    bool m_looping = false;
};
