// CWaveWnd import and export: forwards to CWaveIo, and answers drops. The
// editor does not open a dropped file itself: it tells the main window,
// which makes a song record of it and calls openFile.

#include "editor/ringtoneexport.h"
#include "editor/waveio.h"
#include "editor/waveplayback.h"
#include "editor/wavewnd.h"
#include "engine/timelinehelper.h"

#include <QDragEnterEvent>
#include <QDropEvent>
#include <QMimeData>
#include <QUrl>

int CWaveWnd::openFile(const CRingToneNode& song)
{
    m_io->setNode(song);
    const int rc = m_io->convertToWave(song.strPath);
    if (rc < 0)
        return rc;
    return initWave();
}

int CWaveWnd::convertToWave(QString src)
{
    return m_io->convertToWave(src);
}

bool CWaveWnd::isWaveFile(const char* path)
{
    return CWaveIo::isWaveFile(path);
}

int CWaveWnd::convertToM4r(QString m4rPath)
{
    // The export leaves the temporary WAV as it was: proposals still being
    // worked out go on reading it.
    const int rc = m_export->exportTo(m4rPath);
    // The engine opened the file again.
    refreshLevels();
    update();
    return rc;
}

void CWaveWnd::dragEnterEvent(QDragEnterEvent* event)
{
    if (event->mimeData()->hasFormat("text/uri-list"))
        event->acceptProposedAction();
    else
        event->ignore();
}

void CWaveWnd::dropEvent(QDropEvent* event)
{
    const QList<QUrl> urls = event->mimeData()->urls();
    if (urls.isEmpty())
        return;
    // Only the first of several dropped files is opened.
    const QString path = urls.first().toLocalFile();
    if (path.isEmpty())
        return;
    if (CTimeLineHelper::haveAudio(path.toLocal8Bit().constData())) {
        event->acceptProposedAction();
        emit openWave(path);
    }
}
