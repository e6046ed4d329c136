// CWaveWnd import and export: turning a song into the temporary WAV, the
// ringtone export and drag and drop.
// TODO(import/export): not written yet; every operation answers with its
// failure code and drops are refused.

#include "editor/wavewnd.h"

#include <QDragEnterEvent>
#include <QDropEvent>

int CWaveWnd::openFile(const CRingToneNode& song)
{
    node = song;
    return convertToWave(node.strPath);
}

int CWaveWnd::convertToWave(QString /*src*/)
{
    return -2; // conversion refused
}

bool CWaveWnd::isWaveFile(const char* /*path*/)
{
    return false;
}

int CWaveWnd::reload()
{
    return -2; // conversion refused
}

int CWaveWnd::convertToM4r(QString m4rPath)
{
    if (m4rPath.isEmpty())
        return -1;
    return -2;
}

void CWaveWnd::dragEnterEvent(QDragEnterEvent* event)
{
    event->ignore();
}

void CWaveWnd::dropEvent(QDropEvent* event)
{
    event->ignore();
}
