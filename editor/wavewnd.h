#pragma once
// CWaveWnd: the waveform editor widget. It paints the wave, the ruler, the
// selection and the play cursor, translates mouse gestures and drops, and
// sends the editor's signals; the editor's logic lives in widget-free parts
// it forwards to: CWaveModel (times, selection, zoom, scroll and every
// gesture's rule), CWavePlayback (the engine record and the play state
// machine), CWaveIo (import of the song), CRingtoneExport (the ringtone),
// CSelectionLevels (the selection's loudness), CSpanSuggest (the best-part
// proposals) and, for drawing, CWaveColumns (the wave's layout and its min/max per
// pixel column).
// Ownership: the widget owns its scroll bar (Qt child), the stateful
// parts and the point buffer that CWaveColumns fills (unique_ptr). The
// progress wait is borrowed. Everything runs on the GUI thread; only the
// engine's SDL callback reads the record from the audio thread. The code is
// split: state and slots in wavewnd.cpp, drawing in wavewnd_paint.cpp, mouse
// in wavewnd_mouse.cpp, import/export and drops in wavewnd_io.cpp.

#include "engine/ringtonenode.h"

#include <QPainterPath>
#include <QPoint>
#include <QString>
#include <QTime>
#include <QWidget>

#include <memory>

class CProgressWait;
class CRingtoneExport;
class CSelectionLevels;
class CSpanSuggest;
class CWaveIo;
class CWaveModel;
class CWavePlayback;
class QDragEnterEvent;
class QDropEvent;
class QFocusEvent;
class QImage;
class QMouseEvent;
class QPaintEvent;
class QPainter;
class QResizeEvent;
class QScrollBar;
class QShowEvent;

class CWaveWnd : public QWidget
{
    Q_OBJECT

public:
    explicit CWaveWnd(QWidget* parent = nullptr, CProgressWait* progressWait = nullptr);
    ~CWaveWnd() override;

    CWaveWnd(const CWaveWnd&) = delete;
    CWaveWnd& operator=(const CWaveWnd&) = delete;

    // The move() slot below hides QWidget's geometry moves; keep them usable.
    using QWidget::move;

    // --- the editor's parts ---
    // Changes made through them directly show at the next repaint and send
    // no signal; the slots below are the way that does both.
    CWaveModel& model() { return *m_model; }
    const CWaveModel& model() const { return *m_model; }
    CWavePlayback& playback() { return *m_playback; }
    CWaveIo& io() { return *m_io; }
    CRingtoneExport& ringtoneExport() { return *m_export; }
    CSelectionLevels& selectionLevels() { return *m_levels; }
    // The best-part proposals of the open song, worked out from its opening
    // on; its `ready` says when they are in.
    CSpanSuggest& spanSuggest() { return *m_suggest; }

    // --- loudness ---
    // The loudness the selection is brought to (LUFS), NaN for none (the
    // volume alone). The selection's figures follow with loudnessChange.
    void setLoudnessTarget(double lufs);
    QScrollBar* scrollBarWidget() const { return scrollBar; }

    // --- selection, times and zoom ---
    void setBeginTime(long long t);
    void setEndTime(long long t);
    void setBeginTime(QTime t);
    void setEndTime(QTime t);
    QTime getBeginTime();
    QTime getEndTime();
    QTime getMaxTime();
    int getLength();
    int getPageLength();
    float getMinZoom();
    float getMaxZoom();
    void enableFadeIn(bool on);
    void enableFadeOut(bool on);
    void applyEffect(bool on);
    void closeWave();
    void updateScrollbar();
    void initScrollBar();
    // Loads the temporary WAV into the engine and selects the first 40
    // seconds; the best-part proposals are then worked out on the side.
    int initWave();

    // --- drawing ---
    QPainterPath roundRectPath(const QRect& rect);
    // The wave in a drawing width x height (the area above the scroll bar),
    // laid out and reduced by CWaveColumns.
    void drawWave(QPainter* painter, int width, int height);
    void highLightSelectArea(QImage* image);
    void drawTimeScale(QPainter* painter, int width, int height);
    // The fades over the selection's panel, as the engine applies them.
    void drawFades(QPainter* painter, const QRect& panel);
    void drawPlay(QPainter* painter, int width, int height);

    // --- mouse ---
    int getAction(int x, int y);

    // --- import and export ---
    int openFile(const CRingToneNode& song);
    int convertToWave(QString src);
    bool isWaveFile(const char* path);

signals:
    void openWave(QString path);
    void waveOpened(CRingToneNode song);
    void selectChange(QTime begin, QTime end);
    void volumeChange(int volume);
    void zoomChange(float factor);
    void playPosChange(long long pos);
    // The selection's loudness (LUFS) and true peak (dBTP) as it will be
    // written; NaN for both while they are worked out, -infinity for silence.
    void loudnessChange(double lufs, double truePeak);
    void onPlay(long long pos, bool bPreview);
    void onPause(bool bPreview);
    void onStop();
    // A mouse gesture on the wave ended (a drag, however long, is one).
    void gestureFinished();

public slots:
    void moveRequest(int value);
    void play();
    void preview();
    void pause();
    void stop();
    void fadeIn(int n);
    void fadeOut(int n);
    void zoomIn();
    void zoomOut();
    void zoom(float factor);
    void select();
    void move();
    void adjust();
    void setVolume(int volume);
    void volumeAdd();
    void volumeReduce();
    void setBeginTime();
    void setEndTime();
    int convertToM4r(QString m4rPath);

    // --- keyboard -----------------------------------------------------------
    // Plays or pauses the song; previews the selection or pauses it.
    void togglePlay();
    void togglePreview();
    // Pauses whatever plays.
    void pausePlaying();
    // Loop preview on or off.
    void setLooping(bool on);
    // Moves the play position by ms (clamped to the song), or to the
    // selection's begin or end.
    void seekBy(long long ms);
    void toBegin();
    void toEnd();
    // Moves one edge of the selection by ms, the other staying.
    void nudgeBegin(long long ms);
    void nudgeEnd(long long ms);
    // A selection restored as it was (undo and redo): no rules applied.
    void setSelection(long long begin, long long end);

private slots:
    void timerEvent();
    void do_play();

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void changeEvent(QEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    // The no-argument timerEvent() slot would hide QObject's virtual one.
    using QWidget::timerEvent;

private:
    // The drawing height: the scroll bar lies over the bottom edge.
    int drawHeight() const;
    void emitSelectChange();
    // Asks for the selection's loudness anew (the export's settings changed).
    void refreshLevels();
    void levelsMeasured();
    // Moves the scroll bar by a gesture's step (which scrolls the view).
    void scrollBy(int step);
    // The accessible name: the selection in words; the description: the keys.
    void describeSelection();
    void describeKeys();
    // Moves the play position (clamped to the song) and scrolls it into view.
    void seekTo(long long ms);
    // Scrolls so that a time is in view.
    void showTime(long long ms);

    QScrollBar* scrollBar;
    int reservedConst; // 11; set by the constructor, read by nothing
    std::unique_ptr<CWaveModel> m_model;
    std::unique_ptr<CWavePlayback> m_playback;
    std::unique_ptr<CWaveIo> m_io;
    std::unique_ptr<CRingtoneExport> m_export;
    std::unique_ptr<CSelectionLevels> m_levels;
    std::unique_ptr<CSpanSuggest> m_suggest;
    std::unique_ptr<QPoint[]> points;
    // The press may still turn out a click (no move before the release).
    bool m_clickPending = false;
};
