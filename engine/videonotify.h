#pragma once
// CVideoNotify: turns the video player's events into a Qt signal. The
// player calls it on its own thread; receivers on the GUI thread get the
// signal queued there. Owned by the preview pane (Qt parent).

#include <QObject>

class CVideoNotify : public QObject
{
    Q_OBJECT

public:
    explicit CVideoNotify(QObject* parent = nullptr) : QObject(parent) {}

    // Emits viedoNotify with both values; 0.
    int callbackVexaEvent(long long llTime, int nStat);

signals:
    void viedoNotify(long long llTime, int nStat);
};
