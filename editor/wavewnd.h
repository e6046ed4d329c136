#pragma once
// CWaveWnd: the waveform editor. Shows the temporary WAV of the current song,
// keeps the selection that becomes the ringtone, the zoom and scroll, the
// volume and fade settings, and drives playback through the WAV engine.
// Ownership: the widget owns its scroll bar and play timer (Qt children), the
// point buffer (unique_ptr) and the engine record `wave` (by value; the engine
// is closed when the widget goes). The progress dialog is borrowed. Everything
// runs on the GUI thread; only the engine's SDL callback reads `wave` from the
// audio thread. The code is split: state and slots in wavewnd.cpp, drawing in
// wavewnd_paint.cpp, mouse in wavewnd_mouse.cpp, import/export in wavewnd_io.cpp.

#include "audio/wavehelper.h"
#include "library/ringtonenode.h"

#include <QPainterPath>
#include <QPoint>
#include <QString>
#include <QTime>
#include <QWidget>

#include <memory>

class CProgressDlg;
class IProgress;
class QDragEnterEvent;
class QDropEvent;
class QImage;
class QMouseEvent;
class QPaintEvent;
class QPainter;
class QResizeEvent;
class QScrollBar;
class QShowEvent;
class QTimer;
struct CWaveWndTestAccess;

class CWaveWnd : public QWidget
{
    Q_OBJECT

public:
    // Two points per pixel column: the widest wave ever drawn is 2048 columns.
    static constexpr int kPointCount = 4096;
    static constexpr int kMaxColumns = kPointCount / 2;

    explicit CWaveWnd(QWidget* parent = nullptr, CProgressDlg* progressDlg = nullptr);
    ~CWaveWnd() override;

    CWaveWnd(const CWaveWnd&) = delete;
    CWaveWnd& operator=(const CWaveWnd&) = delete;

    // The move() slot below hides QWidget's geometry moves; keep them usable.
    using QWidget::move;

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
    // Loads `wavePath` into the engine and selects the first 40 seconds.
    int initWave();

    // --- drawing ---
    QPainterPath roundRectPath(const QRect& rect);
    void drawWave(QPainter* painter, int width, int height);
    void highLightSelectArea(QImage* image);
    void drawTimeScale(QPainter* painter, int width, int height);
    void drawPlay(QPainter* painter, int width, int height);
    // Reduces frames (or 512-frame peak pairs) to a min/max pair per pixel
    // column: writes 2 x columns points into `pts` and returns their number.
    template <typename T>
    static int getMonoWave(QPoint* pts, int startX, float fpp, int centreY, unsigned int columns,
                           int amplitudeHeight, void* samples, int channels);

    // --- mouse ---
    int getAction(int x, int y);

    // --- import and export ---
    int openFile(const CRingToneNode& song);
    int convertToWave(QString src);
    bool isWaveFile(const char* path);
    int reload();

signals:
    void openWave(QString path);
    void waveOpened(CRingToneNode song);
    void selectChange(QTime begin, QTime end);
    void volumeChange(int volume);
    void zoomChange(float factor);
    void playPosChange(long long pos);
    void onPlay(long long pos, bool bPreview);
    void onPause(bool bPreview);
    void onStop();

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
    void dropEvent(QDropEvent* event) override;
    // The no-argument timerEvent() slot would hide QObject's virtual one.
    using QWidget::timerEvent;

private:
    friend struct CWaveWndTestAccess;

    // Screen column of a time and time of a screen column at the current zoom.
    int timeToX(long long t) const;
    long long xToTime(int x) const;
    // The drawing height: the scroll bar lies over the bottom edge.
    int drawHeight() const;
    void emitSelectChange();
    // Where a conversion reports progress and how the editor waits for one
    // phase of it: the progress pane, or a silent wait when there is none.
    IProgress* progressSink() const;
    int waitPhase(float weight, float offset, bool wait);

    QScrollBar* scrollBar;
    int reservedConst; // 11; set by the constructor, read by nothing
    QTimer* playTimer;
    long long playPos;
    int totalWidth;
    int scrollX;
    int mouseMode; // 0 none, 1 select, 2 move, 3 begin edge, 4 end edge, 5 play cursor
    long long endTime;
    long long beginTime;
    int dragX;
    float msPerPixel;
    float maxZoomValue;
    float fitMsPerPixel;
    float msPerFrame;
    float framesPerPixel;
    float maxTime;
    std::unique_ptr<QPoint[]> points;
    tagWaveInfo wave;
    CRingToneNode node;
    bool bPreview;
    QString wavePath;
    CProgressDlg* progressDlg;
    bool fadeOutOn;
    bool fadeInOn;
    int fadeInLength;
    int fadeOutLength;
    float zoomFactor;
};
