#pragma once
// CProgressDlg: the busy pane shown while the media engine converts — an
// animation with the percentage laid over it. It is also the IProgress that
// the engine's progress callback writes into, and start() is the wait loop
// in which the GUI thread keeps processing events until a conversion ends.
// Owned by the main window (Qt parent); the movie is owned and deleted here.
// setProgress may run on any thread; everything else on the GUI thread.

#include "engine/iprogress.h"

#include <QWidget>

#include <atomic>

class QLabel;
class QMovie;

class CProgressDlg : public QWidget, public IProgress
{
    Q_OBJECT

public:
    explicit CProgressDlg(QWidget* parent = nullptr);
    ~CProgressDlg() override;

    void setProgress(int progress, int status) override;
    void finish() override;
    // 1 when the phase is over, -2 when the engine reported a failure.
    int start(float weight, float offset, bool wait);

private:
    // Plain numbers written by one thread and read by another; relaxed
    // atomics give exactly "the old or the new value" and nothing more.
    std::atomic<float> progress;
    std::atomic<int> status;
    bool flag;
    QLabel* m_animationLabel;
    QMovie* m_movie;
    QLabel* m_percentLabel;
};
