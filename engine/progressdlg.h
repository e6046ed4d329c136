#pragma once
// CProgressDlg: the busy pane shown while the media engine converts — an
// animation with the percentage laid over it. The waiting itself is
// CProgressWait's; the pane only shows the percentage each turn of a wait
// tells it. Owned by the main window (Qt parent); the movie is owned and
// deleted here. setProgress may run on any thread; everything else on the
// GUI thread.

#include "engine/progresswait.h"

#include <QWidget>

class QLabel;
class QMovie;

class CProgressDlg : public QWidget, public CProgressWait
{
    Q_OBJECT

public:
    explicit CProgressDlg(QWidget* parent = nullptr);
    ~CProgressDlg() override;

private:
    void showPercent(int percent);

    QLabel* m_animationLabel;
    QMovie* m_movie;
    QLabel* m_percentLabel;
};
