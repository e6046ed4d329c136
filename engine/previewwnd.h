#pragma once
// CPreviewWnd: the pane beside the editor that shows the album artwork of a
// song, or plays the picture of a video in step with the sound the editor
// plays (the sound is the clock: the picture is moved back to it whenever
// the two drift more than 100 ms apart). A play/pause button floats in its
// middle; what a click means is the main window's business (do_play).
// Owns its children through Qt parents; the video player lives in the
// CVideoPlayerWraper singleton. GUI thread.

#include "engine/ringtonenode.h"

#include <QWidget>

class CVideoNotify;
class CVideoWnd;
class QLabel;
class QStackedLayout;
class QToolButton;

// How far the picture may drift from the sound before it is moved back.
constexpr long long kMaxVideoDriftMs = 100;
// Where a freshly opened video rests: its picture at one second.
constexpr long long kVideoFirstFrameMs = 1000;

class CPreviewWnd : public QWidget
{
    Q_OBJECT

public:
    explicit CPreviewWnd(QWidget* parent = nullptr);
    ~CPreviewWnd() override;

    // Whether a picture at llTime is too far from the sound at llAudio (their
    // low 32 bits compared), so that the picture must be moved.
    static bool isOutOfStep(long long llTime, long long llAudio);

    void setPause(bool paused);
    bool isPaused() const { return m_paused; }
    const CRingToneNode& node() const { return m_node; }
    long long audioPosition() const { return m_playPos; }

signals:
    void do_play();

public slots:
    void waveOpened(CRingToneNode Ringtong);
    void play(long long llMsec, bool bPreview);
    void pause(bool bPause);
    void stop();
    void seek(long long llMsec);
    void playPosChanged(long long llMsec);
    void viedoNotify(long long llTime, int nStat);
    void viewChanged(int index);
    void playBtnClicked();

protected:
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    // Centres the play button over the pane and raises it.
    void placeButton();
    // The button follows the mouse only while playing a record.
    bool buttonFollowsMouse() const;

    CVideoWnd* m_videoWnd;
    QLabel* m_audioLabel;
    CVideoNotify* m_notify;
    QStackedLayout* m_stack;
    QToolButton* m_playBtn;
    CRingToneNode m_node;
    long long m_playPos = 0;
    bool m_paused = true;
};
